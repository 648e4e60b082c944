#pragma once

#include "platform/Installation.h"
#include "runtime/ZB.h"

/// Plays the game that `module` names in its window, until the window is closed. False where its program
/// cannot be read. Makes the application object.
[[nodiscard]] bool playInWindow(int& argc, char** argv, ZB& module, const Installation& installation);
