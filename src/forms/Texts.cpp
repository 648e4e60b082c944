// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/Texts.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace forms
{

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string toUtf8(const QString& text)
{
    return text.toStdString();
}

QString withoutEndlessLines(const QString& text)
{
    constexpr qsizetype longest = 3000;
    QString cut;
    for (const QStringView line : QStringView(text).split(u'\n')) {
        cut += line.left(longest);
        if (line.size() > longest)
            cut += u"..."_s;
        cut += u'\n';
    }
    cut.chop(1);
    return cut;
}

} // namespace forms
