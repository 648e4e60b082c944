#include "editor/CodeText.h"

#include "platform/Rounding.h"
#include "platform/TextFile.h"

#include <QLocale>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

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

QStringView withoutLeadingBlanks(QStringView line)
{
    while (line.startsWith(u' '))
        line = line.sliced(1);
    return line;
}

} // namespace

namespace CodeText
{

QString fromFile(std::string_view utf8)
{
    std::string lines;
    lines.reserve(utf8.size() + 1);
    for (const std::string_view line : splitLines(utf8)) {
        lines += line;
        lines += '\n';
    }
    QString text = QString::fromUtf8(lines.data(), static_cast<qsizetype>(lines.size()));
    text.replace(QChar(paragraphSeparator), QChar(u'\n'));
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
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (const char16_t lineBreak : {u'\r', u'\v', u'\f', paragraphSeparator, lineSeparator})
        text.replace(QChar(lineBreak), QChar(u'\n'));
    text.replace(u'\t', QStringLiteral("  "));
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

std::optional<int> findNext(const QString& text, const QString& wanted, int cursor)
{
    qsizetype found = text.indexOf(wanted, cursor + 1, Qt::CaseInsensitive);
    if (found < 0)
        found = text.indexOf(wanted, 0, Qt::CaseInsensitive);
    if (found < 0)
        return std::nullopt;
    return static_cast<int>(found);
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

} // namespace CodeText
