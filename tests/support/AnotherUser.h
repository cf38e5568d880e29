// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <grp.h>
#include <unistd.h>

/// Makes root another user, in no other group, for as long as it lives, since root may do
/// everything; any other user stays who he is.
class AnotherUser {
public:
    static constexpr uid_t number = 65534;

    AnotherUser()
    {
        if (getuid() != 0)
            return;
        m_isRoot = setgroups(0, nullptr) == 0 && setegid(number) == 0 && seteuid(number) == 0;
    }
    ~AnotherUser()
    {
        if (m_isRoot)
            m_isRoot = seteuid(0) == 0 && setegid(0) == 0;
    }
    AnotherUser(const AnotherUser&) = delete;
    AnotherUser& operator=(const AnotherUser&) = delete;

private:
    bool m_isRoot = false;
};
