// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "recording/RunIndex.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The sprite that is seen at a point of the field as it is drawn (pixels, from the upper left): an index
/// into the sprite table, -1 for none. The topmost one that has a pixel there, else the topmost whose picture
/// reaches there.
int spriteAt(const RunState& run, int x, int y);

/// A line of a sprite's card. It leads to a line of the program and to a moment, where it has them.
struct CardLine {
    std::string text;
    int line = 0; ///< 0: none
    std::optional<Moment> moment = {};
};

struct SpriteCard {
    std::int32_t uniqueId = 0;
    std::string title;             ///< "A ball"
    std::vector<CardLine> facts;   ///< what it is
    std::vector<CardLine> deeds;   ///< what became of it, and by which line
    std::vector<CardLine> touches; ///< whom it touches, and why nothing happens
};

/// Tells the story of one sprite at a moment of a run, by playing again as much of it as that takes.
class SpriteStory
{
public:
    /// `index` saves playing where nothing can be found, as far as it has come; null: it is not there.
    SpriteStory(const Recording& recording, Replay& replay, const RunIndex* index);

    /// The card of the sprite at that place of the table, as the replay stands. Nothing where there is none.
    /// The replay stands where it stood afterwards.
    std::optional<SpriteCard> card(int sprite);

private:
    struct Deed {
        Moment moment;
        int line = 0;
    };
    struct Deeds {
        std::optional<Deed> created;
        std::optional<Deed> moved;
        std::optional<Deed> turned;
        std::optional<Deed> hidden;
        std::optional<Deed> ran;     ///< its COLLISION block
        std::optional<Deed> touched; ///< another one's COLLISION block, with it as IT
    };
    class Watcher;

    Deeds find(const ZBSprite& sprite, Moment until);
    Deeds look(std::int32_t id, std::int64_t from, Moment to);
    /// Adds why something happened, or did not, when it touched others in that frame.
    void explainTouches(SpriteCard& card, const ZBSprite& sprite, const Deeds& deeds,
                        std::int64_t frame) const;
    bool mayHold(const std::vector<int>& lines, std::int64_t from, std::int64_t to) const;

    const Recording& m_recording;
    Replay& m_replay;
    const RunIndex* m_index;
};
