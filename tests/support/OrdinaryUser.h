// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <sys/wait.h>
#include <unistd.h>

inline constexpr unsigned nobody = 65534;

/// What `test` answers in a process without an administrator's rights, for whom nothing is read-only.
inline bool asOrdinaryUser(const std::function<bool()>& test)
{
    const pid_t child = ::fork();
    if (child == 0) {
        const bool isReady = ::geteuid() != 0 || (::setgid(nobody) == 0 && ::setuid(nobody) == 0);
        ::_exit(isReady && test() ? 0 : 1);
    }
    int status = -1;
    return ::waitpid(child, &status, 0) == child && status == 0;
}

/// While one lives, it is an ordinary user who is asked for when the system tells what may be written.
class AskedAsOrdinaryUser
{
public:
    AskedAsOrdinaryUser()
    {
        if (m_old == 0)
            static_cast<void>(!::setreuid(nobody, ::geteuid()));
    }
    ~AskedAsOrdinaryUser()
    {
        if (m_old == 0)
            static_cast<void>(!::setreuid(m_old, ::geteuid()));
    }
    AskedAsOrdinaryUser(const AskedAsOrdinaryUser&) = delete;
    AskedAsOrdinaryUser& operator=(const AskedAsOrdinaryUser&) = delete;

private:
    uid_t m_old = ::getuid();
};
