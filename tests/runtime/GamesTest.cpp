#include "platform/TextFile.h"
#include "runtime/GameFolders.h"
#include "support/Art.h"
#include "support/TestGame.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

// Plays the games of tests/games and compares their history and their last picture with what is expected. To
// write new expectations: ZB_RENEW_GAMES=1 core_tests --gtest_filter=All/Games.* and review them like code.

namespace
{

namespace fs = std::filesystem;

struct Played {
    const char* name;
    HeadlessOptions options;
};

HeadlessOptions options(int frames, const TraceBoxes& boxes, bool showMap, std::uint64_t seed)
{
    HeadlessOptions options;
    options.frames = frames;
    options.trace = options.dump = options.wantsPicture = true;
    options.boxes = boxes;
    options.showMap = showMap;
    options.seed = seed;
    return options;
}

std::string contents(const fs::path& file)
{
    return readFileBytes(file, 1U << 24U).value_or(std::string());
}

class Games : public testing::TestWithParam<Played>
{
};

} // namespace

TEST_P(Games, GoAsTheyDid)
{
    const Installation installation(fs::path(ZB_SOURCE_DIR) / "tests");
    ZB module;
    module.CurrentGame = readGameRecord(installation, std::string(GetParam().name) + "\\");
    const fs::path folder = fs::path(ZB_SOURCE_DIR) / "tests" / "games" / GetParam().name;
    std::vector<KeyChange> keys;
    int badLine = 0;
    ASSERT_TRUE(parseKeys(contents(folder / "keys.txt"), keys, badLine)) << badLine;

    QtPictures pictures;
    std::string trace;
    HeadlessPlayer player(module, installation, pictures,
                          [&trace](std::string_view line) { trace.append(line).append("\n"); });
    player.run(withProductLineEnds(contents(folder / "code.txt")), GetParam().options, keys);
    const std::string picture = art(player.display(), 8);

    if (std::getenv("ZB_RENEW_GAMES")) {
        std::ofstream(folder / "expected.trace", std::ios::binary) << trace;
        std::ofstream(folder / "expected.picture", std::ios::binary) << picture;
    }
    EXPECT_EQ(trace, contents(folder / "expected.trace"));
    EXPECT_EQ(picture, contents(folder / "expected.picture"));
}

INSTANTIATE_TEST_SUITE_P(All, Games,
                         testing::Values(Played{"bounce", options(70, {false, true, false}, false, 3)},
                                         Played{"maze", options(45, {false, true, false}, true, 0)},
                                         Played{"hunt", options(38, {true, true, false}, false, 0)}),
                         [](const auto& each) { return std::string(each.param.name); });
