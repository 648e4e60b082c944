// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "headless/HeadlessPlayer.h"
#include "platform/FileBundle.h"
#include "platform/NumberText.h"
#include "platform/PictureReader.h"
#include "platform/TextFile.h"
#include "platform/pictures/BmpReader.h"
#include "recording/Recording.h"
#include "recording/Replay.h"
#include "recording/StateSum.h"
#include "support/RunSums.h"

#include <array>
#include <cstdio>
#include <string>
#include <vector>

// A player without a window and without a file system, for every machine that the core is made for: reads a
// bundle from its standard input and plays what that says.
//     file SIZE PATH                                      and then the bytes of the file
//     play NAME FOLDER PROGRAM KEYS FRAMES SEED OPTIONS   paths; KEYS may be "-"; OPTIONS: letters or "-"
// Writes all lines of each play, and its sums; "differs" where a moment of the recorded run does not come
// back.

namespace
{

/// Pictures come as bitmaps, whatever their names say.
class BundlePictures : public PictureReader
{
public:
    std::optional<Surface> decode(std::string_view bytes) override { return readBmp(bytes); }
};

/// Records a run, with the sum of its state after each frame.
class RecordedSums : public RunListener
{
public:
    void runBegins(ZBContext& context, std::uint64_t seed) override
    {
        m_context = &context;
        m_recording.runBegins(context, seed);
        m_sums = {stateSum(context.state())};
    }
    void frameEnds() override
    {
        m_recording.frameEnds();
        m_sums.resize(static_cast<std::size_t>(m_recording.frames()) + 1);
        m_sums.back() = stateSum(m_context->state());
    }
    void runBreaks() override { m_recording.runBreaks(); }
    void runEnds() override { m_recording.runEnds(); }

    /// Whether some moments, to and fro, come back as they were.
    bool comesBack(PictureReader& pictures) const
    {
        if (m_recording.isEmpty())
            return true;
        Replay replay(m_recording, pictures);
        constexpr std::size_t moments = 12;
        for (std::size_t i = 0; i < moments; ++i) {
            const std::size_t frame = i * 7919 % m_sums.size();
            if (!replay.seek({static_cast<std::int64_t>(frame), 0}) ||
                stateSum(replay.state()) != m_sums[frame])
                return false;
        }
        return true;
    }

private:
    ZBContext* m_context = nullptr;
    Recording m_recording;
    std::vector<std::uint64_t> m_sums; ///< by frame
};

void printLine(std::string_view line)
{
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
}

std::string readAll(std::FILE* file)
{
    std::string bytes;
    std::array<char, 65536> part{};
    for (std::size_t count = part.size(); count == part.size();) {
        count = std::fread(part.data(), 1, part.size(), file);
        bytes.append(part.data(), count);
    }
    return bytes;
}

std::string_view takeUntil(std::string_view& text, char end)
{
    const std::size_t length = std::min(text.find(end), text.size());
    const std::string_view taken = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return taken;
}

HeadlessOptions optionsOf(std::string_view letters)
{
    const auto has = [&](char letter) { return letters.find(letter) != std::string_view::npos; };
    HeadlessOptions options;
    options.trace = has('t');
    options.boxes = {.frames = has('f'), .events = has('e'), .code = has('c')};
    options.showMap = has('m');
    options.dump = has('d');
    options.wantsPicture = has('p');
    return options;
}

void play(const FileBundle& bundle, std::string_view call)
{
    const auto word = [&call] { return takeUntil(call, ' '); };
    const std::string_view name = word();
    const std::string_view folder = word();
    const std::string_view program = word();
    const std::string_view keysFile = word();
    const auto frames = wholeNumber(word());
    const auto seed = wholeNumber(word());
    HeadlessOptions options = optionsOf(word());
    options.frames = frames.value_or(0);
    options.seed = static_cast<std::uint64_t>(seed.value_or(0));

    ZB module;
    module.GamesFolder = "";
    module.CurrentGame.folder = folder;
    std::vector<KeyChange> keys;
    int badLine = 0;
    parseKeys(bundle.readText(keysFile).value_or(""), keys, badLine);
    BundlePictures pictures;
    HeadlessPlayer player(module, bundle, pictures, printLine);
    RecordedSums recorded;
    player.interpreter().setListener(&recorded);
    const std::string sums = playForSums(player, withProductLineEnds(bundle.readText(program).value_or("")),
                                         options, keys, printLine);
    player.interpreter().setListener(nullptr);
    printLine("== " + std::string(name) + " " + sums);
    if (!recorded.comesBack(pictures))
        printLine("differs");
}

} // namespace

int main()
{
    const std::string input = readAll(stdin);
    std::string_view rest = input;
    FileBundle bundle;
    while (!rest.empty()) {
        std::string_view line = takeUntil(rest, '\n');
        const std::string_view what = takeUntil(line, ' ');
        if (what == "play") {
            play(bundle, line);
            continue;
        }
        const auto size = static_cast<std::size_t>(wholeNumber(takeUntil(line, ' ')).value_or(0));
        if (what != "file" || size > rest.size() || !bundle.add(line, std::string(rest.substr(0, size))))
            return 1;
        rest.remove_prefix(size);
    }
    return std::fflush(stdout) == 0 ? 0 : 1;
}
