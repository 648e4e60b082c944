// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/Vocabulary.h"

#include "language/ZBLProgramExp.h"
#include "platform/DiskFile.h"
#include "platform/TextFile.h"

#include <gtest/gtest.h>

namespace
{

class Silent : public ParseReporter
{
public:
    void parseError(const ParseFault& /*fault*/) override {}
    void beep() override {}
};

bool isAccepted(std::string_view statement)
{
    const LineArray lines("program{\r\nstates{\r\nbegin{\r\nloop{\r\n" + std::string(statement) +
                          "\r\n}loop\r\n}begin\r\n}states\r\n}program");
    Silent silent;
    ZBLProgramExp program;
    return program.Parse(lines, silent);
}

std::string_view sampleOf(OperandRole role)
{
    switch (role) {
    case OperandRole::Sprite:
        return "it";
    case OperandRole::Object:
        return "joystick";
    case OperandRole::Game:
        return "game";
    case OperandRole::Value:
        return "random(1,6)";
    case OperandRole::Variable:
        return "text$t";
    case OperandRole::Operator:
        return ">=";
    case OperandRole::StateName:
        return "elsewhere";
    }
    return {};
}

std::string documentation()
{
    return *readFileBytes(ZB_SOURCE_DIR "/docs/language.md", 1U << 20U);
}

} // namespace

TEST(Vocabulary, StatementsReadJustTheWordsThatTheirRowsName)
{
    int statements = 0;
    for (const KnownWord& word : vocabulary()) {
        const auto* statement = std::get_if<StatementWord>(&word.meaning);
        if (!statement)
            continue;
        ++statements;
        const bool isIf = statement->type == StatementType::If;
        const std::string brace = isIf ? " {\r\n}if" : "";
        std::string line(word.text);
        for (const OperandRole role : rolesOf(*statement)) {
            EXPECT_FALSE(isAccepted(line + brace)) << line;
            line.append(" ").append(sampleOf(role));
        }
        EXPECT_TRUE(isAccepted(line + brace)) << line;
        EXPECT_TRUE(isAccepted(line + " more" + brace)) << line;
    }
    EXPECT_EQ(statements, 30);
}

TEST(Vocabulary, StatementHelpKnowsUsageLinesByTheWord)
{
    struct Case {
        const char* word;
        const char* usage;
    };
    const Case cases[] = {
        {"MoveLeft", "MOVELEFT <object> <amount>"},
        {"  moveleft{", "MOVELEFT <object> <amount>"},
        {" if {", "IF <A> <op> <B> { ... }ELSE{ ... }IF"},
        {"destroyall", "DESTROYALL (no arguments)"},
        {"Setmusic ", "SETMUSIC game <music name>"},
        {"move{{", ""},
        {"move{ ", ""},
        {"\tmove", ""},
        {"{", ""},
        {"", ""},
        {"else", ""},
        {"normal", ""},
        {"undestroy", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(StatementHelp(c.word), c.usage) << c.word;
}

TEST(Vocabulary, TheLanguagePageNamesEveryWord)
{
    const std::string page = documentation();
    const auto names = [&](const std::string& text) {
        return page.find("`" + text + "`") != std::string::npos;
    };
    for (const KnownWord& word : vocabulary()) {
        const std::string text(word.text);
        const std::string block = upperCase(text) + "{";
        const auto* property = std::get_if<PropertyWord>(&word.meaning);
        if (const auto* statement = std::get_if<StatementWord>(&word.meaning))
            EXPECT_TRUE(names(statement->usage.empty() ? upperCase(text) + " <object>"
                                                       : std::string(statement->usage)))
                << text;
        else if (property)
            EXPECT_TRUE(names((property->owner == PropertyOwner::Sprite ? "me."
                               : property->owner == PropertyOwner::Game ? "game."
                                                                        : "keyboard.") +
                              text))
                << text;
        else if (std::holds_alternative<KeyWord>(word.meaning))
            EXPECT_TRUE(names("keyboard." + text)) << text;
        else if (std::holds_alternative<RandomWord>(word.meaning))
            EXPECT_TRUE(names("random(1,6)"));
        else
            EXPECT_TRUE(names(text) || page.find(block) != std::string::npos) << text;
    }
}
