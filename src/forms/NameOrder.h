// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <string>
#include <vector>

namespace forms
{

/// The names as a list for people shows them: whatever the case, and numbers by their value ("wall2" before
/// "Wall10").
QStringList inNameOrder(const std::vector<std::string>& utf8Names);

} // namespace forms
