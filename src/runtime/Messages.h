// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

/// Sentences that more than one place of the runtime says.
namespace say
{

inline constexpr std::string_view tooBig = "A number in this instruction became too big!";
inline constexpr std::string_view changeBeforeSet = "You used change on a counter you have not set yet!";
inline constexpr std::string_view invalidValue = "Invalid ZBLValueExp detected internally!";

} // namespace say
