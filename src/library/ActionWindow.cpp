// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/ActionWindow.h"

#include "library/TileArea.h"
#include "library/TrayLayout.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

using namespace Qt::StringLiterals;

constexpr const char* helpProperty = "helpText";
constexpr int margin = 16;
constexpr int narrowest = 420;

} // namespace

ActionWindow::ActionWindow(int tileWidth, QWidget* library)
    : QFrame(library)
    , m_gamePicture(new TileArea("GamePicture", tileWidth, this))
    , m_help(new QLabel(this))
    , m_buttons(new QVBoxLayout)
{
    setObjectName(u"ActionWindow"_s);
    setAccessibleName(u"The game that you picked"_s);
    setStyleSheet(u"#ActionWindow { background: palette(window); border: 2px solid "
                  "palette(highlight); border-radius: 14px; }"_s);
    m_gamePicture->setAccessibleName(u"Picture of the game"_s);
    m_gamePicture->setFixedSize(firstTileLeft + tileWidth, m_gamePicture->sizeHint().height());
    m_help->setObjectName(u"Help"_s);
    m_help->setWordWrap(true);
    m_help->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_help->setFixedHeight(m_help->fontMetrics().lineSpacing() * 2 + 4); // 4: lines are rounded up
    m_buttons->setSpacing(8);

    auto* upper = new QHBoxLayout;
    upper->setSpacing(16);
    upper->addWidget(m_gamePicture, 0, Qt::AlignVCenter);
    upper->addLayout(m_buttons);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, 8);
    column->setSpacing(8);
    column->addLayout(upper);
    column->addWidget(m_help);
    explain(this, QString());
    explain(m_gamePicture, QString());
    hide();
}

QAbstractButton* ActionWindow::addAction(const forms::ActionRow& row, const QString& help)
{
    auto* button = new QPushButton(this);
    forms::setUpButton(*button, row);
    button->setAccessibleDescription(help);
    button->setIconSize(QSize(32, 24)); // with some room beside the caption
    explain(button, help);
    m_buttons->addWidget(button);
    if (m_firstButton == nullptr)
        m_firstButton = button;
    m_longestHelp = std::max(m_longestHelp, m_help->fontMetrics().horizontalAdvance(help));
    return button;
}

void ActionWindow::takeWidth(int room)
{
    // Half of the longest help and a word more, so that two lines hold it in a large font too.
    setMinimumWidth(std::clamp(m_longestHelp * 5 / 8 + 2 * margin, narrowest, room - 2 * margin));
}

void ActionWindow::open()
{
    m_sinceOpened.start();
    m_help->clear();
    centre();
    show();
    raise();
    m_firstButton->setFocus();
}

void ActionWindow::centre()
{
    adjustSize();
    move((parentWidget()->width() - width()) / 2, (parentWidget()->height() - height()) / 2);
}

void ActionWindow::explain(QWidget* control, const QString& help)
{
    control->setProperty(helpProperty, help);
    control->setMouseTracking(true);
    control->installEventFilter(this);
}

bool ActionWindow::eventFilter(QObject* watched, QEvent* event)
{
    // The second half of a double click on a tile falls on the panel that has come up: it means no button.
    if (event->type() == QEvent::MouseButtonDblClick &&
        m_sinceOpened.elapsed() < QApplication::doubleClickInterval())
        return true;
    if (event->type() == QEvent::MouseMove) {
        // A button passes its moves on to the panel behind it, which means only its bare places.
        const auto* control = static_cast<QWidget*>(watched);
        if (control->childAt(static_cast<QMouseEvent*>(event)->position().toPoint()) == nullptr)
            m_help->setText(control->property(helpProperty).toString());
    }
    return QFrame::eventFilter(watched, event);
}
