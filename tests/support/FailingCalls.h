// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

/// While one lives, this thread's calls that change files (open, write, flush, rights, rename, remove) are
/// counted, and from a certain one on they fail or end the process.
class FailingCalls
{
public:
    enum class Then {
        FailOnce,  ///< that call fails, the next ones succeed
        FailAll,   ///< that call and all after it fail
        EndProcess ///< as if somebody had killed it before that call
    };

    FailingCalls(int first, Then then);
    ~FailingCalls();
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;

    /// Whether it came to that call.
    bool reached() const;
};
