// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

/// Ways in which a disk refuses to take a file, each for as long as the object lives.
namespace failingdisk {

/// Every write of this process beyond `bytes` of a file fails, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_previous);
        rlimit limit = m_previous;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_previous);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_previous{};
    void (*m_handler)(int) = nullptr;
};

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
