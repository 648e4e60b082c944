// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/Trace.h"

/// Looks on and does nothing: what others start from.
class Onlooker : public RunWatcher
{
public:
    void statement(int /*line*/) override {}
    void eventBegins(EventName /*event*/) override {}
    void eventEnds() override {}
    void stateEntered() override {}
    void pauses(int /*line*/) override {}
    void created(int /*line*/) override {}
};
