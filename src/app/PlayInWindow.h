#pragma once

#include "platform/Installation.h"
#include "runtime/ZB.h"

/// How a game in its window came to its end.
enum class Ending { Closed, Unreadable, ParseError, RuntimeError };

/// Whether there is a screen to open a window on. Without one the application object would end the program.
bool hasDisplay();
/// Plays the game that `module` names in its window, until that is closed. Makes the application object.
[[nodiscard]] Ending playInWindow(int& argc, char** argv, ZB& module, const Installation& installation);
