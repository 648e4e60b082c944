// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

class QAbstractButton;
class QAction;
class QObject;
class QToolBar;
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

/// One row of a window's table of what stands in its menus; the caption is for a button that does the same.
struct MenuRow : ActionRow {
    const char16_t* menuText;
    const char16_t* keys;
};

/// Gives a button its caption and what setUpButton gives.
void setUpButton(QAbstractButton& button, const ActionRow& row);

/// A tool button with its caption below the icon.
QToolButton* makeToolButton(const ActionRow& row, QSize iconSize, QWidget* parent);

/// An action for menus and toolbars; its tip names its keys.
QAction* makeAction(const MenuRow& row, QObject* parent);

/// Puts a button for an action on a toolbar, named after the action, and lets Tab reach it.
void addButton(QToolBar& bar, QAction& action, int smallestWidth);

} // namespace forms
