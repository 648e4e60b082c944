// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ParseFault.h"

#include <string_view>
#include <vector>

/// Everything that is wrong with a program text (lines ended by CR LF). The first fault is the one that
/// reading the program reports; the others follow by line. Where braces do not match, all behind the first
/// is told of the blocks as they were probably meant (MendedBlocks).
std::vector<ParseFault> findFaults(std::string_view text);
