// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The name, without an ending, under which a program can use a picture whose file has the name `wish`, and
/// that is not the icon's.
QString pictureName(const QString& wish);
