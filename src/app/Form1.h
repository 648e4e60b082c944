// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QLineEdit;
class QPlainTextEdit;

/// A window for those who work on the language: reads a program file, shows what the parser says about it
/// and, where it says nothing, the listing of what was read. It belongs to no game and no other window opens
/// it.
class Form1 : public QWidget
{
public:
    Form1();

private:
    void ParseButton_Click();
    void LineButton_Click();

    QLineEdit* FileName;
    QPlainTextEdit* ProgramText; ///< the lines of the file
    QPlainTextEdit* Listing;     ///< the listing, or the message
};
