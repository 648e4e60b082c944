// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "FuzzGame.h"

#include "language/Faults.h"
#include "language/LineScanner.h"
#include "runtime/ProgramCode.h"

// A program text: read, listed, searched for faults, cut into tokens and played for a few frames.

namespace
{

class Silent : public ParseReporter
{
public:
    void parseError(const ParseFault& /*fault*/) override {}
    void beep() override {}
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // What the events of a frame may do is bounded; the length bounds the rest.
    constexpr std::size_t longest = 4096;
    if (size > longest)
        return -1;
    const std::string_view text = textOf(data, size);
    const LineArray lines(text);
    Silent silent;
    ZBLProgramExp program;
    const bool isFine = program.Parse(lines, silent);
    if (isFine)
        static_cast<void>(program.Display());
    if (findFaults(text).empty() != isFine)
        __builtin_trap();
    int depth = 0;
    for (const std::string_view line : splitLines(text))
        depth = scanLine(line, depth).depth;

    FuzzGame& game = FuzzGame::instance();
    game.play(text, 3);
    // Copies of a run go their own ways.
    ZBContext& context = game.player().interpreter().context();
    if (context.InterpreterRunning()) {
        const RunState saved = context.save();
        game.player().playFrame();
        const auto first = context.DumpVariablesInto();
        context.restore(saved);
        game.player().playFrame();
        if (context.DumpVariablesInto() != first)
            __builtin_trap();
    }
    return 0;
}
