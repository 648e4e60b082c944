// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "games/GameLock.h"

#include "platform/Installation.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <utility>
#ifndef __wasi__ // where there is only ever one program
#include <sys/file.h>
#endif

GameLock::GameLock(const Installation& installation, std::string_view folder)
{
    if (folder.ends_with('\\'))
        folder.remove_suffix(1);
    if (const auto path = installation.find(std::string("games\\").append(folder)))
        m_folder = ::open(path->c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    isTakenElsewhere();
}

GameLock::~GameLock()
{
    if (m_folder >= 0)
        ::close(m_folder);
}

GameLock::GameLock(GameLock&& other) noexcept
    : m_folder(std::exchange(other.m_folder, -1))
{
}

GameLock& GameLock::operator=(GameLock&& other) noexcept
{
    std::swap(m_folder, other.m_folder);
    return *this;
}

bool GameLock::isTakenElsewhere()
{
#ifdef __wasi__
    return false;
#else
    return m_folder >= 0 && ::flock(m_folder, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
#endif
}
