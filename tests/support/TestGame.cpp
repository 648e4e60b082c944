// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "support/TestGame.h"

#include "platform/TextFile.h"
#include "support/Art.h"

TestGame::TestGame()
    : m_installation(folder.path())
    , player(m_module, m_installation, m_pictures, [this](std::string_view line) {
        constexpr int bannerLength = 38;
        if (m_bannerLines == 0 && line.empty())
            m_bannerLines = bannerLength;
        if (m_bannerLines == 0)
            output.emplace_back(line);
        else
            --m_bannerLines;
    })
{
    m_module.GamesFolder = "";
    m_module.CurrentGame = {"An Author", "A Title", ""};
    folder.write("dot.spr", "a dot\r\nSimple,3,3,1\r\n");
    folder.write("dot.spb", bitmapFile(art({"rrr...", "rrr...", "rrr..."})));
    folder.write("flip.spr", "two frames\r\n\"Animated\",2,2,2\r\n");
    folder.write("flip.spb", bitmapFile(art({"gg..", "gg..", "bb..", "bb.."})));
    folder.write("dial.spr", "four headings\r\nRotating,1,1,4\r\n");
    folder.write("dial.spb", bitmapFile(art({"r.", "y.", "c.", "p."})));
    folder.write("nokind.spr", "\r\nsimple,3,3,1\r\n");
    folder.write("nokind.spb", bitmapFile(art({"r."})));
    folder.write("nopicture.spr", "\r\nSimple,3,3,1\r\n");
    folder.write("badpicture.spr", "\r\nSimple,3,3,1\r\n");
    folder.write("badpicture.spb", "BM and nothing else");
    std::string legend;
    for (int i = 0; i < ZBMap::legendCount; ++i)
        legend += "\r\n";
    folder.write("colors.map", "\r\n\r\n 2\r\n 2\r\n" + legend + "1\r\n32\r\n8\r\n0\r\n");
    folder.write("broken.map", "\r\n\r\n 2\r\n 2\r\n" + legend + "1\r\nred\r\n");
    folder.write("sky.bmp", bitmapFile(art({"c"})));
    folder.write("broken.bmp", "BM");
    folder.write("tune.mid", "");
}

HeadlessPlayer::Result TestGame::play(std::string_view program, const HeadlessOptions& options,
                                      const std::vector<KeyChange>& keys)
{
    return player.run(withProductLineEnds(std::string(program)), options, keys);
}

std::string programOf(const Blocks& blocks)
{
    return "program{\nclasses{\nball{\nnormal{\n" + blocks.normal + "\n}normal\ncollision{\n" +
           blocks.collision + "\n}collision\nmapchange{\n" + blocks.mapchange + "\n}mapchange\ncreate{\n" +
           blocks.create + "\n}create\ndestroy{\n" + blocks.destroy +
           "\n}destroy\n}ball\n}classes\nstates{\nbegin{\ninitialize{\n" + blocks.initialize +
           "\n}initialize\nloop{\n" + blocks.loop + "\n}loop\n}begin\n}states\n}program\n";
}
