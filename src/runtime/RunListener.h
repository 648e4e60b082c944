// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

class ZBContext;

/// Follows the runs of an interpreter from beside: a recording, say. It changes nothing in them.
class RunListener
{
public:
    virtual ~RunListener() = default;
    /// A run has been started with that seed; its first frame has not begun.
    virtual void runBegins(ZBContext& context, std::uint64_t seed) = 0;
    /// A frame has come to its end.
    virtual void frameEnds() = 0;
    /// The frame that has begun came upon a mistake: the run is over, and its state is gone.
    virtual void runBreaks() = 0;
    /// The run is about to be forgotten.
    virtual void runEnds() = 0;
};
