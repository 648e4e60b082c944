// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBLObjectExp.h"

std::optional<ZBLObjectExp> ZBLObjectExp::Parse(std::string_view word)
{
    const auto* object = findWord<ObjectWord>(word);
    return object ? std::optional(ZBLObjectExp(*object)) : std::nullopt;
}
