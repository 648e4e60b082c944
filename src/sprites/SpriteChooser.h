// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Installation.h"
#include "platform/PictureReader.h"

#include <QString>

#include <optional>
#include <string>

class QWidget;

/// Lets the user pick one of a game's sprite graphics by picture and name; nothing where that was cancelled.
std::optional<QString> chooseSprite(QWidget* parent, const Installation& installation,
                                    PictureReader& pictures, const std::string& folder);
