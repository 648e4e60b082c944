// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "play/time/AnswerList.h"
#include "recording/SpriteStory.h"

#include <QWidget>

class QLabel;

/// The card of a sprite: what it is, what became of it and why, each line with the way to its moment and to
/// its line of the program.
class CardPanel : public QWidget
{
    Q_OBJECT
public:
    CardPanel();

    void show(const SpriteCard& card);
    void clear();

Q_SIGNALS:
    void chosen(const AnswerList::Line& line);

private:
    QLabel* m_title;
    AnswerList* m_lines;
};
