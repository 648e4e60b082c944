// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/CardPanel.h"

#include "forms/Texts.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

CardPanel::CardPanel()
    : m_title(new QLabel)
    , m_lines(new AnswerList("Card", u"The story of a sprite"_s))
{
    setObjectName(u"CardPanel"_s);
    m_title->setObjectName(u"CardTitle"_s);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 6, 0, 0);
    layout->addWidget(m_title);
    layout->addWidget(m_lines, 1);
    connect(m_lines, &AnswerList::chosen, this, &CardPanel::chosen);
    clear();
}

void CardPanel::clear()
{
    m_title->setText(u"Pause the game, then click on a sprite in its picture."_s);
    m_lines->show({});
}

void CardPanel::show(const SpriteCard& card)
{
    m_title->setText(forms::fromUtf8(card.title));
    std::vector<AnswerList::Line> lines;
    for (const auto* part : {&card.facts, &card.deeds, &card.touches})
        for (const CardLine& line : *part)
            lines.push_back({line.text, line.line, line.moment});
    m_lines->show(std::move(lines));
}
