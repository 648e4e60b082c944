// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "headless/HeadlessPlayer.h"
#include "platform/Installation.h"
#include "platform/pictures/PictureFiles.h"
#include "support/ScratchFolder.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// A game in a folder of its own, played without a window. The folder holds a few files for programs to use:
/// graphics: dot (3 x 3, red), flip (2 x 2, animated: green, blue), dial (rotating, four of 1 x 1); damaged:
/// nokind,
///           nopicture, badpicture
/// maps: colors.map (2 x 2: red, blue, green, none), broken.map
/// pictures: sky.bmp (cyan), broken.bmp; music: tune.mid
class TestGame
{
public:
    TestGame();

    HeadlessPlayer::Result play(std::string_view program, const HeadlessOptions& options = {},
                                const std::vector<KeyChange>& keys = {});
    /// The lines of output of all runs, without the banner that begins each history.
    std::vector<std::string> output;

    const ScratchFolder folder;

private:
    ZB m_module;
    PictureFiles m_pictures;
    Installation m_installation;
    int m_bannerLines = 0; ///< how many are still to come

public:
    HeadlessPlayer player;
    ZBContext& context() { return player.interpreter().context(); }
};

/// A program with these statements in the blocks of class "ball" and state "begin".
struct Blocks {
    std::string normal = {};
    std::string collision = {};
    std::string mapchange = {};
    std::string create = {};
    std::string destroy = {};
    std::string initialize = {};
    std::string loop = {};
};
std::string programOf(const Blocks& blocks);
