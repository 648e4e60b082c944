#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Whether `bytes` are well-formed UTF-8 (RFC 3629).
bool isValidUtf8(std::string_view bytes);

/// Text of a file as UTF-8: valid UTF-8 is taken as such (a byte order mark is dropped), anything else is
/// read as Windows-1252.
std::string decodeText(std::string_view bytes);

/// The lines of a text: CR LF, LF or CR ends a line; a last line without an end counts when it is not empty.
std::vector<std::string_view> splitLines(std::string_view text);

/// The text with each of its lines ended by CR LF, as program texts are.
std::string withProductLineEnds(std::string_view text);

/// Lower-cases every letter, ASCII or not, one character for one character. Malformed bytes are left alone.
std::string lowerCase(std::string_view utf8);
/// Upper-cases every letter, ASCII or not, one character for one character.
std::string upperCase(std::string_view utf8);
void appendUpperCase(std::string& out, std::string_view utf8);

/// Contents of the plain file at `file`; nothing where it cannot be read or is larger than `limit` bytes.
std::optional<std::string> readFileBytes(const std::filesystem::path& file, std::uintmax_t limit);

/// Replaces the file at `file` whole or not at all: the bytes go to a temporary file beside it, are flushed
/// to the disk and take the old file's place by a rename. False where any step failed; the old file is then
/// untouched.
[[nodiscard]] bool writeFileWhole(const std::filesystem::path& file, std::string_view bytes);
