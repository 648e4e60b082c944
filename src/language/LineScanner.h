// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// What a piece of a line is.
enum class TokenKind : std::uint8_t {
    Statement,   ///< the word that begins a statement; "if" behind a closing brace as well
    Block,       ///< program, classes, states, else
    Event,       ///< normal, collision, ...
    StatePart,   ///< initialize, loop
    Name,        ///< of a class, of a state, of a block that the language does not know
    Object,      ///< me, it, game, ...
    Property,    ///< what stands behind an object and its dot
    Variable,    ///< with its prefix
    Number,      //
    Text,        ///< with its quotes
    Operator,    //
    Random,      ///< the word random
    Punctuation, ///< the dot of a property, the brackets and the comma of random
    Brace,       //
    Comment,     ///< with its semicolon
    Unknown,     ///< a word that does not fit where it stands
};

/// Why the language passes over a piece.
enum class Ignored : std::uint8_t {
    No,
    Comment,
    ExtraWord,       ///< the statement reads fewer words
    SecondTest,      ///< an if has one test; what begins with "and" or "or" is never looked at
    InnerBrace,      ///< braces count at the two ends of a line only
    BehindNumber,    ///< "3abc" is 3
    BehindRandom,    ///< what follows the closing bracket
    BehindBlockName, ///< in the two lines of a block the first word counts
    FreeName,        ///< this block may be closed by any name
    OutsideOfBlocks, ///< the line stands where no statements are read
};

/// Positions are bytes of the UTF-8 line as it is written, from 0. Pieces that touch each other are one word
/// of the language (braces are none).
struct Token {
    TokenKind kind = TokenKind::Unknown;
    Ignored ignored = Ignored::No;
    std::size_t from = 0;
    std::size_t length = 0;

    bool operator==(const Token&) const = default;
};

struct ScannedLine {
    std::vector<Token> tokens; ///< by position; spaces and tabs belong to none
    int depth = 0;             ///< how many blocks are open behind the line
};

/// The depth at which statements are read: inside program, classes or states, a class or state, an event or
/// part.
inline constexpr int statementDepth = 4;

/// Cuts one line of a program as the reader does, without looking at any other line. `depth` says how many
/// blocks are open in front of it. Where a brace is missing or too many, the next block whose name belongs to
/// one depth only puts it right, so that a half-typed line does not change all that follow.
ScannedLine scanLine(std::string_view line, int depth = statementDepth);
