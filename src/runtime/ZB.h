#pragma once

#include "platform/Surface.h"

#include <array>
#include <string>
#include <string_view>

/// One game of the library. `folder` is the folder's name with a trailing backslash.
struct GameRecord {
    std::string author;
    std::string title;
    std::string folder;

    bool operator==(const GameRecord&) const = default;
};

/// The line separator of program texts and messages.
inline constexpr std::string_view NewLine = "\r\n";

/// The title of message boxes.
inline constexpr std::string_view ProductName = "Zorbino";

/// The seven map colours: red, orange, yellow, green, cyan, blue, purple.
inline constexpr std::array<Pixel, 7> ColorTable = {
    rgb(0xff, 0x00, 0x00), rgb(0xff, 0x80, 0x00), rgb(0xff, 0xff, 0x00), rgb(0x00, 0xff, 0x00),
    rgb(0x00, 0xff, 0xff), rgb(0x00, 0x00, 0xff), rgb(0xff, 0x00, 0xff),
};

/// What the whole program shares; there is one, and everybody is handed a reference to it.
struct ZB {
    GameRecord CurrentGame;
    std::string GamesFolder = "games\\"; ///< what stands before CurrentGame.folder in the path of a game
    int RunMode = 0;                ///< 1: started from the game editor (traced); 0: no run yet or untraced
    bool CodeEditorWasOpen = false; ///< the code editor was visible when the run started
    int ErrorLine = 0;              ///< line of the last reported error, 0 for none
    std::string ErrorText;

    /// The product path of CurrentGame's folder with a trailing backslash.
    std::string gamePath() const { return GamesFolder + CurrentGame.folder; }
};

/// The usage line of a statement word ("MOVE <object>"), or an empty text. Blanks around the word, its case
/// and one "{" at its end do not matter.
std::string_view StatementHelp(std::string_view word);
