// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "headless/HeadlessPlayer.h"
#include "platform/Sum.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Plays a game frame by frame and sums up all that it comes to: after each frame every number of every
/// sprite, bit for bit, and the counters; at the end what `--dump` shows, and the picture. Lines of output go
/// where the player sends them. "FRAMES STATE PICTURE", to be compared between compilers and machines.
inline std::string playForSums(HeadlessPlayer& player, std::string_view text, HeadlessOptions options,
                               const std::vector<KeyChange>& keys, const LineOutput& output)
{
    const std::int32_t frames = options.frames;
    const bool dump = options.dump;
    options.frames = 0;
    options.dump = false;
    if (player.run(std::string(text), options, keys) == HeadlessPlayer::Result::ParseError)
        return "none";
    const ZBContext& context = player.interpreter().context();
    Sum state;
    std::int32_t frame = 0;
    for (; frame < frames && player.interpreter().context().InterpreterRunning(); ++frame) {
        player.playFrame();
        for (const ZBSprite& sprite : context.state().sprites)
            for (const double number :
                 {sprite.x, sprite.y, sprite.z, sprite.previousX, sprite.previousY, sprite.previousZ,
                  sprite.direction, sprite.speed, sprite.stepX, sprite.stepY})
                state.add(number);
        for (const double counter : context.state().variables.counters)
            state.add(counter);
    }
    if (context.InterpreterRunning()) {
        if (dump)
            output("Variables:");
        for (const std::string& line : player.interpreter().context().DumpVariablesInto()) {
            state.add(line);
            if (dump)
                output(line);
        }
    }
    Sum picture;
    for (const Pixel pixel : player.display().pixels())
        picture.add(std::uint64_t{pixel});
    return std::to_string(frame) + " " + state.text() + " " + picture.text();
}
