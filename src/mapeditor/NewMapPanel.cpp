// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "mapeditor/NewMapPanel.h"

#include "forms/Icons.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace
{

using namespace Qt::StringLiterals;

constexpr int usualSize = 4; // "16 x 16"
constexpr std::array<int, 10> sizes = {3, 5, 8, 10, 16, 25, 40, 50, 64, 75};
constexpr int smallestWidth = 260;

} // namespace

NewMapPanel::NewMapPanel(QWidget* parent)
    : QFrame(parent)
    , m_sizes(new QComboBox(this))
{
    setObjectName(u"NewMap"_s);
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    m_sizes->setObjectName(u"MapSizeBox"_s);
    m_sizes->setAccessibleName(u"Squares of the new map"_s);
    for (const int size : sizes)
        m_sizes->addItem(u"%1 x %1"_s.arg(size));
    m_sizes->setMaxVisibleItems(static_cast<int>(sizes.size()));
    auto* const question = new QLabel(u"How many &squares for the new map?"_s, this);
    question->setBuddy(m_sizes);
    auto* const create = new QPushButton(u"&Ok"_s, this);
    forms::setUpButton(*create, "CreateNewMap", "ok", u"Make the new map"_s);
    connect(create, &QPushButton::clicked, this, &NewMapPanel::answered);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(12);
    layout->addWidget(question);
    layout->addWidget(m_sizes);
    layout->addWidget(create);
}

void NewMapPanel::ask()
{
    m_sizes->setCurrentIndex(usualSize);
    show();
    raise();
    moveToMiddle();
    m_sizes->setFocus();
}

int NewMapPanel::squares() const
{
    return sizes[static_cast<std::size_t>(m_sizes->currentIndex())];
}

void NewMapPanel::moveToMiddle()
{
    QRect place({}, sizeHint().expandedTo(QSize(smallestWidth, 0)));
    place.moveCenter(parentWidget()->rect().center());
    setGeometry(place);
}
