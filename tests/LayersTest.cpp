// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace
{

struct Include {
    std::string file;
    std::string line;
};

/// All #include lines of the sources below a folder of src.
std::vector<Include> includesBelow(const fs::path& folder)
{
    std::vector<Include> includes;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp")
            continue;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);)
            if (line.starts_with("#include"))
                includes.push_back({entry.path().string(), line});
    }
    return includes;
}

} // namespace

TEST(Layers, AFileIncludesItsOwnLayerAndThoseBelow)
{
    // From the ground up; what is named beside a layer may be used by it as well.
    const std::vector<std::vector<std::string>> layers = {
        {"platform"},
        {"games", "language"},
        {"runtime"},
        {"headless"},
        {"recording"},
        {"forms"},
        {"play", "sprites", "editor", "library", "mapeditor"},
        {"app"}};
    const fs::path sources = fs::path(ZB_SOURCE_DIR) / "src";
    std::size_t seen = 0;
    for (std::size_t layer = 0; layer < layers.size(); ++layer)
        for (const std::string& folder : layers[layer])
            for (const Include& include : includesBelow(sources / folder)) {
                ++seen;
                for (std::size_t above = layer; above < layers.size(); ++above)
                    for (const std::string& other : layers[above])
                        EXPECT_FALSE(other != folder && include.line.starts_with("#include \"" + other + "/"))
                            << include.file << ": " << include.line;
            }
    EXPECT_GT(seen, 300U);
}

TEST(Layers, TheCoreKnowsNoToolkit)
{
    const fs::path sources = fs::path(ZB_SOURCE_DIR) / "src";
    for (const char* folder : {"platform", "games", "language", "runtime", "headless", "recording"})
        for (const Include& include : includesBelow(sources / folder)) {
            if (include.file.find("/platform/qt/") != std::string::npos)
                continue;
            EXPECT_FALSE(include.line.starts_with("#include <Q") ||
                         include.line.starts_with("#include \"platform/qt/"))
                << include.file << ": " << include.line;
        }
}

TEST(Layers, TheCoreComputesTheSameWithEveryCLibrary)
{
    // Their last bits differ from library to library; platform/Trigonometry.h has its own.
    const std::regex leftToTheLibrary(
        R"(std::(a?sinh?|a?cosh?|a?tanh?|atan2|pow|exp2?|expm1|log(2|10|1p)?|cbrt|hypot|tgamma|lgamma|erfc?)\()");
    const fs::path sources = fs::path(ZB_SOURCE_DIR) / "src";
    for (const char* folder : {"platform", "games", "language", "runtime", "headless", "recording"})
        for (const auto& entry : fs::recursive_directory_iterator(sources / folder)) {
            std::ifstream file(entry.path());
            for (std::string line; std::getline(file, line);)
                EXPECT_FALSE(std::regex_search(line, leftToTheLibrary)) << entry.path() << ": " << line;
        }
}
