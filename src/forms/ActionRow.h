// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

class QAbstractButton;
class QToolButton;
class QWidget;

namespace forms
{

/// One row of a window's table of buttons: the name of the control, and how it looks and reads.
struct ActionRow {
    const char* name;
    const char* icon;
    const char16_t* caption; ///< empty for a button that shows its icon only
    const char16_t* tip;
};

/// A row together with what it does.
template<typename Form> struct ActionOf : ActionRow {
    void (Form::*handler)();
};

/// Gives a button its caption and what setUpButton gives.
void setUpButton(QAbstractButton& button, const ActionRow& row);

/// A tool button with its caption below the icon.
QToolButton* makeToolButton(const ActionRow& row, QSize iconSize, QWidget* parent);

} // namespace forms
