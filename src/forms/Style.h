// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>

class QWidget;

// How the windows look.
namespace forms
{

/// "Courier New" by name, or the metric-compatible fixed font that the system has.
QFont fixedFont(int points);

/// Window icon, style sheet and palette for the whole program; call once. Follows a light or dark desktop.
void setUpApplication();

/// Shows a window, brought back from a minimised state and above the others.
void bringUp(QWidget& window);

} // namespace forms
