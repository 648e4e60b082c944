// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/BitmapFile.h"
#include "platform/Installation.h"
#include "platform/TextFile.h"
#include "platform/pictures/PictureFiles.h"
#include "support/ProgramFile.h"
#include "support/TestGame.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

// Packs the bundled games, tests/plays and tests/programs with all that they need into one bundle for
// bundle_player, on the standard output. Pictures become bitmaps, so that the player needs no other reader.

namespace fs = std::filesystem;

namespace
{

void print(std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void file(const std::string& path, const std::string& bytes)
{
    print("file " + std::to_string(bytes.size()) + " " + path + "\n");
    print(bytes);
}

std::vector<fs::path> sorted(const fs::path& folder)
{
    std::vector<fs::path> entries{fs::directory_iterator(folder), fs::directory_iterator()};
    std::ranges::sort(entries);
    return entries;
}

void folder(const std::string& name, const fs::path& from)
{
    for (const fs::path& entry : sorted(from)) {
        if (!fs::is_regular_file(entry))
            continue;
        const std::string bytes = ScratchFolder::contents(entry);
        const auto picture = PictureFiles().decode(bytes);
        file(name + "\\" + entry.filename().string(), picture ? bitmapFile(*picture) : bytes);
    }
}

std::string optionLetters(const HeadlessOptions& options)
{
    std::string letters = "p";
    letters += options.trace ? "t" : "";
    letters += options.boxes.frames ? "f" : "";
    letters += options.boxes.events ? "e" : "";
    letters += options.boxes.code ? "c" : "";
    letters += options.showMap ? "m" : "";
    letters += options.dump ? "d" : "";
    return letters;
}

/// Every program of tests/programs, in the folder of files that they may name.
void programs(const fs::path& source)
{
    const TestGame game;
    folder("testgame", game.folder.path());
    int number = 0;
    for (const char* part : {"parse", "run"})
        for (const fs::path& entry : sorted(source / part))
            for (const ProgramFile& program : ProgramFile::read(entry)) {
                const std::string name = "programs\\" + std::to_string(++number);
                std::string keys;
                for (const KeyChange& key : program.keys)
                    keys += std::to_string(key.frame) + (key.down ? " down " : " up ") +
                            std::to_string(key.code) + "\n";
                file(name + ".txt", program.text);
                file(name + ".keys", keys);
                print("play " + entry.stem().string() + "-" + std::to_string(number) + " testgame\\ " + name +
                      ".txt " + name + ".keys " + std::to_string(program.options.frames) + " " +
                      std::to_string(program.options.seed) + " " + optionLetters(program.options) + "\n");
            }
}

} // namespace

int main()
{
    const fs::path source = ZB_SOURCE_DIR;
    for (const fs::path& game : sorted(source / "games")) {
        if (!fs::is_directory(game))
            continue;
        const std::string name = game.filename().string();
        folder(name, game);
        file(name + "\\keys.txt", ScratchFolder::contents(source / "tests/plays/bundled" / (name + ".keys")));
        print("play " + name + " " + name + "\\ " + name + "\\code.txt " + name + "\\keys.txt 2000 1 ptd\n");
    }
    for (const char* name : {"bounce", "hunt", "maze"}) {
        folder(name, source / "tests/plays" / name);
        print("play " + std::string(name) + " " + name + "\\ " + name + "\\code.txt " + name +
              "\\keys.txt 300 1 ptfecdm\n");
    }
    programs(source / "tests/programs");
    return std::fflush(stdout) == 0 ? 0 : 1;
}
