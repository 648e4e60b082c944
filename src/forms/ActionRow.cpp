// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/ActionRow.h"

#include "forms/Icons.h"

#include <QAction>
#include <QToolBar>
#include <QToolButton>

namespace forms
{

using namespace Qt::StringLiterals;

void setUpButton(QAbstractButton& button, const ActionRow& row)
{
    button.setText(QString::fromUtf16(row.caption));
    setUpButton(button, row.name, row.icon, QString::fromUtf16(row.tip));
}

QToolButton* makeToolButton(const ActionRow& row, QSize iconSize, QWidget* parent)
{
    auto* button = new QToolButton(parent); // whose style decides how wide it is
    setUpButton(*button, row);
    button->setIconSize(iconSize);
    button->setFocusPolicy(Qt::StrongFocus);
    if (!button->text().isEmpty())
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    return button;
}

QAction* makeAction(const MenuRow& row, QObject* parent)
{
    auto* action = new QAction(icon(row.icon), QString::fromUtf16(row.menuText), parent);
    const QString keys = QString::fromUtf16(row.keys);
    action->setObjectName(QLatin1StringView(row.name));
    action->setIconText(QString::fromUtf16(row.caption));
    action->setShortcut(QKeySequence(keys));
    action->setToolTip(QString::fromUtf16(row.tip) + u" (%1)"_s.arg(keys));
    return action;
}

void addButton(QToolBar& bar, QAction& action, int smallestWidth)
{
    bar.addAction(&action);
    QWidget* button = bar.widgetForAction(&action);
    button->setObjectName(action.objectName() + "Button"_L1);
    button->setAccessibleName(action.iconText());
    button->setFocusPolicy(Qt::TabFocus);
    button->setMinimumWidth(smallestWidth);
}

} // namespace forms
