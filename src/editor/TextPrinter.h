// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

class QFont;
class QPagedPaintDevice;
class QString;

/// Prints a text in one font from the top of the first page on. Lines wider than the page go on below; pages
/// follow as they are needed. False where the device could not be used.
[[nodiscard]] bool printText(QPagedPaintDevice& device, const QString& text, const QFont& font);
