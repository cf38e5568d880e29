// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unistd.h>

/// A way in which a disk refuses to take a file, for as long as the object lives.
namespace failingdisk {

/// The tests often run as root, for whom no folder is read-only: this makes the process an ordinary
/// user, who may read what root made and write none of it. Nothing for anyone else.
class OrdinaryUser {
public:
    OrdinaryUser()
        : m_wasRoot(geteuid() == 0)
    {
        if (m_wasRoot)
            m_changed = seteuid(nobody) == 0;
    }
    ~OrdinaryUser()
    {
        if (m_changed)
            m_changed = seteuid(0) != 0;
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    bool m_wasRoot;
    bool m_changed = false;
};

} // namespace failingdisk
