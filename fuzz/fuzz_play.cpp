// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "FuzzGame.h"

#include "platform/TextFile.h"
#include "recording/PlayCheck.h"
#include "recording/Replay.h"

#include <algorithm>

// A play file: what is understood is the same when it is written and read again. Small plays are played, in a
// game that need not be theirs, and every moment that a recording has of them can be sought.

namespace
{

constexpr std::int64_t mostFrames = 50;
constexpr std::size_t mostKeys = 1000;

constexpr std::string_view program =
    "program{\nclasses{\nball{\nnormal{\nif keyboard.left = \"true\" {\nmoveup me 1\n}if\n}normal\n}ball\n"
    "}classes\nstates{\nbegin{\ninitialize{\nset counter$a 0\ncreate ball 1 \"dot\" 0 0 0 0 0\n}initialize\n"
    "loop{\nchange counter$a 1\nif counter$a = 30 {\nchange counter$never 1\n}if\n}loop\n}begin\n}states\n"
    "}program\n";

class QuietReporter : public ParseReporter
{
    void parseError(const ParseFault& /*fault*/) override {}
    void beep() override {}
};

void play(const PlayFile& play)
{
    const FuzzGame& game = FuzzGame::instance();
    const Installation installation(game.folder());
    PictureFiles pictures;
    QuietReporter reporter;
    const auto start =
        startPlay(play, withProductLineEnds(std::string(program)), installation, "", pictures, reporter);
    if (!start)
        __builtin_trap();
    PlayCheck check(play, *start, pictures);
    Recording recording;
    check.record(recording);
    while (check.play(mostFrames)) {
    }
    static_cast<void>(check.verdict().sentences());
    Replay replay(recording, pictures);
    for (const Moment moment : {Moment{play.frames, 1}, Moment{recording.frames() / 2, 2}})
        if (!replay.seek(moment))
            __builtin_trap();
    // What is kept of it goes as it went.
    const auto again = keepPlay(recording, pictures, play.label);
    if (!again)
        __builtin_trap();
    PlayCheck secondCheck(*again, *start, pictures);
    while (secondCheck.play(mostFrames)) {
    }
    if (!secondCheck.verdict().allMet())
        __builtin_trap();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string fault;
    const auto kept = readPlay(textOf(data, size), fault);
    if (kept.has_value() != fault.empty())
        __builtin_trap();
    if (!kept)
        return 0;
    const std::string text = playText(*kept);
    const auto again = readPlay(text, fault);
    if (!again || *again != *kept || playText(*again) != text)
        __builtin_trap();
    if (kept->frames <= mostFrames && kept->keys.size() <= mostKeys)
        play(*kept);
    return 0;
}
