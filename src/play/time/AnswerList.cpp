// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/AnswerList.h"

#include "forms/Texts.h"

#include <QStringListModel>

AnswerList::AnswerList(const char* name, const QString& accessibleName)
    : m_model(new QStringListModel(this))
{
    setObjectName(QLatin1String(name));
    setAccessibleName(accessibleName);
    setEditTriggers(NoEditTriggers);
    setWordWrap(true);
    setResizeMode(Adjust);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setModel(m_model);
    connect(this, &QListView::clicked, this, &AnswerList::choose);
    connect(this, &QListView::activated, this, &AnswerList::choose);
}

void AnswerList::show(std::vector<Line> lines)
{
    m_lines = std::move(lines);
    QStringList texts;
    for (const Line& line : m_lines)
        texts.append(forms::fromUtf8(line.text));
    m_model->setStringList(texts);
}

void AnswerList::choose(const QModelIndex& index)
{
    if (index.isValid())
        Q_EMIT chosen(m_lines[static_cast<std::size_t>(index.row())]);
}
