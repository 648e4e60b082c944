// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <string>
#include <string_view>

class QTextDocument;

/// The rules about a program text that need no window.
///
/// Outside the text box lines are separated by CR LF; within it a line break is one character, '\n'. Here is
/// the one place where the one becomes the other, so that within the editor a position is simply a position
/// in the text box.
namespace ProgramText
{

/// The lines of a file, each followed by a line break. Blanks of other kinds become the usual one: nobody
/// could see why the language does not know such a word.
QString fromFile(std::string_view utf8);
/// The text as files and games get it: UTF-8, lines separated by CR LF.
std::string toProgram(const QString& text);
/// `text` without NUL, backspace, tab and escape.
QString StripControlCharacters(QString text);
/// What of a text from elsewhere may go in: line breaks and blanks of every kind become ours, a tab one step
/// of indentation.
QString fromClipboard(QString text);

/// The position that a line and a column, both counted from 1, stand for. Without `wrap` it stays on its
/// line; with it the steps run on over line breaks, and a column of 0 or less leads back from the start of
/// the line.
int positionOf(const QTextDocument& document, int line, int column, bool wrap);
/// Where `wanted` is found next, ignoring case: behind the character after the cursor, else from the start.
std::optional<int> findNext(const QTextDocument& document, const QString& wanted, int cursor);
/// The line number typed into the prompt; 0 for what is no number.
int lineNumberFrom(const QString& typed);
/// The word of a line whose usage is shown.
QStringView statementWord(QStringView line);

} // namespace ProgramText
