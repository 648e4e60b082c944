// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/RunState.h"

#include <QRectF>
#include <QString>

#include <vector>

/// What can be drawn around a sprite over the field. Two sprites collide where their boxes overlap.
struct FieldBox {
    QRectF place; ///< in pixels of the field
    QString name; ///< its class and its tag
    bool touches = false;

    bool operator==(const FieldBox&) const = default;
};

/// The boxes of the sprites that are not hidden and whose boxes are at least partly on the field, in the
/// order of the sprites.
std::vector<FieldBox> fieldBoxes(const RunState& run);
