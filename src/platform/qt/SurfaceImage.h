// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <QImage>

// Surfaces of the core and images of the toolkit: the same pixels, two types.

/// The pixels of a surface as an image, without a copy; the surface must outlive it.
QImage viewOfSurface(const Surface& surface);

/// A copy of the image's colors. Transparency is dropped, so that a see-through pixel keeps the color that
/// its file gives it.
Surface surfaceOfImage(const QImage& image);
