// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "recording/Recording.h"

#include <cstdint>
#include <string>
#include <string_view>

// How moments and things are called in sentences that children read.

/// The frame to which a moment in the middle of it belongs, counted from 1.
std::int64_t frameNumberOf(Moment moment);
/// How many whole frames come before the frame that one sees at a moment: between two frames that is the one
/// that has just ended. -1 at the beginning of a run.
std::int64_t frameSeenAt(Moment moment);
/// "1,204"
std::string countText(std::int64_t count);
/// "a ball", "an apple"
std::string withArticle(std::string_view name);
/// "Frame 214, line 12"; without a line where it is 0.
std::string placeText(Moment moment, int line);
