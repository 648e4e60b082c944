// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "headless/HeadlessPlayer.h"

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

/// A running sum (FNV-1a, 64 bits) in which every bit of what was added counts.
class Sum
{
public:
    void addByte(unsigned char byte) { m_value = (m_value ^ byte) * 0x100000001b3U; }
    void add(std::uint64_t number)
    {
        for (unsigned shift = 0; shift < 64; shift += 8)
            addByte(static_cast<unsigned char>(number >> shift));
    }
    /// What is no number has many bits that mean the same.
    void add(double number)
    {
        add(number == number ? std::bit_cast<std::uint64_t>(number) : ~std::uint64_t{0});
    }
    void add(std::string_view text)
    {
        for (const char c : text)
            addByte(static_cast<unsigned char>(c));
        addByte(0);
    }

    /// As 16 hexadecimal digits.
    std::string text() const
    {
        std::string digits;
        for (unsigned shift = 64; shift > 0; shift -= 4)
            digits += "0123456789abcdef"[(m_value >> (shift - 4)) & 15U];
        return digits;
    }

private:
    std::uint64_t m_value = 0xcbf29ce484222325U;
};

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
