// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "support/FailingCalls.h"

#include <cerrno>
#include <cstdio>
#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace
{

thread_local int left = -1; // calls until the chosen one; negative where nobody counts
thread_local bool wasReached = false;
thread_local FailingCalls::Then onReached = FailingCalls::Then::FailOnce;

bool fails()
{
    if (left < 0 || --left > 0)
        return false;
    wasReached = true;
    left = onReached == FailingCalls::Then::FailAll ? 1 : -1;
    if (onReached == FailingCalls::Then::EndProcess)
        ::_exit(0);
    errno = EIO;
    return true;
}

template<typename Function> Function* real(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

FailingCalls::FailingCalls(int first, Then then)
{
    left = first;
    wasReached = false;
    onReached = then;
}

FailingCalls::~FailingCalls()
{
    left = -1;
}

bool FailingCalls::reached() const
{
    return wasReached;
}

// These stand in front of the system's own.
extern "C" {

int mkostemps(char* path, int ending, int flags)
{
    return fails() ? -1 : real<int(char*, int, int)>("mkostemps")(path, ending, flags);
}

ssize_t write(int file, const void* bytes, size_t size)
{
    return fails() ? -1 : real<ssize_t(int, const void*, size_t)>("write")(file, bytes, size);
}

int fchmod(int file, mode_t mode)
{
    return fails() ? -1 : real<int(int, mode_t)>("fchmod")(file, mode);
}

int fsync(int file)
{
    return fails() ? -1 : real<int(int)>("fsync")(file);
}

int rename(const char* from, const char* to) noexcept
{
    return fails() ? -1 : real<int(const char*, const char*)>("rename")(from, to);
}

int unlink(const char* path) noexcept
{
    return fails() ? -1 : real<int(const char*)>("unlink")(path);
}
}
