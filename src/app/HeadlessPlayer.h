#pragma once

#include "runtime/QuietPorts.h"
#include "runtime/ZBContext.h"
#include "runtime/ZBInterpreter.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// What a run without a window is to do.
struct HeadlessOptions {
    std::int32_t frames = 300;
    bool trace = false; ///< hand on the history lines
    TraceBoxes boxes;
    bool showMap = false;
    bool dump = false;
    bool wantsPicture = false; ///< without it, no frame is drawn
    std::uint64_t seed = 0;
};

/// A key that goes down or up just before a frame (1 for the first).
struct KeyChange {
    std::int32_t frame = 0;
    bool down = false;
    int code = 0;
};

/// Reads "FRAME down CODE" and "FRAME up CODE" lines; empty lines and lines that start with # are skipped.
/// False where a line is anything else; `badLine` is then its number.
bool parseKeys(std::string_view text, std::vector<KeyChange>& keys, int& badLine);

/// Where a game folder given on the command line lies: the installation around it, and the game in it.
struct GamePlace {
    std::filesystem::path installation;
    std::string gamesFolder; ///< "games\", or empty for a folder that lies in no installation
    std::string folder;      ///< with a trailing backslash, or empty
};
/// A folder "games/NAME" lies in the installation around it; any other folder stands for itself.
GamePlace placeOf(const std::filesystem::path& gameFolder);

using LineOutput = std::function<void(std::string_view line)>;

/// Writes the lines of a message, separated by CR LF, each with `mark` in front of it.
void writeMessage(const LineOutput& output, std::string_view mark, std::string_view message);

/// Plays a game without a window and without waiting, as fast as it goes. Every line of output goes to
/// `output`.
class HeadlessPlayer : private QuietScreen,
                       private QuietGameEditor,
                       private QuietSpy,
                       private ParseErrorPort,
                       private UserPort
{
public:
    HeadlessPlayer(ZB& module, const Installation& installation, PictureReader& pictures, LineOutput output);

    enum class Result { AllFrames = 0, ParseError = 1, RuntimeError = 2 };
    Result run(std::string_view text, const HeadlessOptions& options, const std::vector<KeyChange>& keys);

    ZBInterpreter& interpreter() { return m_interpreter; }
    const Surface& display() { return m_interpreter.context().surfaces().Display; }

private:
    bool wantsFrames() const override { return m_options.wantsPicture; }
    void setButtons(RunButtons state) override;
    void addHistoryLine(std::string_view line) override;
    // ParseErrorPort
    void close() override {}
    using QuietScreen::show;
    void show(std::string_view text) override;
    // UserPort
    void messageBox(std::string_view text) override;
    void beep() override {}
    void deliverMessages(Wait /*wait*/) override {}

    LineOutput m_output;
    HeadlessOptions m_options;
    bool m_parseFailed = false;
    QuietCodeEditor m_noCodeEditor;
    ZBInterpreter m_interpreter;
};
