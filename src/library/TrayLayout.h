// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string>
#include <string_view>
#include <utility>

// Where the tiles of the library's tray stand, and what is written on them. No window in here.

inline constexpr int tilesInView = 5;
inline constexpr int firstTileLeft = 20;
inline constexpr int tileTop = 10;

/// Left edge of the tile in `slot` (0 to 4) of a tray that is `trayWidth` wide.
int tileLeft(int slot, int trayWidth);

/// The slot under the horizontal position `x` of the tray.
int slotAt(int x, int trayWidth);

/// Where an arrow key leads from a tile that is marked for the keyboard, -1 for none: the next slot, which
/// may be one that holds no game, and by how many games the tray scrolls to show it.
struct TrayStep {
    int slot;
    int scrolled;
    bool operator==(const TrayStep&) const = default;
};
TrayStep stepInTray(int marked, int direction);

/// The text padded with blanks or cut to exactly 18 characters.
std::string tileText(std::string_view utf8);

/// A text of a tile that one line has no room for, as two: between words where both lines get short by that,
/// else in its middle.
std::pair<QString, QString> inTwoLines(const QString& padded);
