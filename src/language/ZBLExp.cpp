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

/// A new, empty statement of the class that reads lines beginning with the word.
std::unique_ptr<ZBLStatement> makeStatement(const StatementWord& word)
{
    switch (word.type) {
    case StatementType::If:
        return std::make_unique<ZBLIfExp>();
    case StatementType::Mutate:
        return std::make_unique<ZBLMutateExp>(std::get<Verb>(word.what));
    case StatementType::SetState:
        return std::make_unique<ZBLSetStateExp>();
    case StatementType::Pause:
        return std::make_unique<ZBLDebugExp>();
    case StatementType::Action:
        return std::make_unique<ZBLMethodExp>(std::get<ActionForm>(word.what));
    case StatementType::Create:
        return std::make_unique<ZBLCreateExp>();
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
    ZBLStatement* read = m_statements.emplace_back(makeStatement(*known)).get();
    if (!read->Parse(input, line, Words(text, word.size())))
        return false;
    m_items.push_back({Item::Role::Statement, read});
    if (open.empty())
        ++m_statementCount;
    if (read->type() == ZBLStatement::Type::If) {
        auto* owner = static_cast<ZBLIfExp*>(read);
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
        m_items.push_back({Item::Role::Else, owner});
        open.push_back({owner, owner->elseEnd(), true});
    } else {
        m_items.push_back({Item::Role::EndIf, owner});
    }
    return true;
}

void ZBLExp::Display(std::string& listing, int indent) const
{
    int level = indent;
    for (const Item& item : m_items) {
        switch (item.role) {
        case Item::Role::Statement:
            displayLine(listing, level, item.statement->toString());
            level += item.statement->type() == ZBLStatement::Type::If ? 1 : 0;
            break;
        case Item::Role::Else:
            displayLine(listing, level - 1, "}else{");
            break;
        case Item::Role::EndIf:
            displayLine(listing, --level, "}if");
            break;
        }
    }
}

void displayLine(std::string& listing, int indent, std::string_view text)
{
    listing.append(static_cast<std::size_t>(indent) * 2, ' ');
    listing += text;
    listing += "\r\n";
}
