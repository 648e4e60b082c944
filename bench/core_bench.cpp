// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "BenchGame.h"
#include "BenchProgram.h"
#include "VariedProgram.h"

#include "platform/Rounding.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

// The core beside its peers. Benchmarks come in pairs: the ratio of a pair is the figure.

namespace
{

// Statements
// -------------------------------------------------------------------------------------------------------

constexpr int copies = 50;     // of the block, in one frame
constexpr int statements = 20; // that run in one pass through the block

constexpr std::string_view block = "set counter$a 1\n"
                                   "set counter$b counter$a\n"
                                   "change counter$b 2\n"
                                   "set text$mode \"play\"\n"
                                   "if counter$b > 2 {\n"
                                   "  change counter$c 1\n"
                                   "  if text$mode = \"play\" {\n"
                                   "    set text$word \"left\"\n"
                                   "    change counter$d counter$a\n"
                                   "  }else{\n"
                                   "    set text$word \"right\"\n"
                                   "  }if\n"
                                   "}else{\n"
                                   "  change counter$c -1\n"
                                   "}if\n"
                                   "set counter$e counter$c\n"
                                   "change counter$e -3\n"
                                   "if counter$e < 0 {\n"
                                   "  set counter$f 0\n"
                                   "}else{\n"
                                   "  set counter$f counter$e\n"
                                   "}if\n"
                                   "if text$word != \"right\" {\n"
                                   "  if counter$a = counter$b {\n"
                                   "    set text$last \"same\"\n"
                                   "  }else{\n"
                                   "    set text$last text$word\n"
                                   "  }if\n"
                                   "  change counter$g 1\n"
                                   "}if\n"
                                   "change counter$h counter$a\n"
                                   "set counter$i counter$h\n";

constexpr std::string_view luaBlock = "a = 1\n"
                                      "b = a\n"
                                      "b = b + 2\n"
                                      "mode = \"play\"\n"
                                      "if b > 2 then\n"
                                      "  c = c + 1\n"
                                      "  if mode == \"play\" then\n"
                                      "    word = \"left\"\n"
                                      "    d = d + a\n"
                                      "  else\n"
                                      "    word = \"right\"\n"
                                      "  end\n"
                                      "else\n"
                                      "  c = c - 1\n"
                                      "end\n"
                                      "e = c\n"
                                      "e = e - 3\n"
                                      "if e < 0 then\n"
                                      "  f = 0\n"
                                      "else\n"
                                      "  f = e\n"
                                      "end\n"
                                      "if word ~= \"right\" then\n"
                                      "  if a == b then\n"
                                      "    last = \"same\"\n"
                                      "  else\n"
                                      "    last = word\n"
                                      "  end\n"
                                      "  g = g + 1\n"
                                      "end\n"
                                      "h = h + a\n"
                                      "i = h\n";

constexpr std::string_view unsetCounters =
    "set counter$c 0\nset counter$d 0\nset counter$g 0\nset counter$h 0\n";

void statementsIn(benchmark::State& state, RunKind kind)
{
    BenchGame game;
    game.start(program({{"begin", std::string(unsetCounters), repeat(block, copies)}}), kind);
    for (auto _ : state)
        game.frame();
    state.SetItemsProcessed(state.iterations() * copies * statements);
}

void Statements_Zorbino(benchmark::State& state)
{
    statementsIn(state, RunKind::Plain);
}
void Statements_ZorbinoTracedNoBox(benchmark::State& state)
{
    statementsIn(state, RunKind::Traced);
}
void Statements_Lua(benchmark::State& state)
{
    Lua lua("c, d, g, h = 0, 0, 0, 0\nfunction frame()\n" + repeat(luaBlock, copies) + "end\n");
    for (auto _ : state)
        lua.call("frame");
    state.SetItemsProcessed(state.iterations() * copies * statements);
}
BENCHMARK(Statements_Lua);
BENCHMARK(Statements_Zorbino);
BENCHMARK(Statements_ZorbinoTracedNoBox);

// A frame of sprites
// -----------------------------------------------------------------------------------------------

// A border around the field, at which sprites come back on the other side; what they meet, they count.
constexpr std::string_view spriteStatements = "move me\n"
                                              "if me.x > 100 {\n"
                                              "  changeposition me -200 0 0\n"
                                              "}if\n"
                                              "if me.x < -100 {\n"
                                              "  changeposition me 200 0 0\n"
                                              "}if\n"
                                              "if me.y > 99 {\n"
                                              "  setdirection me 270\n"
                                              "}if\n"
                                              "if me.y < -99 {\n"
                                              "  setdirection me 90\n"
                                              "}if\n"
                                              "change counter$moves 1\n";
constexpr std::string_view otherEvents = "collision{\nchange counter$hits 1\n}collision\n"
                                         "mapchange{\nchange counter$squares 1\n}mapchange\n";

/// A moving field of sprites, so far that all of them are there.
void startField(BenchGame& game, int count, const std::string& loop = "", RunKind kind = RunKind::Plain)
{
    auto states = creationStates(count, loop);
    states.front().initialize = "setmap game \"field.map\"\nset counter$moves 0\nset counter$hits 0\n"
                                "set counter$squares 0\n" +
                                std::string(unsetCounters) + states.front().initialize;
    game.start(program(states, spriteStatements, otherEvents), kind);
    for (std::size_t i = 0; i < states.size(); ++i)
        game.frame();
}

/// What the variable list says of a counter.
double counterOf(BenchGame& game, const std::string& name)
{
    for (const std::string& line : game.context().DumpVariablesInto())
        if (line.starts_with(name + " "))
            return std::strtod(line.c_str() + line.find('=') + 1, nullptr);
    return -1;
}

void Frame_Zorbino(benchmark::State& state)
{
    BenchGame game;
    startField(game, static_cast<int>(state.range(0)));
    for (auto _ : state)
        game.frame();
    state.SetItemsProcessed(state.iterations() * state.range(0));
    const double moves = counterOf(game, "counter$moves");
    state.counters["hits"] = counterOf(game, "counter$hits") / moves;
    state.counters["squares"] = counterOf(game, "counter$squares") / moves;
}

// The same field, events in a queue, all names local.
constexpr std::string_view luaField = R"(
local abs, floor, cos, sin, rad = math.abs, math.floor, math.cos, math.sin, math.rad
local moves, hits, changes = 0, 0, 0
local sprites, squares = {}, {}
local queue, others, queued = {}, {}, 0
for i = 0, 399 do squares[i] = (i + i // 20) % 2 end
local function turn(s, direction)
  s.direction = direction
  s.dx, s.dy = s.speed * cos(rad(direction)), s.speed * sin(rad(direction))
end
for i = 0, count - 1 do
  local s = { x = 97 - 200 / 33 * (i % 33), y = -97 + 200 / 33 * (i // 33), speed = 0.75, square = 0 }
  turn(s, i > 33 and i % 33 == 16 and 180 or 0)
  sprites[i + 1] = s
end
local function look(s)
  local column = (floor(s.x + 0.5) + 100) * 20 // 200
  local row = (100 - floor(s.y + 0.5)) * 20 // 200
  if column >= 0 and column < 20 and row >= 0 and row < 20 then
    local square = squares[row * 20 + column]
    if square ~= s.square then
      s.square = square
      queued = queued + 1
      queue[queued], others[queued] = s, false
    end
  end
end
local function place(s, x, y)
  s.px, s.py, s.x, s.y = s.x, s.y, x, y
end
local function move(s)
  local x, y = s.x + s.dx, s.y + s.dy
  place(s, x, y)
  for j = 1, count do
    local o = sprites[j]
    if abs(x - o.x) < 6 and abs(y - o.y) < 6 and o ~= s then
      queued = queued + 1
      queue[queued], others[queued] = s, o
    end
  end
  look(s)
end
local function normal(s)
  move(s)
  if s.x > 100 then place(s, s.x - 200, s.y) look(s) end
  if s.x < -100 then place(s, s.x + 200, s.y) look(s) end
  if s.y > 99 then turn(s, 270) end
  if s.y < -99 then turn(s, 90) end
  moves = moves + 1
end
function frame()
  queued = 0
  for i = 1, count do normal(sprites[i]) end
  for i = 1, queued do
    if others[i] then hits = hits + 1 else changes = changes + 1 end
  end
  hitsPerMove, changesPerMove = hits / moves, changes / moves
end
)";

void Frame_Lua(benchmark::State& state)
{
    Lua lua("local count = " + std::to_string(state.range(0)) + std::string(luaField));
    for (auto _ : state)
        lua.call("frame");
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["hits"] = lua.number("hitsPerMove");
    state.counters["squares"] = lua.number("changesPerMove");
}
BENCHMARK(Frame_Lua)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Frame_Zorbino)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

// ---- A copy of a run and the way back, beside a copy of the bytes of its sprites

void Copy_Memcpy(benchmark::State& state)
{
    std::vector<char> from(static_cast<std::size_t>(state.range(0)) * sizeof(ZBSprite), 'x');
    std::vector<char> there(from.size());
    for (auto _ : state) {
        std::memcpy(there.data(), from.data(), from.size());
        benchmark::ClobberMemory();
        std::memcpy(from.data(), there.data(), from.size());
        benchmark::ClobberMemory();
    }
}

void Copy_SaveAndRestore(benchmark::State& state)
{
    BenchGame game;
    startField(game, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const RunState copy = game.context().save();
        game.context().restore(copy);
    }
}

BENCHMARK(Copy_Memcpy)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Copy_SaveAndRestore)->Arg(20)->Arg(1000)->Unit(benchmark::kMicrosecond);

// Drawing
// ----------------------------------------------------------------------------------------------------------

/// How the sprites stand and what they show.
enum class Scene { Lattice, Animated, Rotating, Clipped, OnePlace };

struct Drawing {
    const char* name;
    Scene scene;
    int count;
    int size;
};

constexpr auto drawings = std::to_array<Drawing>({
    {"background", Scene::Lattice, 0, 32},
    {"1000_of_7", Scene::Lattice, 1000, 7},
    {"1000_of_16", Scene::Lattice, 1000, 16},
    {"1000_of_32", Scene::Lattice, 1000, 32},
    {"1000_of_64", Scene::Lattice, 1000, 64},
    {"100_of_128", Scene::Lattice, 100, 128},
    {"100_of_256", Scene::Lattice, 100, 256},
    {"animated_of_32", Scene::Animated, 1000, 32},
    {"rotating_of_32", Scene::Rotating, 1000, 32},
    {"clipped_of_32", Scene::Clipped, 1000, 32},
    {"one_place_of_32", Scene::OnePlace, 1000, 32},
});

constexpr int animatedFrames = 8;
constexpr int rotatingFrames = 36;

BenchGame::Graphic graphicOf(const Drawing& drawing)
{
    switch (drawing.scene) {
    case Scene::Animated:
        return {"Animated", drawing.size, animatedFrames};
    case Scene::Rotating:
        return {"Rotating", drawing.size, rotatingFrames};
    default:
        return {"Simple", drawing.size, 1};
    }
}

/// A sprite of a drawing: its place, and which frame it shows where the heading chooses.
struct Placed {
    double x = 0;
    double y = 0;
    int frame = 0;
};

Placed placed(const Drawing& drawing, int i)
{
    switch (drawing.scene) {
    case Scene::Clipped: // half of it is beyond the left or right edge
        return {i % 2 == 0 ? -100.0 : 100.0, latticeY(i), 0};
    case Scene::OnePlace:
        return {10, 20, 0};
    case Scene::Rotating:
        return {latticeX(i), latticeY(i), i * 7 % rotatingFrames};
    default:
        return {latticeX(i), latticeY(i), 0};
    }
}

void drawInZorbino(benchmark::State& state, const Drawing& drawing)
{
    BenchGame game(BenchGame::Frames::Drawn, graphicOf(drawing));
    const auto states = creationStates(drawing.count, "", [&](int i, int) {
        const Placed at = placed(drawing, i);
        return "create dot " + std::to_string(i) + " \"dot\" " +
               std::to_string(at.frame * 360 / rotatingFrames) + " 0 " + std::to_string(at.x) + " " +
               std::to_string(at.y) + " 0\n";
    });
    game.start(program(states), RunKind::Plain);
    for (std::size_t i = 0; i < states.size(); ++i)
        game.frame();
    for (auto _ : state) {
        if (drawing.scene == Scene::Animated) {
            state.PauseTiming();
            game.frame();
            state.ResumeTiming();
        }
        game.context().DrawFrame();
    }
}

/// Not inlined, so that the compiler makes no better copy of a length that it knows.
[[gnu::noinline]] void copyRow(Pixel* to, const Pixel* from, std::size_t count)
{
    std::memcpy(to, from, count * sizeof(Pixel));
}

/// Where a sprite is drawn: its top left corner, how many of its pixels show, and the first of them.
struct Copied {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    int fromX = 0;
    int fromY = 0;
};

std::vector<Copied> copiesOf(const Drawing& drawing)
{
    std::vector<Copied> all;
    for (int i = 0; i < drawing.count; ++i) {
        const Placed at = placed(drawing, i);
        const int x = roundToInt((at.x + 100) * 2.4) - drawing.size / 2;
        const int y = roundToInt((100 - at.y) * 2.4) - drawing.size / 2;
        const int left = std::max(x, 0);
        const int top = std::max(y, 0);
        const int width = std::min(x + drawing.size, 480) - left;
        const int height = std::min(y + drawing.size, 480) - top;
        if (width > 0 && height > 0)
            all.push_back({left, top, width, height, left - x, top - y + at.frame * drawing.size});
    }
    return all;
}

/// The limit that drawing is held against: the same bytes moved plainly, the background whole and every row
/// of every sprite by a call of memcpy.
void drawByMemcpy(benchmark::State& state, const Drawing& drawing)
{
    const BenchGame::Graphic graphic = graphicOf(drawing);
    const Surface background(480, 480, white);
    const Surface sheet(graphic.size, graphic.size * graphic.frames, black);
    Surface display(480, 480, white);
    const auto all = copiesOf(drawing);
    int shown = 0;
    for (auto _ : state) {
        if (drawing.scene == Scene::Animated)
            shown = (shown + graphic.size) % sheet.height();
        std::memcpy(display.pixels().data(), background.pixels().data(), background.pixels().size_bytes());
        for (const Copied& each : all)
            for (int row = 0; row < each.height; ++row)
                copyRow(&display.row(each.y + row)[static_cast<std::size_t>(each.x)],
                        &sheet.row(shown + each.fromY + row)[static_cast<std::size_t>(each.fromX)],
                        static_cast<std::size_t>(each.width));
        benchmark::ClobberMemory();
    }
}

const bool drawingsRegistered = [] {
    for (const Drawing& drawing : drawings) {
        const std::string name = std::string("DrawFrame/") + drawing.name;
        benchmark::RegisterBenchmark((name + "_Memcpy").c_str(), drawByMemcpy, drawing)
            ->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark((name + "_Zorbino").c_str(), drawInZorbino, drawing)
            ->Unit(benchmark::kMicrosecond);
    }
    return true;
}();

// Reading
// ----------------------------------------------------------------------------------------------------------

class Silent : public ParseReporter
{
public:
    void parseError(const ParseFault& fault) override
    {
        std::fprintf(stderr, "line %d: %s\n", fault.line, fault.message.c_str());
        std::exit(EXIT_FAILURE);
    }
    void beep() override {}
};

void Read_Zorbino(benchmark::State& state)
{
    const auto lines = static_cast<int>(state.range(0));
    const std::string text = variedProgram(lines).zorbino;
    for (auto _ : state) {
        const LineArray array(text);
        Silent reporter;
        Program read;
        if (!read.tree.Parse(array, reporter))
            std::abort();
        read.compile();
        benchmark::DoNotOptimize(&read);
    }
    state.SetItemsProcessed(state.iterations() * lines);
}

void Read_Lua(benchmark::State& state)
{
    const auto lines = static_cast<int>(state.range(0));
    const std::string text = variedProgram(lines).lua;
    lua_State* lua = luaL_newstate();
    for (auto _ : state) {
        if (luaL_loadbuffer(lua, text.data(), text.size(), "text") != LUA_OK) {
            std::fprintf(stderr, "lua: %s\n", lua_tostring(lua, -1));
            std::exit(EXIT_FAILURE);
        }
        lua_pop(lua, 1);
    }
    lua_close(lua);
    state.SetItemsProcessed(state.iterations() * lines);
}
void readSizes(benchmark::internal::Benchmark* bench)
{
    bench->RangeMultiplier(10)->Range(1000, 1'000'000)->Unit(benchmark::kMillisecond);
}
BENCHMARK(Read_Lua)->Apply(readSizes);
BENCHMARK(Read_Zorbino)->Apply(readSizes);

// The trace
// --------------------------------------------------------------------------------------------------------

void Trace_AllBoxes(benchmark::State& state)
{
    BenchGame game;
    game.interpreter().setTraceBoxes({true, true, true});
    startField(game, 100, std::string(block), RunKind::Traced);
    const std::uint64_t before = game.historyLines();
    for (auto _ : state)
        game.frame();
    state.SetItemsProcessed(static_cast<std::int64_t>(game.historyLines() - before));
}
BENCHMARK(Trace_AllBoxes)->Unit(benchmark::kMicrosecond);

} // namespace

/// Runs the benchmarks; "core_bench --program LINES" writes the program that they read instead.
int main(int argc, char** argv)
{
    if (argc == 3 && std::string_view(argv[1]) == "--program") {
        const std::string text = variedProgram(std::atoi(argv[2])).zorbino;
        return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return EXIT_FAILURE;
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
