#include "app/HeadlessPlayer.h"

#include "platform/NumberText.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <array>

bool parseKeys(std::string_view text, std::vector<KeyChange>& keys, int& badLine)
{
    badLine = 0;
    for (std::string_view line : splitLines(text)) {
        ++badLine;
        line = trimBlanks(line);
        if (line.empty() || line.front() == '#')
            continue;
        std::array<std::string_view, 3> words;
        for (std::string_view& word : words) {
            const auto end = std::min(line.find_first_of(" \t"), line.size());
            word = line.substr(0, end);
            line = trimBlanks(line.substr(end));
        }
        const auto frame = wholeNumber(words[0]);
        const auto code = wholeNumber(words[2]);
        if (!frame || !code || !line.empty() || (words[1] != "down" && words[1] != "up"))
            return false;
        keys.push_back({*frame, words[1] == "down", *code});
    }
    // What stands in the file first comes first within its frame.
    std::ranges::stable_sort(keys, {}, &KeyChange::frame);
    return true;
}

GamePlace placeOf(const std::filesystem::path& gameFolder)
{
    std::error_code error;
    std::filesystem::path folder = std::filesystem::canonical(gameFolder, error);
    if (error)
        folder = gameFolder;
    const std::filesystem::path games = folder.parent_path();
    if (lowerCase(games.filename().string()) == "games")
        return {games.parent_path(), games.filename().string() + "\\", folder.filename().string() + "\\"};
    return {folder, "", ""};
}

void writeMessage(const LineOutput& output, std::string_view mark, std::string_view message)
{
    for (std::size_t start = 0;;) {
        const std::size_t end = message.find(NewLine, start);
        output(std::string(mark).append(message.substr(start, end - start)));
        if (end == std::string_view::npos)
            return;
        start = end + NewLine.size();
    }
}

HeadlessPlayer::HeadlessPlayer(ZB& module, const Installation& installation, PictureReader& pictures,
                               LineOutput output)
    : m_output(std::move(output))
    , m_interpreter(module, installation, pictures, Ports{*this, *this, m_noCodeEditor, *this, *this, *this})
{
}

HeadlessPlayer::Result HeadlessPlayer::run(std::string_view text, const HeadlessOptions& options,
                                           const std::vector<KeyChange>& keys)
{
    m_options = options;
    m_parseFailed = false;
    m_interpreter.setTraceBoxes(options.boxes);
    m_interpreter.setSeed(options.seed);
    ZBContext& context = m_interpreter.context();
    context.setShowMap(options.showMap);

    m_interpreter.RunGame(text, 1);
    if (m_parseFailed)
        return Result::ParseError;
    auto key = keys.begin();
    for (std::int32_t frame = 1; frame <= options.frames && context.InterpreterRunning(); ++frame) {
        for (; key != keys.end() && key->frame <= frame; ++key) {
            if (key->frame < frame)
                continue; // frames count from 1
            if (key->down)
                context.KeyDown(key->code, 0);
            else
                context.KeyUp(key->code, 0);
        }
        m_interpreter.timerTick();
    }
    if (!context.InterpreterRunning())
        return Result::RuntimeError;
    if (options.dump) {
        m_output("Variables:");
        for (const std::string& line : context.DumpVariablesInto())
            m_output(line);
    }
    return Result::AllFrames;
}

void HeadlessPlayer::setButtons(RunButtons state)
{
    // Nobody is there who could press Play: a pause is over at once.
    if (state == RunButtons::Paused)
        m_interpreter.ResumeGame();
}

void HeadlessPlayer::addHistoryLine(std::string_view line)
{
    if (m_options.trace)
        m_output(line);
}

void HeadlessPlayer::show(std::string_view text)
{
    m_parseFailed = true;
    writeMessage(m_output, "? ", text);
}

void HeadlessPlayer::messageBox(std::string_view text)
{
    writeMessage(m_output, "! ", text);
}
