// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/PictureName.h"

#include "forms/Texts.h"
#include "games/WritableName.h"

using namespace Qt::StringLiterals;

QString pictureName(const QString& wish)
{
    // One letter with its accent is what a program has, where some systems keep two in the names of files.
    const QString blanks = wish.normalized(QString::NormalizationForm_C).replace(u'.', u' ').simplified();
    const std::string name = writableName(forms::toUtf8(blanks));
    if (name.empty())
        return u"picture"_s;
    return isIconName(name) ? u"icon_picture"_s : forms::fromUtf8(name);
}
