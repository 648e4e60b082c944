// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/ZBLExp.h"

#include "language/ZBLCreateExp.h"
#include "language/ZBLDebugExp.h"
#include "language/ZBLIfExp.h"
#include "language/ZBLMethodExp.h"
#include "language/ZBLMutateExp.h"
#include "language/ZBLSetStateExp.h"

namespace
{

class Mark final : public SequenceItem
{
public:
    using SequenceItem::SequenceItem;
};

/// A new statement of that class, read from its line; null where that has failed.
template<typename Statement, typename... Arguments>
ZBLStatement* read(const ParseInput& input, int line, Words words, Arguments... arguments)
{
    auto* statement = input.arena.make<Statement>(arguments...);
    return statement->Parse(input, line, words) ? statement : nullptr;
}

/// Reads a line that begins with the word; null where that has failed.
ZBLStatement* readStatement(const ParseInput& input, const StatementWord& word, int line, Words words)
{
    switch (word.type) {
    case StatementType::If:
        return read<ZBLIfExp>(input, line, words);
    case StatementType::Mutate:
        return read<ZBLMutateExp>(input, line, words, *std::get_if<Verb>(&word.what));
    case StatementType::SetState:
        return read<ZBLSetStateExp>(input, line, words);
    case StatementType::Pause:
        return read<ZBLDebugExp>(input, line, words);
    case StatementType::Action:
        return read<ZBLMethodExp>(input, line, words, *std::get_if<ActionForm>(&word.what));
    case StatementType::Create:
        return read<ZBLCreateExp>(input, line, words);
    }
    return nullptr;
}

} // namespace

bool ZBLExp::Parse(const ParseInput& input, int from, int to)
{
    std::vector<OpenBlock> open;
    m_firstLine = from;
    for (int line = from; line <= to; ++line) {
        if (!open.empty() && line == open.back().end) {
            if (!closeBlock(input, line, open))
                return false;
            continue;
        }
        if (input.lines[line].empty() || parseStatement(input, line, open))
            continue;
        if (!input.goesOn)
            return false;
        const BlockEnd block = input.blockEnd(line);
        if (block.line > 0)
            open.push_back({nullptr, block.line, false});
    }
    return true;
}

bool ZBLExp::parseStatement(const ParseInput& input, int line, std::vector<OpenBlock>& open)
{
    const std::string_view text = input.lines[line];
    const std::string_view word = text.substr(0, text.find(' '));
    const auto* known = findWord<StatementWord>(word);
    if (!known)
        return input.fail("This instruction begins with \"" + std::string(word) +
                              "\", which is a word I do not understand here.  Maybe you mistyped something, "
                              "or it is in the wrong place.",
                          line, word);
    ZBLStatement* statement = readStatement(input, *known, line, Words(text, word.size()));
    if (!statement)
        return false;
    add(*statement);
    if (open.empty())
        ++m_statementCount;
    if (statement->type() == ZBLStatement::Type::If) {
        auto* owner = static_cast<ZBLIfExp*>(statement);
        open.push_back({owner, owner->thenEnd(), false});
    }
    return true;
}

/// Line `line` closes the innermost open block and may open an else block.
bool ZBLExp::closeBlock(const ParseInput& input, int line, std::vector<OpenBlock>& open)
{
    const auto [owner, end, isElse] = open.back();
    open.pop_back();
    if (!owner) {
        const BlockEnd block = input.blockEnd(line);
        if (block.line > 0)
            open.push_back({nullptr, block.line, true});
        return true;
    }
    if (!isElse && !owner->ParseElse(input) && !input.goesOn)
        return false;
    if (!isElse && owner->hasElse()) {
        add(*input.arena.make<Mark>(SequenceItem::Role::Else));
        open.push_back({owner, owner->elseEnd(), true});
    } else {
        add(*input.arena.make<Mark>(SequenceItem::Role::EndIf));
    }
    return true;
}

void ZBLExp::add(SequenceItem& item)
{
    if (m_last)
        m_last->append(item);
    else
        m_first = &item;
    m_last = &item;
}

void ZBLExp::Display(std::string& listing, int indent) const
{
    int level = indent;
    for (const SequenceItem* item = m_first; item; item = item->next()) {
        switch (item->role()) {
        case SequenceItem::Role::Statement: {
            const auto& statement = static_cast<const ZBLStatement&>(*item);
            displayLine(listing, level, statement.toString());
            level += statement.type() == ZBLStatement::Type::If ? 1 : 0;
            break;
        }
        case SequenceItem::Role::Else:
            displayLine(listing, level - 1, "}else{");
            break;
        case SequenceItem::Role::EndIf:
            displayLine(listing, --level, "}if");
            break;
        }
    }
}

std::string ZBLStatement::toString() const
{
    switch (m_type) {
    case Type::If:
        return static_cast<const ZBLIfExp*>(this)->toString();
    case Type::Mutate:
        return static_cast<const ZBLMutateExp*>(this)->toString();
    case Type::SetState:
        return static_cast<const ZBLSetStateExp*>(this)->toString();
    case Type::Pause:
        return "pause";
    case Type::Action:
        return static_cast<const ZBLMethodExp*>(this)->toString();
    case Type::Create:
        return static_cast<const ZBLCreateExp*>(this)->toString();
    }
    return {};
}

void displayLine(std::string& listing, int indent, std::string_view text)
{
    listing.append(static_cast<std::size_t>(indent) * 2, ' ');
    listing += text;
    listing += "\r\n";
}
