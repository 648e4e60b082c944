// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "games/GameFolders.h"
#include "platform/TextFile.h"
#include "support/Art.h"
#include "support/TestGame.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

// Plays the games of tests/plays and compares their history and their last picture with what is expected. To
// write new expectations: ZB_RENEW_PLAYS=1 core_tests --gtest_filter=All/Plays.* and review them like code.

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

class Plays : public testing::TestWithParam<Played>
{
};

} // namespace

TEST_P(Plays, GoAsTheyDid)
{
    const Installation installation(fs::path(ZB_SOURCE_DIR) / "tests");
    ZB module;
    module.GamesFolder = "plays\\";
    module.CurrentGame =
        readGameRecord(installation, std::string(GetParam().name) + "\\", module.GamesFolder);
    const fs::path folder = fs::path(ZB_SOURCE_DIR) / "tests" / "plays" / GetParam().name;
    std::vector<KeyChange> keys;
    int badLine = 0;
    ASSERT_TRUE(parseKeys(ScratchFolder::contents(folder / "keys.txt"), keys, badLine)) << badLine;

    PictureFiles pictures;
    std::string trace;
    HeadlessPlayer player(module, installation, pictures,
                          [&trace](std::string_view line) { trace.append(line).append("\n"); });
    player.run(withProductLineEnds(ScratchFolder::contents(folder / "code.txt")), GetParam().options, keys);
    const std::string picture = art(player.display(), 8);

    if (std::getenv("ZB_RENEW_PLAYS")) {
        std::ofstream(folder / "expected.trace", std::ios::binary) << trace;
        std::ofstream(folder / "expected.picture", std::ios::binary) << picture;
    }
    EXPECT_EQ(trace, ScratchFolder::contents(folder / "expected.trace"));
    EXPECT_EQ(picture, ScratchFolder::contents(folder / "expected.picture"));
}

INSTANTIATE_TEST_SUITE_P(All, Plays,
                         testing::Values(Played{"bounce", options(70, {false, true, false}, false, 3)},
                                         Played{"maze", options(45, {false, true, false}, true, 0)},
                                         Played{"hunt", options(38, {true, true, false}, false, 0)}),
                         [](const auto& each) { return std::string(each.param.name); });
