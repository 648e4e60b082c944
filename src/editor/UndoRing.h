// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/SharedText.h"

#include <array>

/// The texts as they were before the last changes. Holds 31 of them; the oldest is overwritten.
class UndoRing
{
public:
    static constexpr int size = 31;

    /// Keeps `text` as the newest snapshot, unless it is that already. True where it was kept.
    bool record(const SharedText& text);
    /// How many snapshots can still be restored.
    int count() const { return m_undoCount; }
    /// Takes the newest snapshot out; there must be one.
    SharedText undo();

private:
    std::array<SharedText, size> m_texts;
    int m_undoIndex = 0; ///< the newest snapshot; after the last undo an old text that is only compared with
    int m_undoCount = 0;
};
