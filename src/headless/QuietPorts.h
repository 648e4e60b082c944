// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "runtime/Ports.h"

// Ports behind which there is nothing: what a player without a workbench starts from.

class QuietScreen : public GameScreen
{
public:
    void load() override {}
    void reopen(std::string_view /*title*/) override {}
    void show() override {}
    void close() override {}
    void setTimerInterval(std::optional<int> /*milliseconds*/) override {}
    void enableTimer(bool /*on*/) override {}
    void proceedSoon() override {}
    void refreshDisplay() override {}
    bool wantsFrames() const override { return false; }
};

class QuietGameEditor : public GameEditorPort
{
public:
    void setButtons(RunButtons /*state*/) override {}
    void setEnabled(bool /*on*/) override {}
    void startHaltMeAgain() override {}
    int framesPerMinute() const override { return 1800; }
};

class QuietCodeEditor : public CodeEditorPort
{
public:
    bool isVisible() const override { return false; }
    void hide() override {}
    void show() override {}
    void SetCursorPos(int /*line*/, int /*column*/, bool /*wrap*/) override {}
    void focusText() override {}
};

class QuietSpy : public SpyPort
{
public:
    void clearHistory() override {}
    void addHistoryLine(std::string_view /*line*/) override {}
    void selectLastLine() override {}
    void showState(std::string_view /*state*/, std::string_view /*subState*/) override {}
    void enableVariables() override {}
    void setVariables(const std::vector<std::string>& /*lines*/) override {}
};
