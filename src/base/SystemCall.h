// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cerrno>
#include <unistd.h>

/// What every call of the operating system needs.
namespace base {

/// Makes a system call, again where a signal interrupted it: a thousand times, since a disk that is
/// reached over a network may answer so for ever.
/// @return what the call returned; -1 is a failure with its reason in errno
template <typename Call>
auto uninterrupted(Call call)
{
    constexpr int mostTries = 1000;
    auto result = call();
    for (int tries = 1; result == -1 && errno == EINTR && tries < mostTries; ++tries)
        result = call();
    return result;
}

/// An open file, closed with the object.
class Descriptor {
public:
    explicit Descriptor(int number = -1)
        : m_number(number)
    {
    }
    ~Descriptor() { reset(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }
    void reset(int number = -1)
    {
        if (isOpen())
            close(m_number); // also where it fails, or is interrupted, it is closed
        m_number = number;
    }

private:
    int m_number;
};

} // namespace base
