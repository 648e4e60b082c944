// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLCreateExp.h"
#include "language/ZBLMethodExp.h"
#include "runtime/Evaluator.h"
#include "runtime/Events.h"
#include "runtime/GameAssets.h"

/// The statements that act on sprites and on the game, and the one that creates sprites.
class Actions
{
public:
    Actions(RunState& run, FaultList& faults, Evaluator& evaluator, Events& events, GameAssets& assets);

    Outcome run(const ZBLMethodExp& statement);
    Outcome create(const ZBLCreateExp& statement);
    // The statement whose sprite and numbers are known.
    Outcome act(Action action, ZBSprite& sprite, int line);
    Outcome act(Action action, ZBSprite& sprite, double amount, int line);
    Outcome place(Action action, ZBSprite& sprite, double x, double y, double z, int line);

private:
    Outcome onSprite(const ZBLMethodExp& statement);
    Outcome withValue(const ZBLMethodExp& statement);
    Outcome withPlace(const ZBLMethodExp& statement);
    Outcome rebound(const ZBLMethodExp& statement);
    Outcome onGame(const ZBLMethodExp& statement);
    Outcome failNoCounter(const ZBLMethodExp& statement);
    Outcome afterMove(ZBSprite& sprite, int line);
    Outcome afterTurn(const ZBSprite& sprite, int line);
    Outcome setBackground(const ZBLValueExp& name, int line);
    Outcome setMap(const ZBLValueExp& name, int line);
    Outcome setMusic(const ZBLValueExp& name, int line);

    Outcome createClass(const ZBLCreateExp& statement, ZBSprite& wanted);
    Outcome createNumber(const ZBLCreateExp& statement, ZBLCreateExp::Operand which, std::string_view what,
                         double& number);
    Outcome createGraphic(const ZBLCreateExp& statement, Text& name);
    std::shared_ptr<const ZBGraphic> getGraphic(std::string_view name);

    RunState& m_run;
    FaultList& m_faults;
    Evaluator& m_evaluator;
    Events& m_events;
    GameAssets& m_assets;
};
