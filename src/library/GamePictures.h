// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <QImage>
#include <QPixmap>
#include <QSize>

#include <string>
#include <string_view>

class Desk;
struct GameRecord;

// Pictures of the installation at the size in which a window shows them, sharp on every screen.

inline constexpr int iconSide = 80;

/// The pixels of a surface as an image that owns them.
QImage imageOf(Surface&& surface);

/// The picture file of that product path, brought to `size`; a null pixmap where it is missing or damaged.
QPixmap pictureOf(Desk& desk, std::string_view productPath, QSize size,
                  Qt::AspectRatioMode ratio = Qt::IgnoreAspectRatio);

/// A white box with a red X.
QPixmap crossedBox(QSize size);

/// The icon of a game; the crossed box where it has none that can be read.
QPixmap iconOf(Desk& desk, const GameRecord& game);

/// The first frame of a sprite graphic ("games\00000001\ball", without an ending), no larger than `side`; a
/// null pixmap where its files cannot be read.
QPixmap spriteOf(Desk& desk, const std::string& path, int side);
