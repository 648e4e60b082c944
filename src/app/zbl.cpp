// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "headless/HeadlessPlayer.h"

#include "app/GameModule.h"
#include "app/PlayInWindow.h"
#include "language/ZBLProgramExp.h"
#include "platform/DiskFile.h"
#include "platform/Installation.h"
#include "platform/TextFile.h"
#include "platform/pictures/PictureFiles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <new>
#include <span>
#include <string>
#include <vector>

// zbl: checks, runs and plays games from the command line.

namespace
{

enum ExitStatus { Fine = 0, ParseFailed = 1, RunFailed = 2, Unusable = 3 };

constexpr std::string_view help =
    "Usage: zbl check FILE\n"
    "       zbl run GAME [--frames N] [--trace[=frames,events,code]] [--keys FILE]\n"
    "                    [--show-map] [--dump] [--picture FILE.png] [--seed N]\n"
    "       zbl play GAME\n"
    "\n"
    "check  reads the program text FILE and says what is wrong with it.\n"
    "run    plays the game in the folder GAME without a window.\n"
    "play   plays the game in the folder GAME in its window.\n"
    "\n"
    "  --frames N            how many frames to play (300)\n"
    "  --trace[=LIST]        write the history of the run; LIST names what to add to it:\n"
    "                        frames, events, code\n"
    "  --keys FILE           keys to press: lines \"FRAME down CODE\" and \"FRAME up CODE\"\n"
    "  --show-map            draw the map over the background\n"
    "  --dump                write the variables and sprites after the last frame\n"
    "  --picture FILE.png    write the playfield as it stands after the last frame\n"
    "  --seed N              the seed of the random numbers (0)\n"
    "\n"
    "Exit status: 0 all went well; 1 the program has a mistake; 2 the game was stopped\n"
    "by an error; 3 a file could not be read or written, or the words of the call are off.\n";

int complain(const std::string& text)
{
    std::fflush(stdout);
    std::fprintf(stderr, "zbl: %s\n", text.c_str());
    return Unusable;
}

void printLine(std::string_view line)
{
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
}

/// Output that did not get through (a full disk, say) must not look like success.
int finish(int status)
{
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 ? status
                                                                : complain("the output could not be written");
}

class PrintingReporter : public ParseReporter
{
public:
    explicit PrintingReporter(const LineArray& lines)
        : m_lines(lines)
    {
    }
    void parseError(const ParseFault& fault) override
    {
        writeMessage(printLine, "? ", reportText(fault, m_lines));
    }
    void beep() override {}

private:
    const LineArray& m_lines;
};

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

template<typename Number> bool parseNumber(std::string_view word, Number& number)
{
    const auto result = std::from_chars(word.data(), word.data() + word.size(), number);
    return result.ec == std::errc() && result.ptr == word.data() + word.size();
}

bool parseBoxes(std::string_view list, TraceBoxes& boxes)
{
    for (;;) {
        const std::size_t comma = std::min(list.find(','), list.size());
        const std::string_view word = list.substr(0, comma);
        if (word == "frames")
            boxes.frames = true;
        else if (word == "events")
            boxes.events = true;
        else if (word == "code")
            boxes.code = true;
        else
            return false;
        if (comma == list.size())
            return true;
        list.remove_prefix(comma + 1);
    }
}

/// The words of a call behind "zbl run": the game's folder and the options, in any order.
struct RunWords {
    std::string game;
    HeadlessOptions options;
    std::string keysFile;
    std::string pictureFile;
};

/// Reads the words; a text that says what is off, empty where all is well.
std::string parseWords(std::span<char*> words, RunWords& call)
{
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string word = words[i];
        const auto value = [&](std::string& target) {
            if (i + 1 == words.size())
                return false;
            target = words[++i];
            return true;
        };
        std::string text;
        if (word == "--show-map") {
            call.options.showMap = true;
        } else if (word == "--dump") {
            call.options.dump = true;
        } else if (word == "--trace") {
            call.options.trace = true;
        } else if (word.starts_with("--trace=")) {
            call.options.trace = true;
            if (!parseBoxes(std::string_view(word).substr(8), call.options.boxes))
                return "--trace= takes frames, events and code, separated by commas";
        } else if (word == "--frames") {
            if (!value(text) || !parseNumber(text, call.options.frames) || call.options.frames < 0)
                return "--frames takes a whole number, 0 or more";
        } else if (word == "--seed") {
            std::int64_t negative = 0; // any 64 bits will do
            if (!value(text) || (!parseNumber(text, call.options.seed) && !parseNumber(text, negative)))
                return "--seed takes a whole number";
            if (negative < 0)
                call.options.seed = static_cast<std::uint64_t>(negative);
        } else if (word == "--keys") {
            if (!value(call.keysFile))
                return "--keys takes the name of a file";
        } else if (word == "--picture") {
            if (!value(call.pictureFile))
                return "--picture takes the name of a file";
            call.options.wantsPicture = true;
        } else if (call.game.empty() && !word.starts_with("-")) {
            call.game = word;
        } else {
            return "I do not know the option " + word;
        }
    }
    return call.game.empty() ? "zbl run takes the folder of a game" : "";
}

int run(std::span<char*> words)
{
    RunWords call;
    const std::string fault = parseWords(words, call);
    if (!fault.empty())
        return complain(fault);

    std::vector<KeyChange> keys;
    if (!call.keysFile.empty()) {
        auto bytes = readFileBytes(call.keysFile, Installation::maximumFileSize);
        int badLine = 0;
        if (!bytes)
            return complain("cannot read " + call.keysFile);
        if (!parseKeys(decodeText(std::move(*bytes)), keys, badLine))
            return complain("line " + std::to_string(badLine) + " of " + call.keysFile + " is no key line");
    }

    const GamePlace place = placeOf(call.game);
    const Installation installation(place.installation);
    auto text = installation.readText(place.gamesFolder + place.folder + "code.txt");
    if (!text)
        return complain("cannot read the program of the game in " + call.game);
    ZB module = moduleOf(installation, place);
    PictureFiles pictures;
    HeadlessPlayer player(module, installation, pictures, printLine);
    const auto result = player.run(withProductLineEnds(std::move(*text)), call.options, keys);
    if (result != HeadlessPlayer::Result::ParseError && call.options.wantsPicture &&
        !writePng(player.display(), call.pictureFile))
        return complain("cannot write " + call.pictureFile);
    return finish(static_cast<int>(result));
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
        return run(words.subspan(2));
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
