// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/Replacing.h"

#include "forms/Desk.h"
#include "forms/MessageBoxes.h"
#include "forms/Texts.h"
#include "platform/FileStamp.h"

using namespace Qt::StringLiterals;

namespace forms
{

bool askReplaceChanged(QWidget* parent, const QString& fileName)
{
    return askYesNo(
        parent, u"Save"_s,
        u"The file %1 was changed by somebody else since you opened it. If you save now, their changes are "
        "lost.\n\nSave it all the same?"_s.arg(fileName));
}

bool askReplaceShared(QWidget* parent)
{
    return askYesNo(parent, u"Save"_s,
                    u"Somebody else is working on this game, too. If you both save, one of you will lose "
                    "something.\n\nSave all the same?"_s);
}

bool mayReplace(QWidget* parent, Desk& desk, std::string_view productPath, const FileStamp& stamp)
{
    if (!stamp.hasChanged(desk.installation(), productPath))
        return desk.mayChangeGame(parent);
    return askReplaceChanged(parent, fromUtf8(productPath.substr(productPath.rfind('\\') + 1)));
}

} // namespace forms
