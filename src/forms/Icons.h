// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QIcon>
#include <QImage>
#include <QString>

class QAbstractButton;

// Icons, and buttons that wear them.
namespace forms
{

/// The icon assets/ui/<name>.svg, crisp at every scale.
QIcon icon(const char* name);

/// The drawing of an icon, in any thread.
QImage drawIcon(const char* name, QSize pixels);
/// Keeps a drawing of drawIcon for the moment when the icon is shown.
void keepIcon(const char* name, const QImage& drawing);

/// Sets name, accessible name, tip and icon of a button in one go; the tip becomes the accessible name where
/// a caption is missing. Enter presses it.
void setUpButton(QAbstractButton& button, const char* objectName, const char* iconName, const QString& tip);

/// Lets Enter press a button that has the focus. Desktops differ in whether the toolkit does that.
void letEnterPress(QAbstractButton& button);

} // namespace forms
