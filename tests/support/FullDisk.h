// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <csignal>
#include <sys/resource.h>

/// While one lives, no file can grow beyond `bytes`, as on a full disk.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes = 0)
    {
        m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_old);
        rlimit small = m_old;
        small.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_old = {};
    void (*m_oldHandler)(int) = nullptr;
};
