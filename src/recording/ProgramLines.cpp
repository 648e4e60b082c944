// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/ProgramLines.h"

ProgramLines::ProgramLines(const Program& program, int lineCount)
    : m_lines(static_cast<std::size_t>(lineCount) + 1)
{
    int index = 0;
    for (const ZBLClassExp& each : program.tree.classes()) {
        for (std::size_t event = 0; event < eventNameCount; ++event) {
            const auto name = static_cast<EventName>(event);
            addBlock(each.getEventExp(name), {.classIndex = index, .event = name});
        }
        ++index;
    }
    index = 0;
    for (const ZBLStateExp& each : program.tree.states()) {
        for (const auto part : {StatePart::Initialize, StatePart::Loop})
            addBlock(each.getSubStateExp(part), {.stateIndex = index, .part = part});
        ++index;
    }
}

void ProgramLines::addBlock(const ZBLExp& sequence, Block block)
{
    struct OpenIf {
        int line;
        bool isInElse = false;
    };
    std::vector<OpenIf> open;
    for (const SequenceItem* item = sequence.first(); item; item = item->next()) {
        if (item->role() == SequenceItem::Role::Else) {
            open.back().isInElse = true;
        } else if (item->role() == SequenceItem::Role::EndIf) {
            open.pop_back();
        } else {
            const auto& statement = static_cast<const ZBLStatement&>(*item);
            Line line{&statement, static_cast<int>(m_blocks.size())};
            if (!open.empty()) {
                line.aroundIf = open.back().line;
                line.isInElse = open.back().isInElse;
            }
            m_lines[static_cast<std::size_t>(statement.line())] = line;
            if (block.firstStatement == 0)
                block.firstStatement = statement.line();
            if (statement.type() == StatementType::If)
                open.push_back({statement.line()});
        }
    }
    m_blocks.push_back(block);
}
