// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string>
#include <string_view>

// Texts of the core and texts of the toolkit.
namespace forms
{

QString fromUtf8(std::string_view text);
std::string toUtf8(const QString& text);

/// The text with its endless lines cut: messages quote whatever a program holds, and laying a megabyte out
/// takes minutes.
QString withoutEndlessLines(const QString& text);

} // namespace forms
