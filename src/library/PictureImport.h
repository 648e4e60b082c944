// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PictureReader.h"

#include <QSize>

#include <filesystem>
#include <string>
#include <string_view>

/// A picture file from anywhere, made ready for a game: what a game can show is taken as it is, whatever else
/// the toolkit can read (PNG, ...) becomes a BMP picture on white.
struct PictureImport {
    enum class Outcome { Ready, Unreadable, TooLarge };
    Outcome outcome = Outcome::Unreadable;
    std::string_view ending; ///< ".bmp", ".gif" or ".jpg"
    std::string bytes;
    QSize size; ///< in pixels, as far as it could be read
};
PictureImport importPicture(PictureReader& pictures, const std::filesystem::path& file);

/// What a child is told about a picture of that file name that is not Ready.
QString whyNotAdded(const PictureImport& picture, const QString& fileName);

/// The kinds of picture files that importPicture takes, as a file dialog wants them: "*.bmp *.BMP *.png ...".
QString importablePatterns();
