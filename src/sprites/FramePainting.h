// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <QImage>
#include <QRect>

class QPainter;

// How frames of a sprite are shown: large pixels with sharp edges, and a checkerboard where they are
// see-through.

/// The pixels of a frame as it looks as an image with transparency, without a copy; the frame must outlive
/// it.
QImage imageOfFrame(const Surface& frame);

/// Fills `area` with a checkerboard that repeats itself every `period` pixels.
void drawCheckerboard(QPainter& painter, const QRect& area, int period);

/// Draws a frame over `area`, see-through pixels as a checkerboard.
void drawFrame(QPainter& painter, const QRect& area, const Surface& frame);

/// Fills `area` with one color or, for the transparent one, a checkerboard.
void drawColor(QPainter& painter, const QRect& area, Pixel color);

/// The largest rectangle in the middle of `area` that shows a frame with whole screen pixels for each of its
/// own, or shrunk where it is too large for that.
QRect fitFrame(const QRect& area, int width, int height);
