// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "FuzzGame.h"

#include "sprites/SpriteModel.h"

// The two files of a sprite as the sprite editor takes them in.

namespace
{

constexpr std::size_t mostPixels = std::size_t{1} << 20U; // more only takes longer

void check(bool holds)
{
    if (!holds)
        __builtin_trap();
}

/// Four steps, which every model remembers.
void draw(SpriteModel& model)
{
    const auto [width, height] = model.frameSize();
    model.drawLine(-1, height, width, -1, rgb(1, 2, 3));
    model.floodFill(width - 1, height - 1, transparent);
    model.setFrameSize({width % 7 + 1, height + 3});
    model.removeFrame();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzGame& game = FuzzGame::instance();
    game.writeGraphic("drawn", textOf(data, size));

    PictureFiles pictures;
    const auto sheet = SpriteSheet::read(Installation(game.folder()), pictures, "drawn");
    SpriteModel model;
    if (!sheet || !model.load(*sheet))
        return 0;
    const SpriteSheet taken = model.sheet();
    if (taken.picture().pixels().size() > mostPixels)
        return 0;
    // What was taken in comes out again, and every step can be undone.
    SpriteModel again;
    check(again.load(taken) && again.sheet().picture() == taken.picture());
    draw(model);
    while (model.canUndo())
        model.undo();
    check(model.sheet().picture() == taken.picture() && !model.isModified());
    return 0;
}
