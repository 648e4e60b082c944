// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/PlayInWindow.h"
#include "app/ZblOutput.h"
#include "app/ZblWords.h"
#include "games/GamePlace.h"
#include "language/ZBLProgramExp.h"
#include "platform/DiskFile.h"
#include "platform/Installation.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <dlfcn.h>
#include <new>
#include <span>
#include <string>

// zbl: checks, runs and plays games from the command line, and replays what was kept.

namespace
{

constexpr std::string_view help =
    "Usage: zbl check FILE\n"
    "       zbl run GAME [--frames N] [--trace[=frames,events,code]] [--keys FILE]\n"
    "                    [--show-map] [--dump] [--picture FILE.png] [--seed N]\n"
    "                    [--record FILE]\n"
    "       zbl play GAME\n"
    "       zbl replay FILE [--game GAME] [--until FRAME] [--trace[=frames,events,code]]\n"
    "                    [--dump] [--picture FILE.png] [--film FILE.gif] [--from FRAME]\n"
    "       zbl pins GAME\n"
    "\n"
    "check  reads the program text FILE and says what is wrong with it.\n"
    "run    plays the game in the folder GAME without a window.\n"
    "play   plays the game in the folder GAME in its window.\n"
    "replay plays the play that was kept in FILE again and compares the two.\n"
    "pins   says of each pinned play of the game in the folder GAME whether it still\n"
    "       goes the same.\n"
    "\n"
    "  --frames N            how many frames to play (300)\n"
    "  --trace[=LIST]        write the history of the run; LIST names what to add to it:\n"
    "                        frames, events, code\n"
    "  --keys FILE           keys to press: lines \"FRAME down CODE\" and \"FRAME up CODE\"\n"
    "  --show-map            draw the map over the background\n"
    "  --dump                write the variables and sprites after the last frame\n"
    "  --picture FILE.png    write the playfield as it stands after the last frame\n"
    "  --seed N              the seed of the random numbers (0)\n"
    "  --record FILE         keep the play in a file\n"
    "  --game GAME           the game of the play, if it is not the folder of its file\n"
    "  --until FRAME         the last frame to play\n"
    "  --film FILE.gif       write the last 300 frames as a film\n"
    "  --from FRAME          the frame with which the film begins\n"
    "\n"
    "Exit status: 0 all went well; 1 the program has a mistake, or a play goes another way;\n"
    "2 the game was stopped by an error (in replay and pins: one that the play did not have);\n"
    "3 a file could not be read or written, or the words of the call are off.\n";

int check(const std::string& file)
{
    auto bytes = readFileBytes(file, Installation::maximumFileSize);
    if (!bytes)
        return complain("cannot read " + file);
    const LineArray lines(withProductLineEnds(decodeText(std::move(*bytes))));
    PrintingReporter reporter(lines);
    ZBLProgramExp program;
    return finish(program.Parse(lines, reporter) ? Fine : ParseFailed);
}

/// Whether there is a screen to open a window on. Without one the toolkit would end the program.
bool hasDisplay()
{
    // What the toolkit itself looks at.
    return std::ranges::any_of(std::array{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"},
                               [](const char* name) {
                                   const char* const value = std::getenv(name);
                                   return value != nullptr && *value != '\0';
                               });
}

/// The part of zbl that has windows, or null where it is not installed.
PlayInWindow loadWindows()
{
    void* const library = dlopen("libzbl-window.so", RTLD_NOW); // found by the paths that zbl is linked with
    return library != nullptr ? reinterpret_cast<PlayInWindow>(dlsym(library, "zblPlayInWindow")) : nullptr;
}

int play(int argc, char** argv, const std::string& game)
{
    const GamePlace place = placeOf(game);
    const Installation installation(place.installation);
    if (!installation.isFile(place.gamesFolder + place.folder + "code.txt"))
        return complain("cannot read the program of the game in " + game);
    if (!hasDisplay())
        return complain("there is no display here; zbl run plays without one");
    const PlayInWindow playInWindow = loadWindows();
    if (playInWindow == nullptr)
        return complain("this zbl is installed without windows; zbl run plays without one");
    switch (playInWindow(&argc, argv, game.c_str())) {
    case Ending::Closed:
        return Fine;
    case Ending::Unreadable:
        return complain("cannot read the program of the game in " + game);
    case Ending::ParseError:
        return ParseFailed;
    case Ending::RuntimeError:
        return RunFailed;
    }
    return Fine;
}

int call(int argc, char** argv)
{
    const std::span<char*> words(argv, static_cast<std::size_t>(argc));
    const std::string command = argc > 1 ? words[1] : "";
    const auto asksForHelp = [](std::string_view word) { return word == "--help" || word == "-h"; };
    if (asksForHelp(command) || (argc > 2 && asksForHelp(words[2]))) {
        printLine(help.substr(0, help.size() - 1));
        return finish(Fine);
    }
    if (command == "check" && argc == 3)
        return check(words[2]);
    if (command == "run" && argc >= 3)
        return zblRun(words.subspan(2));
    if (command == "replay" && argc >= 3)
        return zblReplay(words.subspan(2));
    if (command == "pins" && argc == 3)
        return zblPins(words[2]);
    if (command == "play" && argc == 3)
        return play(argc, argv, words[2]);
    return complain(
        "call me as \"zbl check FILE\", \"zbl run GAME\" or \"zbl play GAME\" (zbl --help tells more)");
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return call(argc, argv);
    } catch (const std::bad_alloc&) { // what a run asks for in vain ends the run; this was for something else
        return complain("there is not enough memory");
    }
}
