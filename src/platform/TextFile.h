// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The line separator of program texts and messages.
inline constexpr std::string_view NewLine = "\r\n";

/// Whether `bytes` are well-formed UTF-8 (RFC 3629).
bool isValidUtf8(std::string_view bytes);

/// Text of a file as UTF-8: valid UTF-8 is taken as such and what begins with a byte order mark of UTF-16 as
/// UTF-16 (the mark is dropped), anything else is read as Windows-1252.
std::string decodeText(std::string bytes);

/// The lines of a text: CR LF, LF or CR ends a line; a last line without an end counts when it is not empty.
std::vector<std::string_view> splitLines(std::string_view text);

/// The text with each of its lines ended by CR LF, as program texts are.
std::string withProductLineEnds(std::string text);

/// Lower-cases every letter, ASCII or not, one character for one character. Malformed bytes are left alone.
std::string lowerCase(std::string_view utf8);
/// Upper-cases every letter, ASCII or not, one character for one character.
std::string upperCase(std::string_view utf8);
void appendUpperCase(std::string& out, std::string_view utf8);
