// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "library/BackgroundPreviews.h"

#include "forms/Icons.h"
#include "library/GamePictures.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>
#include <QToolButton>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

BackgroundPreviews::BackgroundPreviews(std::function<QPixmap(const QString& name)> read, QWidget* parent)
    : QWidget(parent)
    , m_read(std::move(read))
    , m_scroll(new QScrollBar(Qt::Horizontal, this))
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    for (int index = 0; index < previews; ++index) {
        addPreview(index);
        grid->addWidget(m_showBackground[static_cast<std::size_t>(index)], 0, index);
        grid->addWidget(m_showBackgroundTitle[static_cast<std::size_t>(index)], 1, index);
    }
    m_scroll->setObjectName(u"BackgroundScroll");
    m_scroll->setAccessibleName(u"First background shown"_s);
    m_scroll->setFocusPolicy(Qt::StrongFocus);
    m_scroll->setPageStep(previews);
    m_scroll->setFixedHeight(18);
    grid->addWidget(m_scroll, 2, 0, 1, previews);
    connect(m_scroll, &QScrollBar::valueChanged, this, &BackgroundPreviews::BackgroundScroll_Change);
}

void BackgroundPreviews::addPreview(int index)
{
    auto* picture = new QToolButton(this);
    picture->setObjectName(u"ShowBackground_%1"_s.arg(index));
    forms::letEnterPress(*picture);
    connect(picture, &QAbstractButton::clicked, this,
            [this, index] { Q_EMIT picked(m_scroll->value() + index); });
    auto* title = new QLabel(this);
    title->setObjectName(u"ShowBackgroundTitle_%1"_s.arg(index));
    title->setAlignment(Qt::AlignHCenter);
    m_showBackground[static_cast<std::size_t>(index)] = picture;
    m_showBackgroundTitle[static_cast<std::size_t>(index)] = title;
    setPictureSize(index, pictureSize);
}

void BackgroundPreviews::setPictureSize(int index, QSize size)
{
    QToolButton& picture = *m_showBackground[static_cast<std::size_t>(index)];
    picture.setIconSize(size);
    picture.setFixedSize(size + QSize(16, 16));
    m_showBackgroundTitle[static_cast<std::size_t>(index)]->setFixedWidth(picture.width());
}

void BackgroundPreviews::shrinkBy(int width)
{
    constexpr int narrowest = 60;
    const int pictureWidth = std::max(narrowest, pictureSize.width() - (width + previews - 1) / previews);
    const QSize size = pictureSize.scaled(pictureWidth, pictureSize.height(), Qt::KeepAspectRatio);
    for (int index = 0; index < previews; ++index)
        setPictureSize(index, size);
    BackgroundScroll_Change(); // titles are cut to their width
}

void BackgroundPreviews::setNames(const QStringList& names)
{
    m_names = names;
    m_pictures.clear();
    m_scroll->setMaximum(std::max(0, static_cast<int>(names.size()) - previews));
    BackgroundScroll_Change();
}

void BackgroundPreviews::bringIntoView(int row)
{
    m_scroll->setValue(std::clamp(m_scroll->value(), row - previews + 1, row));
}

void BackgroundPreviews::BackgroundScroll_Change()
{
    for (int index = 0; index < previews; ++index)
        showPreview(index);
}

void BackgroundPreviews::showPreview(int index)
{
    QToolButton& picture = *m_showBackground[static_cast<std::size_t>(index)];
    QLabel& title = *m_showBackgroundTitle[static_cast<std::size_t>(index)];
    const QString name = m_names.value(m_scroll->value() + index);
    picture.setIcon(name.isEmpty() ? QPixmap() : pictureOf(name));
    picture.setEnabled(!name.isEmpty());
    picture.setAccessibleName(name.isEmpty() ? u"No background"_s : name);
    title.setToolTip(name);
    title.setText(title.fontMetrics().elidedText(name, Qt::ElideMiddle, title.width()));
}

QPixmap BackgroundPreviews::pictureOf(const QString& name)
{
    if (!m_pictures.contains(name)) {
        const QPixmap picture = m_read(name);
        const QSize square(pictureSize.height(), pictureSize.height());
        m_pictures.insert(name, picture.isNull() ? crossedBox(square) : picture);
    }
    return m_pictures.value(name);
}
