// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "FuzzGame.h"

#include "platform/FileBundle.h"
#include "platform/TextFile.h"
#include "platform/pictures/Bytes.h"

#include <algorithm>

// A game in memory: files, each as the length of its name in one byte, the name, its size in two bytes, and
// its bytes. The program is the file code.txt.

namespace
{

FileBundle bundleOf(std::string_view input)
{
    FileBundle files;
    while (!input.empty()) {
        const std::size_t nameLength = std::min<std::size_t>(Bytes(input).byte(0), input.size() - 1);
        const std::string_view name = input.substr(1, nameLength);
        const std::string_view rest = input.substr(1 + nameLength);
        const std::string_view bytes = rest.substr(std::min<std::size_t>(2, rest.size()));
        const std::size_t size = std::min<std::size_t>(Bytes(rest).two(0), bytes.size());
        const std::string content(bytes.substr(0, size));
        // What can be added is there, and nothing else is.
        if (files.add(name, content) && files.readBytes(name) != content)
            __builtin_trap();
        input = bytes.substr(size);
    }
    for (const std::string& name : files.listFiles("", "*.*"))
        if (!files.isFile(name))
            __builtin_trap();
    return files;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t longestProgram = 4096;
    const FileBundle files = bundleOf(textOf(data, size));
    const std::string program = files.readText("code.txt").value_or(std::string());
    if (program.size() > longestProgram)
        return -1;

    ZB module;
    module.GamesFolder = "";
    PictureFiles pictures;
    HeadlessPlayer player(module, files, pictures, [](std::string_view) {});
    player.interpreter().context().events().setMostWorkInPass(100'000);
    HeadlessOptions options;
    options.frames = 3;
    options.wantsPicture = options.showMap = true;
    player.run(withProductLineEnds(program), options, {});
    return 0;
}
