#pragma once

#include "runtime/Ports.h"

/// The user at the screen, reached through message boxes and the event loop.
class QtUser : public UserPort
{
public:
    void messageBox(std::string_view text) override;
    void beep() override;
    void deliverMessages(Wait wait) override;
};
