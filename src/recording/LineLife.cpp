// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/LineLife.h"

#include "language/ZBLIfExp.h"
#include "platform/TextFile.h"
#include "recording/ChildWords.h"

LineLife::LineLife(const RunIndex& index, const LineArray& lines)
    : m_index(index)
    , m_isStray(static_cast<std::size_t>(lines.upperBound()) + 1)
{
    for (int line = 1; line <= lines.upperBound(); ++line)
        m_isStray[static_cast<std::size_t>(line)] = !lines[line].empty() && !lines.opensBlock(line) &&
                                                    !lines.closesBlock(line) &&
                                                    index.lines().line(line).statement == nullptr;
    for (const Block& block : index.lines().blocks())
        m_isShadowed.push_back(isShadowed(block));
}

/// The first class, or state, of a name counts.
bool LineLife::isShadowed(const Block& block) const
{
    const ZBLProgramExp& tree = m_index.program()->tree;
    if (block.classIndex >= 0) {
        const auto first = tree.findClass(className(block));
        return first && *first < block.classIndex;
    }
    const auto first = tree.findState(tree.states()[static_cast<std::size_t>(block.stateIndex)].stateName());
    return first && *first < block.stateIndex;
}

LineLife::Life LineLife::lifeOf(int line) const
{
    const auto& [statement, block, aroundIf, isInElse] = m_index.lines().line(line);
    if (!statement) {
        const auto index = static_cast<std::size_t>(line);
        return line > 0 && index < m_isStray.size() && m_isStray[index] ? Life::CannotRun
                                                                        : Life::NotAStatement;
    }
    if (m_index.timesRun(line) > 0)
        return m_index.lastFrameOf(line) == m_index.lastFrame() ? Life::RanInLastFrame : Life::RanBefore;
    return m_isShadowed[static_cast<std::size_t>(block)] ? Life::CannotRun : Life::NeverRan;
}

std::string LineLife::tip(int line) const
{
    switch (lifeOf(line)) {
    case Life::NotAStatement:
        break;
    case Life::CannotRun: {
        const ProgramLines::Line& here = m_index.lines().line(line);
        return here.statement ? shadowText(m_index.lines().blocks()[static_cast<std::size_t>(here.block)])
                              : "This line can never run: it stands outside of the blocks that instructions "
                                "belong in.";
    }
    case Life::NeverRan:
        return waitingText(line);
    case Life::RanBefore:
    case Life::RanInLastFrame: {
        const std::int64_t times = m_index.timesRun(line);
        const std::string first = countText(frameNumberOf(*m_index.firstRun(line)));
        return times == 1 ? "Ran once, in frame " + first
                          : "Ran " + countText(times) + " times, first in frame " + first;
    }
    }
    return {};
}

const std::string& LineLife::className(const Block& block) const
{
    return m_index.program()->tree.classes()[static_cast<std::size_t>(block.classIndex)].className();
}

std::string LineLife::shadowText(const Block& block) const
{
    const bool isClass = block.classIndex >= 0;
    const std::string& name =
        isClass ? className(block)
                : m_index.program()->tree.states()[static_cast<std::size_t>(block.stateIndex)].stateName();
    return "This line can never run: there is another " + std::string(isClass ? "class" : "state") +
           " named " + name + " before this one.";
}

/// Why a statement has not run: its block has not, or an if around it, or something before it ends the block.
std::string LineLife::waitingText(int line) const
{
    const auto& [statement, blockIndex, aroundIf, isInElse] = m_index.lines().line(line);
    const Block& block = m_index.lines().blocks()[static_cast<std::size_t>(blockIndex)];
    if (m_index.timesRun(block.firstStatement) == 0)
        return blockWaits(block);
    if (aroundIf != 0)
        return ifWaits(line);
    return "This line has not run yet: its block has always ended before it came here.";
}

/// Whether something has run in the same branch of the if around that line.
bool LineLife::hasBranchRun(const ProgramLines::Line& here) const
{
    const ProgramLines& lines = m_index.lines();
    const auto& branch = static_cast<const ZBLIfExp&>(*lines.line(here.aroundIf).statement);
    const int from = here.isInElse ? branch.thenEnd() : here.aroundIf;
    const int to = here.isInElse ? branch.elseEnd() : branch.thenEnd();
    for (int line = from + 1; line < to; ++line)
        if (m_index.timesRun(line) > 0)
            return true;
    return false;
}

std::string LineLife::ifWaits(int line) const
{
    ProgramLines::Line here = m_index.lines().line(line);
    while (m_index.timesRun(here.aroundIf) == 0 && m_index.lines().line(here.aroundIf).aroundIf != 0)
        here = m_index.lines().line(here.aroundIf);
    if (m_index.timesRun(here.aroundIf) == 0 || hasBranchRun(here))
        return "This line has not run yet: its block has always ended before it came here.";
    return "This line has not run yet: the if in line " + std::to_string(here.aroundIf) +
           (here.isInElse ? " has always been true so far." : " has never been true so far.");
}

std::string LineLife::blockWaits(const Block& block) const
{
    if (block.classIndex < 0) {
        const auto& states = m_index.program()->tree.states();
        return "This " + upperCase(wordFor(block.part)) +
               " block has not happened yet: the game has not come into state " +
               states[static_cast<std::size_t>(block.stateIndex)].stateName();
    }
    const std::string& name = className(block);
    std::string begin = "This " + upperCase(wordFor(block.event)) + " block has not happened yet: ";
    switch (block.event) {
    case EventName::Normal:
        return begin + "there has been no " + name;
    case EventName::Collision:
        return begin + "no " + name + " has touched anything";
    case EventName::MapChange:
        return begin + "no " + name + " has come to another color of the map";
    case EventName::Create:
        return begin + "no " + name + " has been created";
    case EventName::Destroy:
        return begin + "no " + name + " has been destroyed";
    }
    return begin;
}
