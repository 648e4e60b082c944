// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

/// The lower-case letter of a letter, and the upper-case one; everything else is its own. One character for
/// one character, as Unicode 14 has it, whatever the C library of the machine knows.
char32_t lowerCaseOf(char32_t code);
char32_t upperCaseOf(char32_t code);
