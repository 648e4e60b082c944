// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/FilmStrip.h"

#include "platform/qt/SurfaceImage.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int side = 72; // of a picture, in pixels
constexpr int gap = 4;
constexpr int fewest = 4;
constexpr int usual = 6;

} // namespace

FilmStrip::FilmStrip(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(u"Strip"_s);
    setAccessibleName(u"Pictures of the run"_s);
    setToolTip(u"Click a picture to go there"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_work.callOnTimeout(this, &FilmStrip::makeNext);
}

QSize FilmStrip::sizeHint() const
{
    return {usual * (side + gap) - gap, side};
}

QSize FilmStrip::minimumSizeHint() const
{
    return {fewest * (side + gap) - gap, side};
}

void FilmStrip::show(const Recording* recording, PictureReader* pictures)
{
    m_recording = recording;
    m_replay = recording && !recording->isEmpty() ? std::make_unique<Replay>(*recording, *pictures) : nullptr;
    m_frames = m_replay ? recording->frames() : 0;
    restart();
}

void FilmStrip::restart()
{
    m_pictures.clear();
    update();
    if (m_replay)
        m_work.start(0);
    else
        m_work.stop();
}

int FilmStrip::cells() const
{
    return std::max((width() + gap) / (side + gap), 1);
}

QRect FilmStrip::cell(int index) const
{
    // From the left edge to the right one, under the slider.
    const int room = width() - side;
    const int x = cells() > 1 ? room * index / (cells() - 1) : 0;
    return {x, 0, side, side};
}

qint64 FilmStrip::frameOf(int index) const
{
    // Before the first frame there is nothing to be seen.
    return cells() > 1 ? std::max(m_frames * index / (cells() - 1), std::min<qint64>(m_frames, 1)) : m_frames;
}

void FilmStrip::makeNext()
{
    const int next = static_cast<int>(m_pictures.size());
    if (!m_replay || next >= cells() || !m_replay->seek({frameOf(next), 0})) {
        m_work.stop();
        return;
    }
    const int pixels = static_cast<int>(side * devicePixelRatioF());
    m_pictures.push_back(viewOfSurface(m_replay->picture())
                             .scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    update(cell(next));
}

void FilmStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (int i = 0; i < cells(); ++i) {
        const QRect place = cell(i);
        if (i < static_cast<int>(m_pictures.size()))
            painter.drawImage(place, m_pictures[static_cast<std::size_t>(i)]);
        else
            painter.fillRect(place, palette().alternateBase());
        painter.setPen(palette().mid().color());
        painter.drawRect(place.adjusted(0, 0, -1, -1));
    }
}

void FilmStrip::mousePressEvent(QMouseEvent* event)
{
    for (int i = 0; i < cells(); ++i)
        if (cell(i).contains(event->position().toPoint()) && m_replay)
            Q_EMIT frameChosen(frameOf(i));
}

void FilmStrip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    restart();
}
