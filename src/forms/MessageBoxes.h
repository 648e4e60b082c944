// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <QString>

#include <functional>

#include <optional>

class QObject;
class QWidget;

namespace forms
{

// A box that comes while someone types takes letters with Alt only, for a moment.

/// Message boxes with the product's title. Escape does what Cancel (or OK) does.
void tell(QWidget* parent, const QString& text);
/// The same for something that went wrong.
void warn(QWidget* parent, const QString& text);
/// The same without waiting: `then` is called when the box has been answered, unless `receiver` or the box
/// has gone away before.
void warn(QWidget* parent, const QString& text, QObject* receiver, std::function<void()> then);
enum class Answer { Yes, No, Cancel };
Answer askYesNoCancel(QWidget* parent, const QString& title, const QString& text);
/// A question about something that cannot be undone; true for Yes. Return and Escape mean No.
bool askYesNo(QWidget* parent, const QString& title, const QString& text);
/// What Enter presses. Cancel is for questions whose OK cannot be taken back.
enum class DefaultButton { Ok, Cancel };
/// A question with OK and Cancel; true for OK.
bool askOk(QWidget* parent, const QString& title, const QString& text,
           DefaultButton defaultButton = DefaultButton::Ok);
/// An input box; nothing where it was cancelled or the answer is empty.
std::optional<QString> askText(QWidget* parent, const QString& title, const QString& prompt,
                               const QString& start = QString());
/// A box with all colors there are; nothing where it was cancelled.
std::optional<Pixel> askColor(QWidget* parent, const QString& title, Pixel start);

} // namespace forms
