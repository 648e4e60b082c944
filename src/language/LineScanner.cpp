// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/LineScanner.h"

#include "language/OperandShape.h"
#include "language/Vocabulary.h"
#include "language/ZBParse.h"
#include "platform/NumberText.h"
#include "platform/TextFile.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <optional>
#include <string>

namespace
{

constexpr int namedDepth = 2; ///< in front of the opening line of a class or state
constexpr int codeDepth = 3;  ///< in front of that of an event or part

/// What the name of one of the language's own blocks is.
struct BlockName {
    TokenKind kind;
    int depth;       ///< of what stands around the block
    bool hasFreeEnd; ///< its closing line may carry any name
};

std::optional<BlockName> blockNamed(std::string_view word)
{
    if (findWord<EventName>(word))
        return BlockName{TokenKind::Event, codeDepth, false};
    if (findWord<StatePart>(word))
        return BlockName{TokenKind::StatePart, codeDepth, true};
    const auto* block = findWord<Block>(word);
    if (!block || *block == Block::Else)
        return std::nullopt;
    return BlockName{TokenKind::Block, *block == Block::Program ? 0 : 1, *block == Block::States};
}

bool isElse(std::string_view word)
{
    const auto* block = findWord<Block>(word);
    return block && *block == Block::Else;
}

/// Takes one line, already in lower case, apart.
class Scanner
{
public:
    Scanner(std::string_view line, int depth)
        : m_line(line)
    {
        m_scanned.depth = depth;
        const std::size_t comment = std::min(line.find(';'), line.size());
        m_code = trimSpaces(line.substr(0, comment));
        m_opens = m_code.ends_with('{');
        m_closes = m_code.starts_with('}');
        scanCode();
        if (comment < line.size())
            add(TokenKind::Comment, line.substr(comment), Ignored::Comment);
    }
    ScannedLine result() && { return std::move(m_scanned); }

private:
    void add(TokenKind kind, std::string_view piece, Ignored ignored = Ignored::No);
    std::string_view nextPiece();
    void scanCode();
    void scanClosing();
    bool scanOpening();
    void scanStatement();
    void scanOperand(std::string_view word, OperandRole role);
    void scanValue(std::string_view word);
    void scanRandom(std::string_view word, const OperandShape& shape);

