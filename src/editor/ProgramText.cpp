// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/ProgramText.h"

#include "platform/Rounding.h"
#include "platform/TextFile.h"

#include <QLocale>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

// These would break a line in the text box, or are left out of a document's text.
constexpr char16_t paragraphSeparator = 0x2029;
constexpr char16_t lineSeparator = 0x2028;
constexpr char16_t frameStart = 0xfdd0;
constexpr char16_t frameEnd = 0xfdd1;

bool isControlCharacter(QChar c)
{
    return c == QChar(0) || c == QChar(8) || c == QChar(9) || c == QChar(27);
}

/// Blanks that look like the usual one, or like nothing at all, and that the language knows nothing of: a
/// word with one of them looks right and is not.
bool isOddBlank(QChar c)
{
    constexpr char16_t lastUsual = 0x7f;
    switch (c.unicode()) {
    case 0x180e: // Mongolian vowel separator
    case 0x200b: // zero width space
    case 0x2060: // word joiner
    case 0xfeff: // zero width no-break space
        return true;
    default:
        return c.unicode() > lastUsual && c.category() == QChar::Separator_Space;
    }
}

void replaceOddBlanks(QString& text)
{
    // Looked for first: nearly every text has none and need not be copied.
    if (std::any_of(text.cbegin(), text.cend(), isOddBlank))
        std::replace_if(text.begin(), text.end(), isOddBlank, QChar(u' '));
}

/// Line by line: a prompt holds no line break, so that nothing of what it holds is found across one.
std::optional<int> findFrom(const QTextDocument& document, const QString& wanted, int position)
{
    QTextBlock line = document.findBlock(position);
    for (qsizetype from = position - line.position(); line.isValid(); line = line.next(), from = 0) {
        const qsizetype found = line.text().indexOf(wanted, from, Qt::CaseInsensitive);
        if (found >= 0)
            return line.position() + static_cast<int>(found);
    }
    return std::nullopt;
}

QStringView withoutLeadingBlanks(QStringView line)
{
    while (line.startsWith(u' '))
        line = line.sliced(1);
    return line;
}

} // namespace

namespace ProgramText
{

QString fromFile(std::string_view utf8)
{
    std::string lines;
    lines.reserve(utf8.size() + 1);
    for (const std::string_view line : splitLines(utf8)) {
        lines.append(line).append("\n");
    }
    QString text = QString::fromUtf8(lines.data(), static_cast<qsizetype>(lines.size()));
    for (const char16_t lineBreak : {paragraphSeparator, lineSeparator})
        text.replace(QChar(lineBreak), QChar(u'\n'));
    replaceOddBlanks(text);
    text.replace(QChar(frameStart), QChar(QChar::ReplacementCharacter));
    text.replace(QChar(frameEnd), QChar(QChar::ReplacementCharacter));
    return text;
}

std::string toProgram(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    std::string program;
    program.reserve(static_cast<std::size_t>(utf8.size() + text.count(u'\n')));
    for (const char c : utf8) {
        if (c == '\n')
            program += '\r';
        program += c;
    }
    return program;
}

QString StripControlCharacters(QString text)
{
    // Looked for first: nearly every text has none and need not be copied.
    if (std::any_of(text.cbegin(), text.cend(), isControlCharacter))
        text.removeIf(isControlCharacter);
    return text;
}

QString fromClipboard(QString text)
{
    text.replace(u"\r\n"_s, u"\n"_s);
    for (const char16_t lineBreak : {u'\r', u'\v', u'\f', paragraphSeparator, lineSeparator})
        text.replace(QChar(lineBreak), QChar(u'\n'));
    text.replace(u'\t', u"  "_s);
    replaceOddBlanks(text);
    text.remove(QChar(frameStart));
    text.remove(QChar(frameEnd));
    return StripControlCharacters(text);
}

int positionOf(const QTextDocument& document, int line, int column, bool wrap)
{
    const qint64 end = document.characterCount() - 1;
    if (line > document.blockCount())
        return static_cast<int>(end);
    const QTextBlock block = document.findBlockByNumber(std::max(line, 1) - 1);
    const qint64 start = block.position();
    const qint64 target = start + column - (column >= 1 ? 1 : 0);
    if (wrap)
        return static_cast<int>(std::clamp<qint64>(target, 0, end));
    return static_cast<int>(std::clamp<qint64>(target, start, start + block.length() - 1));
}

std::optional<int> findNext(const QTextDocument& document, const QString& wanted, int cursor)
{
    std::optional<int> found;
    if (cursor < document.characterCount() - 1)
        found = findFrom(document, wanted, cursor + 1);
    return found ? found : findFrom(document, wanted, 0);
}

int lineNumberFrom(const QString& typed)
{
    bool isNumber = false;
    const double number = QLocale::c().toDouble(typed.trimmed(), &isNumber);
    return isNumber && std::isfinite(number) ? roundToInt(number) : 0;
}

QStringView statementWord(QStringView line)
{
    const QStringView words = withoutLeadingBlanks(line);
    const qsizetype blank = words.indexOf(u' ');
    return blank >= 2 ? words.first(blank) : words;
}

} // namespace ProgramText
