// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/ActionRow.h"

#include "forms/Icons.h"

#include <QToolButton>

namespace forms
{

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

} // namespace forms
