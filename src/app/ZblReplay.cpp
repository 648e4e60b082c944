// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/ZblGame.h"
#include "app/ZblOutput.h"
#include "app/ZblWords.h"
#include "platform/DiskFile.h"
#include "platform/pictures/FilmFile.h"
#include "platform/pictures/PictureFiles.h"
#include "recording/PlayCheck.h"

#include <algorithm>
#include <filesystem>

// "zbl replay" and "zbl pins": plays that were kept, in their games as they are now.

namespace
{

constexpr std::int64_t usualFilm = 300; // frames: ten seconds

struct ReplayWords {
    std::string play;
    std::string game; ///< empty: the folder that the play lies in
    std::string pictureFile;
    std::string filmFile;
    std::optional<std::int64_t> from;
    std::optional<std::int64_t> until;
    bool trace = false;
    TraceBoxes boxes;
    bool dump = false;
};

/// Reads the words; a text that says what is off, empty where all is well.
std::string parseWords(ZblWords words, ReplayWords& call)
{
    for (std::string word; words.next(word);) {
        if (word == "--dump") {
            call.dump = true;
        } else if (word == "--trace") {
            call.trace = true;
        } else if (word.starts_with(traceList)) {
            call.trace = true;
            if (!parseBoxes(std::string_view(word).substr(traceList.size()), call.boxes))
                return badTraceList;
        } else if (word == "--until" || word == "--from") {
            auto& frame = word == "--from" ? call.from : call.until;
            if (!words.frames(frame.emplace()))
                return word + " takes the number of a frame";
        } else if (word == "--game") {
            if (!words.next(call.game))
                return "--game takes the folder of a game";
        } else if (word == "--picture" || word == "--film") {
            if (!words.next(word == "--film" ? call.filmFile : call.pictureFile))
                return word + " takes the name of a file";
        } else if (call.play.empty() && !word.starts_with("-")) {
            call.play = word;
        } else {
            return "I do not know the option " + word;
        }
    }
    if (call.from && call.filmFile.empty())
        return "--from says where a film begins; --film takes its name";
    return call.play.empty() ? "zbl replay takes the file of a play" : "";
}

std::optional<PlayStart> start(const PlayFile& play, const ZblGame& game, PictureReader& pictures)
{
    const LineArray lines(*game.text);
    PrintingReporter reporter(lines);
    return startPlay(play, *game.text, game.installation, game.path(), pictures, reporter);
}

/// The frames of a film, as they are played.
class Film
{
public:
    Film(const PlayFile& play, const ReplayWords& call)
        : m_isWanted(!call.filmFile.empty())
    {
        const std::int64_t until = std::min(call.until.value_or(play.frames), play.frames);
        m_from = call.from.value_or(std::max(until - usualFilm + 1, std::int64_t{1}));
    }

    void add(const PlayedRun& run)
    {
        if (m_isWanted && run.faults().empty() && run.state().tick >= m_from)
            m_film.add(run.picture());
    }
    /// False where there is nothing to be written, or no place for it.
    bool write(const std::string& file)
    {
        const std::string bytes = m_film.finish();
        return !bytes.empty() && writeOutput(file, bytes);
    }

private:
    bool m_isWanted;
    std::int64_t m_from = 1;
    FilmFile m_film;
};

void playWhole(PlayCheck& check, Film& film)
{
    for (bool goesOn = true; goesOn;) {
        const std::int64_t before = check.run().state().tick;
        goesOn = check.play(1);
        if (check.run().state().tick > before)
            film.add(check.run());
    }
}

void tell(PlayCheck& check, const ReplayWords& call)
{
    for (const RuntimeFault& fault : check.run().faults())
        writeMessage(printLine, "! ", ZBInterpreter::runtimeErrorText(fault));
    if (call.dump && check.run().faults().empty()) {
        printLine("Variables:");
        for (const std::string& line : check.run().state().dump())
            printLine(line);
    }
    const PlayVerdict& verdict = check.verdict();
    if (verdict.allMet())
        printLine("This play goes as it went when it was kept.");
    for (const std::string& sentence : verdict.sentences())
        writeMessage(printLine, "", sentence);
}

int statusOf(const PlayVerdict& verdict)
{
    if (verdict.allMet())
        return Fine;
    return verdict.otherMistake ? RunFailed : PlayDiffers;
}

int replay(const PlayFile& play, const ZblGame& game, const ReplayWords& call)
{
    PictureFiles pictures;
    const auto beginning = start(play, game, pictures);
    if (!beginning)
        return finish(ParseFailed);
    PlayCheck check(play, *beginning, pictures);
    if (call.until)
        check.setUntil(*call.until);
    if (call.trace)
        check.run().setHistory(printLine, call.boxes);
    if (!call.pictureFile.empty() || !call.filmFile.empty())
        check.run().setDraws();
    Film film(play, call);
    playWhole(check, film);
    tell(check, call);
    if (!call.pictureFile.empty() && !writePng(check.run().picture(), call.pictureFile))
        return complain("cannot write " + call.pictureFile);
    if (!call.filmFile.empty() && !film.write(call.filmFile))
        return complain("cannot write " + call.filmFile);
    return finish(statusOf(check.verdict()));
}

/// One line about a pinned play.
int tellPin(const std::string& file, const PlayFile& play, const ZblGame& game, PictureReader& pictures)
{
    const auto beginning = start(play, game, pictures);
    if (!beginning)
        return ParseFailed;
    PlayCheck check(play, *beginning, pictures);
    while (check.verdict().goesTheSame() && check.play(PlayFile::stretch)) {
    }
    const PlayVerdict& verdict = check.verdict();
    const std::string name = play.label.name.empty() ? file : file + " (" + play.label.name + ")";
    const std::string text = verdict.goesTheSame() ? "This play still goes the same" : verdict.difference();
    writeMessage(printLine, "", name + ": " + text + '.');
    if (verdict.goesTheSame())
        return Fine;
    return verdict.otherMistake ? RunFailed : PlayDiffers;
}

} // namespace

int zblReplay(std::span<char*> words)
{
    ReplayWords call;
    std::string fault = parseWords(ZblWords(words), call);
    if (!fault.empty())
        return complain(fault);
    const auto bytes = readFileBytes(call.play, Installation::maximumFileSize);
    if (!bytes)
        return complain("cannot read " + call.play);
    const auto play = readPlay(*bytes, fault);
    if (!play)
        return complain(call.play + ": " + fault);
    if (call.game.empty()) {
        const auto folder = std::filesystem::path(call.play).parent_path();
        call.game = folder.empty() ? "." : folder.string();
    }
    const ZblGame game(call.game);
    return game.text ? replay(*play, game, call) : complain(unreadable(call.game));
}

int zblPins(const std::string& gameFolder)
{
    const ZblGame game(gameFolder);
    if (!game.text)
        return complain(unreadable(gameFolder));
    const std::string path = game.path();
    const std::string_view folder = std::string_view(path).substr(0, path.empty() ? 0 : path.size() - 1);
    std::vector<std::string> files = game.installation.listFiles(folder, "*" + std::string(PlayFile::ending));
    std::ranges::sort(files);
    PictureFiles pictures;
    int status = Fine;
    for (const std::string& file : files) {
        const auto bytes = game.installation.readBytes(path + file, PlayFile::mostBytes);
        std::string fault = "This play cannot be read.";
        const auto play = bytes ? readPlay(*bytes, fault) : std::nullopt;
        if (!play)
            status = std::max(status, complain(fault.insert(0, file + ": ")));
        else if (play->label.isPinned)
            status = std::max(status, tellPin(file, *play, game, pictures));
    }
    return finish(status);
}
