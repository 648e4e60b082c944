// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/UndoRing.h"

#include <algorithm>

bool UndoRing::record(const SharedText& text)
{
    if (text == m_texts[static_cast<std::size_t>(m_undoIndex)])
        return false;
    m_undoIndex = (m_undoIndex + 1) % size;
    m_undoCount = std::min(m_undoCount + 1, size);
    m_texts[static_cast<std::size_t>(m_undoIndex)] = text;
    return true;
}

SharedText UndoRing::undo()
{
    Q_ASSERT(m_undoCount > 0);
    const SharedText& newest = m_texts[static_cast<std::size_t>(m_undoIndex)];
    m_undoIndex = (m_undoIndex + size - 1) % size;
    --m_undoCount;
    return newest;
}
