#include "FuzzGame.h"

#include "runtime/ProgramCode.h"

// A program text: read, listed and played for a few frames.

namespace
{

class Silent : public ParseReporter
{
public:
    void parseError(std::string_view /*report*/, int /*line*/) override {}
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
    if (program.Parse(lines, silent))
        static_cast<void>(program.Display());

    FuzzGame& game = FuzzGame::instance();
    game.play(text, 3);
    // Copies of a run go their own ways.
    ZBContext& context = game.player().interpreter().context();
    if (context.InterpreterRunning()) {
        const RunState saved = context.save();
        game.player().interpreter().timerTick();
        const auto first = context.DumpVariablesInto();
        context.restore(saved);
        game.player().interpreter().timerTick();
        if (context.DumpVariablesInto() != first)
            __builtin_trap();
    }
    return 0;
}
