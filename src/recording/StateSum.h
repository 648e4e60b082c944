// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/RunState.h"

#include <cstdint>

/// A sum over every bit of a run's state that has a say in how it goes on, the same on every machine: numbers
/// by their bits, texts and shared things by what they are called. Keys to come are not in it, nor what has
/// been drawn.
std::uint64_t stateSum(const RunState& run);
