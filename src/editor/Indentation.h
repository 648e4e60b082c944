// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>

#include <functional>

/// Indentation by the depth of braces: two blanks a level.
namespace Indentation
{

inline constexpr int unit = 2;

struct Level {
    int level = 0;
    bool isBelowZero = false; ///< there was one brace too many; the level is 0 then
};

/// How many blanks a line has at its two ends; a line of blanks has them all in front.
struct Blanks {
    int before = 0;
    int behind = 0;
};
Blanks blanksAround(QStringView line);

/// The level of `line` below `above`, the nearest line over it that is not empty (empty where there is none).
Level levelOf(QStringView line, QStringView above);

/// What is told while a whole text is worked on, every so many lines: the number of the line, and whether a
/// level was below zero since it was told last.
using Progress = std::function<void(int line, bool belowZero)>;
inline constexpr int linesBetweenReports = 64;

struct IndentedText {
    QString text;
    bool isBelowZero = false; ///< a level was below zero since `progress` was told last
};

/// The text with its lines indented, from the second on. Of two empty lines the first stays empty and the
/// second gets its indentation. A text that would grow beyond `longest` characters is left as it is from
/// there on.
IndentedText AutoIndentAll(const QString& text, const Progress& progress,
                           qsizetype longest = qsizetype(1) << 24U);

} // namespace Indentation
