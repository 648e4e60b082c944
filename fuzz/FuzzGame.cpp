// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "FuzzGame.h"

#include "platform/TextFile.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace
{

/// A new folder in memory where there is such a place.
std::filesystem::path newFolder()
{
    const std::filesystem::path memory = "/dev/shm";
    const auto parent =
        std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
    std::string name = (parent / "zorbino-fuzz.XXXXXX").string();
    if (!::mkdtemp(name.data()))
        std::abort();
    return name;
}

} // namespace

FuzzGame& FuzzGame::instance()
{
    static FuzzGame game;
    return game;
}

FuzzGame::FuzzGame()
    : m_folder(newFolder())
    , m_installation(m_folder)
    , m_player(m_module, m_installation, m_pictures, [](std::string_view) {})
{
    static std::filesystem::path left;
    left = m_folder;
    std::atexit([] {
        std::error_code ignored;
        std::filesystem::remove_all(left, ignored);
    });
    m_module.GamesFolder = "";
    m_player.interpreter().context().events().setMostWorkInPass(100'000); // many games rather than long ones
    write("dot.spr", "\r\nAnimated,1,1,2\r\n");
    Surface picture(2, 2, black);
    picture.set(0, 0, white);
    if (!writePng(picture, m_folder / "dot.spb"))
        std::abort();
    std::string map = "\r\n\r\n 3\r\n 3\r\n";
    for (int i = 0; i < ZBMap::legendCount; ++i)
        map += "\r\n";
    write("map", map + "1,2,4,8,16,32,64,127,0");
}

void FuzzGame::write(std::string_view name, std::string_view bytes) const
{
    std::ofstream(m_folder / name, std::ios::binary) << bytes;
}

std::string_view FuzzGame::writeGraphic(const std::string& name, std::string_view input) const
{
    const std::size_t end = std::min(input.find('\0'), input.size());
    write(name + ".spr", input.substr(0, end));
    if (end < input.size())
        write(name + ".spb", input.substr(end + 1));
    return input.substr(0, end);
}

void FuzzGame::play(std::string_view program, int frames, const std::vector<KeyChange>& keys)
{
    HeadlessOptions options;
    options.frames = frames;
    options.trace = options.dump = options.wantsPicture = options.showMap = true;
    options.boxes = {true, true, true};
    m_player.run(withProductLineEnds(decodeText(std::string(program))), options, keys);
}
