#pragma once

#include "language/ZBParse.h"
#include "runtime/RunState.h"
#include "runtime/ZBInterpreter.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class ZBLCreateExp;
class ZBLDebugExp;
class ZBLMethodExp;
class ZBLMutateExp;

/// The pictures of the game window.
struct GameSurfaces {
    static constexpr int graphicCount = 48;

    Surface Display;
    Surface Background; ///< as Display at the start of a run; the run's own copy is what frames are made from
    Surface temppic;
    std::array<Surface, graphicCount> Graphic;
};

/// The running game: owns the parsed program, the variables, the sprites, the event queue, the keyboard, the
/// map and the graphics, and runs the game frame by frame. Operations that fail have told the user and return
/// false.
class ZBContext final : private ParseReporter
{
public:
    explicit ZBContext(ZBInterpreter& interpreter);

    // Run control.
    /// Forgets the program and the run. Sprites and state stay as they are.
    void Reset();
    /// Reads a program text (lines separated by CR LF). False where it has a fault, which has then been
    /// shown.
    bool Parse(std::string_view text);
    /// Begins a run of the program that was read.
    void Start();
    /// Runs one frame.
    void Quantum();
    void DrawFrame();
    void HaltInterpreter() { m_run.haltRequested = true; }
    bool InterpreterRunning() const { return m_run.running; }

    const std::string& getState() const { return m_run.state; }
    std::string_view getSubState() const { return m_run.inLoop ? "loop" : "initialize"; }
    std::int32_t frameNumber() const { return m_run.frameNumber; }
    std::string_view getLine(int number) const;
    /// The game's folder with a trailing backslash.
    const std::string& path() const { return m_path; }
    /// One line per variable in the order of their first setting, then one per sprite.
    std::vector<std::string> DumpVariablesInto() const;

    void KeyDown(int keyCode, int shift) { m_run.keyboard.KeyDown(keyCode, shift); }
    void KeyUp(int keyCode, int shift) { m_run.keyboard.KeyUp(keyCode, shift); }

    /// The Show Map box.
    void setShowMap(bool on)
    {
        m_showMap = on;
        m_sceneChanged = true;
    }
    const GameSurfaces& surfaces() const { return m_surfaces; }

    /// A copy of everything that the run consists of, and the way back. Only between frames.
    RunState save() const;
    void restore(const RunState& state);

private:
    // ParseReporter.
    void parseError(std::string_view report, int line) override;
    void beep() override;

    bool fail(std::string_view message, int line);
    std::int32_t uniqueID() { return ++m_run.lastID; }
    void enterState(std::string_view name);
    void countFrame();
    void drawIfChanged();
    const SequenceCode* getSubStateExp();

    // Variables; slots as the program counts them.
    void firstSet(ValueKind kind, std::int32_t slot);
    void forgetVariables();
    bool getVariable(const ZBLVarExp& variable, ZBLValueExp& value) const;
    bool setVariable(const ZBLVarExp& variable, const ZBLValueExp& value);

    // Running code (Interpret.cpp).
    bool Interpret(const SequenceCode& code);
    void changeFailed(const Step& step);
    bool evaluate(const ZBLSimpleExp& operand, ZBLValueExp& value, int line);
    bool evaluateRandom(const ZBLSimpleExp& operand, ZBLValueExp& value, int line);
    bool getProperty(const ZBLSimpleExp& operand, ZBLValueExp& value, int line);
    bool compare(const ZBLValueExp& left, const ZBLValueExp& right, ZBLIfExp::Operator op, int line,
                 bool& result);
    bool runIf(const ZBLIfExp& statement, bool& result);
    bool runMutate(const ZBLMutateExp& statement);
    void runPause(const ZBLDebugExp& statement, int depth);
    std::string valueText(const ZBLValueExp& value);
    std::string basicText(const ZBLValueExp& value);

    // Statements on sprites and on the game (Actions.cpp).
    bool runAction(const ZBLMethodExp& statement);
    bool runOnSprite(const ZBLMethodExp& statement);
    bool runWithValue(const ZBLMethodExp& statement);
    bool runWithPlace(const ZBLMethodExp& statement);
    bool runRebound(const ZBLMethodExp& statement);
    bool runOnGame(const ZBLMethodExp& statement);
    bool failNoCounter(const ZBLMethodExp& statement);
    ZBSprite* resolve(const ZBLObjectExp& object, int line);
    bool afterMove(ZBSprite& sprite, int line);
    bool afterTurn(const ZBSprite& sprite, int line);
    bool runCreate(const ZBLCreateExp& statement);
    bool createSprite(const ZBSprite& wanted, std::string_view graphicName);
    bool setBackground(const ZBLValueExp& name, int line);
    bool setMap(const ZBLValueExp& name, int line);
    bool setMusic(const ZBLValueExp& name, int line);
    std::shared_ptr<const ZBGraphic> getGraphic(std::string_view name);
    std::shared_ptr<const ZBGraphic> loadGraphic(std::string_view name);

    // Events and collisions (Events.cpp).
    const Program::ClassCode* classOf(std::int32_t spriteIndex) const;
    bool TriggerEvent(std::int32_t meIndex, EventName event, std::int32_t itIndex);
    bool FireEvent();
    bool DoSpriteEvents();
    void removeDestroyed();
    bool CheckForCollisions(std::int32_t index);
    void UpdateSpriteMapStates();
    void UpdateSpriteMapState(std::int32_t index);
    ZBSprite* getMePtr(int line);
    ZBSprite* getItPtr(int line);
    ZBSprite* boundSprite(std::int32_t index, std::optional<ZBSprite>& detached);
    void placeInGrid(const ZBSprite& sprite);

    ZBInterpreter& m_interpreter;
    RunState m_run;
    GameSurfaces m_surfaces;
    std::string m_path;
    std::vector<int> m_hits;       ///< scratch of the collision test
    std::string m_tagText;         ///< scratch of the event trace
    std::int64_t m_workInPass = 0; ///< what the events of this pass have cost
    bool m_showMap = false;
    bool m_sceneChanged = true;         ///< since the last frame was drawn
    std::int32_t m_drawnAnimation = -1; ///< the count of animation steps that it showed
};
