// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/WritableCheck.h"

#include "platform/Installation.h"

#include <QFile>

#include <unistd.h>

using namespace Qt::StringLiterals;

WritableCheck::WritableCheck(const Installation& installation)
{
    // New games come into the folder of the games; where there is none yet, it is made beside the program.
    const auto folder = installation.find("games").value_or(installation.root());
    m_folder = QFile::decodeName(folder.c_str());
    m_isWritable = ::access(folder.c_str(), W_OK | X_OK) == 0;
}

QString WritableCheck::message() const
{
    return u"You can look at the games and play them, but I can't save anything: nobody may write in the "
           "folder %1.\n\n"
           "Please ask somebody for help before you make something that you want to keep."_s.arg(m_folder);
}
