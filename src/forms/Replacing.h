// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string_view>

class Desk;
class FileStamp;
class QWidget;

// Questions before a file is saved over that somebody else has written to. No is the safe answer, and the one
// that Return and Escape give.
namespace forms
{

/// Whether to save over a file that has changed since it was read.
bool askReplaceChanged(QWidget* parent, const QString& fileName);
/// Whether to save into a game that somebody else is working on.
bool askReplaceShared(QWidget* parent);

/// Whether `productPath` may be written: it holds what it held at `stamp`, or the user wants it so.
bool mayReplace(QWidget* parent, Desk& desk, std::string_view productPath, const FileStamp& stamp);

} // namespace forms
