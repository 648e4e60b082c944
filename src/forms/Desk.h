// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/LineMarks.h"
#include "platform/Installation.h"
#include "platform/PictureReader.h"
#include "runtime/Ports.h"
#include "runtime/ZB.h"

#include <QString>

#include <functional>
#include <string>
#include <vector>

class QWidget;

/// The code editor as the other windows see it.
class CodeEditorForm : public CodeEditorPort
{
public:
    /// Loads a program text by its product path ("games\00000001\code.txt") and shows the window. False where
    /// it cannot be read; the window is then hidden.
    virtual bool LoadFile(const QString& productPath) = 0;
    /// Writes the text to its file. False where that failed (the user has been told).
    virtual bool saveFile() = 0;
    /// The whole text, lines separated by CR LF.
    virtual std::string text() const = 0;
    virtual bool isModified() const = 0;
    /// Closes the window for good (sets AllowClose first) and deletes it later.
    virtual void closeForGood() = 0;
    virtual QWidget* widget() = 0;

    /// The text as it is now is what is about to run: marks, moments and questions count its lines, whatever
    /// is changed in the text box from now on. What was shown of the run before goes.
    virtual void runBegins() = 0;
    /// Shows beside each line how the run went through it; the first mark is that of line 1. None at all take
    /// the margin away.
    virtual void showLineMarks(std::vector<LineMark> marks) = 0;
    /// Shows the line that is about to run at the moment that is looked at, 0 for none, and brings it into
    /// view. Cursor and keyboard stay where they are.
    virtual void showMomentAt(int line) = 0;
    /// Who is told when the mark of a line is clicked.
    virtual void setLineAsked(std::function<void(int line)> lineAsked) = 0;
};

/// What a window asks of the program around it: the shared state and the other windows. The program
/// implements it; tests hand in a pretended one.
class Desk
{
public:
    virtual ~Desk() = default;

    virtual ZB& module() = 0;
    virtual const Installation& installation() = 0;
    virtual PictureReader& pictures() = 0;
    /// Shows a progress message in the progress window, repainted at once.
    virtual void LogProgress(const QString& message) = 0;

    /// Opens a fresh library window (ZorbinoMain).
    virtual void showLibrary() = 0;
    /// Opens the game editor for CurrentGame.
    virtual void showGameEditor() = 0;
    virtual void showMapEditor() = 0;
    virtual void showSpriteEditor(const QString& graphicName) = 0; ///< empty: a new graphic of CurrentGame
    virtual void showProperties() = 0;
    virtual void showResources() = 0;
    /// Closes properties, resources and sprite editor of the current game. False where the user wants to stay
    /// (unsaved sprites).
    virtual bool closeGameWindows() = 0;
    /// Whether files of the current game may be written: asks, once, where somebody else works on it too.
    virtual bool mayChangeGame(QWidget* /*parent*/) { return true; }
    /// A new, hidden code editor for a game, owned by the caller until closeForGood().
    virtual CodeEditorForm* createCodeEditor(const GameRecord& game) = 0;
    /// The title of CurrentGame has changed: captions follow.
    virtual void gameTitleChanged() = 0;
    /// Ends the program at once.
    virtual void exitProgram() = 0;
};
