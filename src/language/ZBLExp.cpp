#include "language/ZBLExp.h"

#include "language/StatementWords.h"
#include "language/ZBLIfExp.h"

bool ZBLExp::Parse(const ZBLReader& reader, int from, int to)
{
    /// A block of an if that is being read.
    struct OpenBlock {
        ZBLIfExp* owner;
        int end; ///< the line that closes it
        bool isElse;
    };
    std::vector<OpenBlock> open;
    m_firstLine = from;
    for (int line = from; line <= to; ++line) {
        if (!open.empty() && line == open.back().end) {
            ZBLIfExp* owner = open.back().owner;
            const bool isElse = open.back().isElse;
            open.pop_back();
            if (!isElse && !owner->ParseElse(reader))
                return false;
            if (!isElse && owner->hasElse()) {
                m_items.push_back({Item::Role::Else, owner});
                open.push_back({owner, owner->elseEnd(), true});
            } else {
                m_items.push_back({Item::Role::EndIf, owner});
            }
            continue;
        }
        const std::string_view text = reader.lines[line];
        if (text.empty())
            continue;
        const std::string_view word = text.substr(0, text.find(' '));
        auto statement = makeStatement(word);
        if (!statement)
            return reader.fail(
                "This instruction begins with \"" + std::string(word) +
                    "\", which is a word I do not understand here.  Maybe you mistyped something, or it "
                    "is in the wrong place.",
                line);
        ZBLStatement* read = statement.get();
        m_statements.push_back(std::move(statement));
        if (!read->Parse(reader, line))
            return false;
        m_items.push_back({Item::Role::Statement, read});
        if (open.empty())
            ++m_statementCount;
        if (read->type() == ZBLStatement::Type::If) {
            auto* owner = static_cast<ZBLIfExp*>(read);
            open.push_back({owner, owner->thenEnd(), false});
        }
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
