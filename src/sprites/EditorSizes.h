// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <Qt>

/// How large the parts of the sprite editor are. They give way on a low screen, so that the strip of frames
/// stays on it.
struct EditorSizes {
    int screenHeight; ///< that the window with its title bar needs
    Qt::ToolBarArea tools;
    Qt::ToolButtonStyle toolText;
    int toolIcon;
    int gap; ///< between the parts
    int swatch;
    int color;
    int stage;
    int preview;
    int stripFrame;
    bool logo;
    bool hint; ///< what the kinds mean, beside their list; else only in its tool tip
};

/// The largest that a screen of that height has room for.
const EditorSizes& sizesFor(int screenHeight);
