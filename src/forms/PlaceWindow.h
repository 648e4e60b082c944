// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

class QWidget;

namespace forms
{

/// Gives a window of the program its place among those that are open; to be called before it is shown. Where
/// the user has moved it or changed its size, it stays, unless it would cover the line that it is about.
void placeWindow(QWidget& window);

} // namespace forms
