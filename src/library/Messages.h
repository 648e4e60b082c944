#pragma once

#include <QStringView>

/// What the library and the windows about a game say to the user.
namespace say
{

inline constexpr QStringView notEnabled = u"This feature is not enabled yet-- sorry!";
inline constexpr QStringView notEnabledSpecial =
    u"This feature is not enabled yet-- sorry! This is where you could add "
    u"resources to your general pool from";
inline constexpr QStringView gameCreated = u"Your new game is ready for you to work on it!  Just find the "
                                           u"white box with the red X and click on it, then "
                                           u"select the Work button.";

inline constexpr QStringView templateMissing = u"I can't make a new game, because I can't find the file %1.  "
                                               u"Please ask somebody to install Zorbino again.";
inline constexpr QStringView gameNotCreated =
    u"I can't make a new game, because I can't write %1.  Maybe the disk is full, or nobody may write there.";
inline constexpr QStringView gameIsGone =
    u"I can't find the folder of this game any more.  Somebody must have moved it or deleted it.";

inline constexpr QStringView propertiesNotSaved =
    u"I could not save the title and your name.  Maybe the disk is full, or nobody may write in the folder "
    u"of this game.  I will try again when you type something else or press Ok.";
inline constexpr QStringView propertiesStillNotSaved =
    u"I could not save the title and your name.  They will be gone when you close this game!";
inline constexpr QStringView iconNotChosen =
    u"I could not change the icon.  Maybe the disk is full, or nobody may write in the folder of this game.";

inline constexpr QStringView pictureUnreadable =
    u"I can't read the picture %1.  I can only use pictures of the kinds BMP, GIF and JPEG.";
inline constexpr QStringView pictureExists =
    u"Your game already has a picture with the name %1.  Do you want the new picture to take its place?";
inline constexpr QStringView pictureNotAdded = u"I could not copy the picture into your game.  Maybe the "
                                               u"disk is full, or nobody may write in the folder "
                                               u"of this game.";
inline constexpr QStringView removePicture =
    u"Do you really want to remove the picture %1 from your game?  You can't get it back.";
inline constexpr QStringView removeSprite =
    u"Do you really want to remove the sprite %1 from your game?  You can't get it back.";
inline constexpr QStringView notRemoved =
    u"I could not remove %1.  Maybe nobody may write in the folder of this game.";

} // namespace say
