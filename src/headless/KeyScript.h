// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

/// A key that goes down or up just before a frame (1 for the first).
struct KeyChange {
    std::int32_t frame = 0;
    bool down = false;
    int code = 0;
};

/// Reads "FRAME down CODE" and "FRAME up CODE" lines; empty lines and lines that start with # are skipped.
/// False where a line is anything else; `badLine` is then its number.
bool parseKeys(std::string_view text, std::vector<KeyChange>& keys, int& badLine);