    std::string_view m_line;
    std::string_view m_code; ///< without the comment and the spaces around
    std::size_t m_position = 0;
    bool m_opens = false;
    bool m_closes = false;
    ScannedLine m_scanned;
};

void Scanner::add(TokenKind kind, std::string_view piece, Ignored ignored)
{
    if (!piece.empty())
        m_scanned.tokens.push_back(
            {kind, ignored, static_cast<std::size_t>(piece.data() - m_line.data()), piece.size()});
}

/// The next word of the code. Braces in front of it become pieces of their own.
std::string_view Scanner::nextPiece()
{
    const std::size_t start = m_position;
    const std::string_view word = nextWord(m_code, m_position);
    for (std::size_t at = start; at < m_position - word.size(); ++at) {
        if (m_code[at] != '{' && m_code[at] != '}')
            continue;
        const bool counts = (at == 0 && m_closes) || (at == m_code.size() - 1 && m_opens);
        add(TokenKind::Brace, m_code.substr(at, 1), counts ? Ignored::No : Ignored::InnerBrace);
    }
    return word;
}

void Scanner::scanCode()
{
    if (m_code.empty())
        return;
    if (m_closes) {
        scanClosing();
    } else if (!m_opens || !scanOpening()) {
        const bool isOutside = m_scanned.depth < statementDepth && !m_opens;
        scanStatement();
        for (Token& token : m_scanned.tokens)
            if (isOutside)
                token.ignored = Ignored::OutsideOfBlocks;
        m_scanned.depth += m_opens ? 1 : 0;
    }
}

void Scanner::scanClosing()
{
    const int depth = std::max(m_scanned.depth - 1, 0);
    const std::string_view name = nextPiece();
    const auto known = depth == namedDepth ? std::nullopt : blockNamed(name);
    const auto* statement = findWord<StatementWord>(name);
    const bool isFree = depth >= statementDepth || (known && known->hasFreeEnd);
    if (isElse(name))
        add(TokenKind::Block, name);
    else
        add(known                                               ? known->kind
            : statement && statement->type == StatementType::If ? TokenKind::Statement
                                                                : TokenKind::Name,
            name, isFree ? Ignored::FreeName : Ignored::No);
    for (std::string_view word = nextPiece(); !word.empty(); word = nextPiece())
        add(TokenKind::Unknown, word, Ignored::BehindBlockName);
    m_scanned.depth = depth + (m_opens ? 1 : 0);
}

/// The opening line of a block other than those of ifs; false for any other line.
bool Scanner::scanOpening()
{
    std::size_t position = 0;
    const std::string_view name = nextWord(m_code, position);
    const auto known = blockNamed(name);
    const bool isOwn = known && (m_scanned.depth != namedDepth || known->depth < namedDepth);
    const bool isCode = m_scanned.depth >= statementDepth;
    if (isCode && (!isOwn || findWord<StatementWord>(m_code.substr(0, m_code.find(' ')))))
        return false; // "create {" is no event there
    add(isOwn ? known->kind : TokenKind::Name, nextPiece());
    // Only an event is known by its first word; other blocks by all of the line.
    const Ignored ignored = isOwn && known->kind == TokenKind::Event ? Ignored::BehindBlockName : Ignored::No;
    for (std::string_view word = nextPiece(); !word.empty(); word = nextPiece())
        add(TokenKind::Unknown, word, ignored);
    m_scanned.depth = (isOwn ? known->depth : m_scanned.depth) + 1;
    return true;
}

void Scanner::scanStatement()
{
    const std::string_view first = m_code.substr(0, m_code.find(' '));
    const auto* statement = findWord<StatementWord>(first);
    add(statement ? TokenKind::Statement : TokenKind::Unknown, first);
    m_position = first.size();
    const auto roles = statement ? rolesOf(*statement) : std::span<const OperandRole>();
    std::size_t count = 0;
    Ignored ignored = Ignored::ExtraWord;
    for (std::string_view word = nextPiece(); !word.empty(); word = nextPiece(), ++count) {
        if (!statement || count < roles.size()) {
            scanOperand(word, statement ? roles[count] : OperandRole::Value);
            continue;
        }
        const bool isJoined = count == roles.size() && (word == "and" || word == "or");
        if (isJoined && statement->type == StatementType::If)
            ignored = Ignored::SecondTest;
        add(TokenKind::Unknown, word, ignored);
    }
}

void Scanner::scanOperand(std::string_view word, OperandRole role)
{
    switch (role) {
    case OperandRole::Sprite:
    case OperandRole::Object:
    case OperandRole::Game:
        if (findWord<ObjectWord>(word))
            return add(TokenKind::Object, word);
        break;
    case OperandRole::Operator:
        return add(findWord<TestOperator>(word) ? TokenKind::Operator : TokenKind::Unknown, word);
    case OperandRole::StateName:
        return add(TokenKind::Name, word);
    case OperandRole::Value:
    case OperandRole::Variable:
        break;
    }
    scanValue(word);
}

void Scanner::scanValue(std::string_view word)
{
    const OperandShape shape(word);
    switch (shape.kind) {
    case OperandKind::None:
        break;
    case OperandKind::Variable:
        add(TokenKind::Variable, word);
        break;
    case OperandKind::Property:
        add(TokenKind::Object, shape.first);
        add(TokenKind::Punctuation, word.substr(shape.first.size(), 1));
        add(TokenKind::Property, shape.second);
        break;
    case OperandKind::Random:
        scanRandom(word, shape);
        break;
    case OperandKind::Literal:
        if (shape.isText()) {
            add(TokenKind::Text, word);
        } else {
            const std::size_t length = leadingNumberLength(word);
            add(TokenKind::Number, word.substr(0, length));
            add(TokenKind::Unknown, word.substr(length), Ignored::BehindNumber);
        }
        break;
    case OperandKind::ClassName:
        add(TokenKind::Name, word);
        break;
    }
}

void Scanner::scanRandom(std::string_view word, const OperandShape& shape)
{
    const std::size_t open = word.find('(');
    add(TokenKind::Random, word.substr(0, open));
    add(TokenKind::Punctuation, word.substr(open, 1));
    if (!shape.isComplete) {
        add(TokenKind::Unknown, word.substr(open + 1));
        return;
    }
    const std::size_t comma = open + 1 + shape.first.size();
    const std::size_t close = comma + 1 + shape.second.size();
    scanValue(shape.first);
    add(TokenKind::Punctuation, word.substr(comma, 1));
    scanValue(shape.second);
    add(TokenKind::Punctuation, word.substr(close, 1));
    add(TokenKind::Unknown, word.substr(close + 1), Ignored::BehindRandom);
}

/// The number of bytes that the first characters of `written` take, as many as `lower` has.
std::size_t bytesLike(std::string_view lower, std::string_view written)
{
    std::size_t bytes = 0;
    for (std::size_t count = characterCount(lower); count > 0; --count)
        bytes += firstCharacterLength(written.substr(bytes));
    return bytes;
}

/// Puts the positions of the tokens of `lower` where they are in `written`, whose letters may be of other
/// lengths.
void moveTokens(std::vector<Token>& tokens, std::string_view lower, std::string_view written)
{
    std::size_t lowerAt = 0;
    std::size_t writtenAt = 0;
    const auto moveTo = [&](std::size_t position) {
        writtenAt += bytesLike(lower.substr(lowerAt, position - lowerAt), written.substr(writtenAt));
        lowerAt = position;
        return writtenAt;
    };
    for (Token& token : tokens) {
        const std::size_t end = token.from + token.length;
        token.from = moveTo(token.from);
        token.length = moveTo(end) - token.from;
    }
}

} // namespace

ScannedLine scanLine(std::string_view line, int depth)
{
    const std::string lower = lowerCase(line);
    ScannedLine scanned = Scanner(lower, depth).result();
    if (std::ranges::any_of(line, [](char c) { return static_cast<unsigned char>(c) >= 0x80; }))
        moveTokens(scanned.tokens, lower, line);
    return scanned;
}
