// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/ZblGame.h"
#include "app/ZblOutput.h"
#include "app/ZblWords.h"
#include "platform/DiskFile.h"
#include "platform/pictures/PictureFiles.h"
#include "recording/PlayCheck.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <vector>

// "zbl run": a game without its window.

namespace
{

/// The words of the call: the game's folder and the options, in any order.
struct RunWords {
    std::string game;
    HeadlessOptions options;
    std::string keysFile;
    std::string pictureFile;
    std::string recordFile;
};

bool takeSeed(ZblWords& words, std::uint64_t& seed)
{
    std::string text;
    std::int64_t negative = 0; // any 64 bits will do
    if (!words.next(text) || (!ZblWords::parse(text, seed) && !ZblWords::parse(text, negative)))
        return false;
    if (negative < 0)
        seed = static_cast<std::uint64_t>(negative);
    return true;
}

/// Reads the words; a text that says what is off, empty where all is well.
std::string parseWords(ZblWords words, RunWords& call)
{
    for (std::string word; words.next(word);) {
        if (word == "--show-map") {
            call.options.showMap = true;
        } else if (word == "--dump") {
            call.options.dump = true;
        } else if (word == "--trace") {
            call.options.trace = true;
        } else if (word.starts_with(traceList)) {
            call.options.trace = true;
            if (!parseBoxes(std::string_view(word).substr(traceList.size()), call.options.boxes))
                return badTraceList;
        } else if (word == "--frames") {
            if (!words.frames(call.options.frames))
                return "--frames takes a whole number, 0 or more";
        } else if (word == "--seed") {
            if (!takeSeed(words, call.options.seed))
                return "--seed takes a whole number";
        } else if (word == "--keys") {
            if (!words.next(call.keysFile))
                return "--keys takes the name of a file";
        } else if (word == "--record") {
            if (!words.next(call.recordFile))
                return "--record takes the name of a file";
        } else if (word == "--picture") {
            if (!words.next(call.pictureFile))
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

/// Day and time, as people here write them.
std::string now()
{
    const std::time_t time = std::time(nullptr);
    std::tm parts{};
    std::array<char, 32> text{};
    if (::localtime_r(&time, &parts) == nullptr)
        return {};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts)};
}

int writeRecord(const Recording& recording, PictureReader& pictures, const std::string& title,
                const std::string& file)
{
    const auto play =
        keepPlay(recording, pictures, {.version = ZB_VERSION, .title = title, .kept = now(), .name = {}});
    if (!play)
        return complain("this run is too long to be kept");
    return writeOutput(file, playText(*play)) ? Fine : complain("cannot write " + file);
}

} // namespace

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

int zblRun(std::span<char*> words)
{
    RunWords call;
    const std::string fault = parseWords(ZblWords(words), call);
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

    ZblGame game(call.game);
    if (!game.text)
        return complain(unreadable(call.game));
    ZB module = moduleOf(game.installation, game.place);
    PictureFiles pictures;
    Recording recording;
    HeadlessPlayer player(module, game.installation, pictures, printLine);
    if (!call.recordFile.empty())
        player.interpreter().setListener(&recording);
    const auto result = player.run(std::move(*game.text), call.options, keys);
    player.interpreter().setListener(nullptr);
    if (result == HeadlessPlayer::Result::ParseError)
        return finish(ParseFailed);
    recording.runEnds();
    if (call.options.wantsPicture && !writePng(player.display(), call.pictureFile))
        return complain("cannot write " + call.pictureFile);
    if (!recording.isEmpty() &&
        writeRecord(recording, pictures, module.CurrentGame.title, call.recordFile) != Fine)
        return Unusable;
    return finish(static_cast<int>(result));
}
