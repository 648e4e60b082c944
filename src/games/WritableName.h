// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

/// The name nearest to `wish` that a program can write in quotes and every file system can hold: lower case,
/// "_" for blanks, letters of any alphabet and digits, and no other signs than "-" and "_". Empty where
/// nothing is left.
std::string writableName(std::string_view wish);

/// Whether a file of this name without its ending would pass for the icon of its game.
bool isIconName(std::string_view name);
