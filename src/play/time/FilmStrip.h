// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PictureReader.h"
#include "recording/Replay.h"

#include <QImage>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <vector>

/// A strip of small pictures of a whole run, made one by one while nothing else is to be done. A click goes
/// to the moment of a picture.
class FilmStrip : public QWidget
{
    Q_OBJECT
public:
    explicit FilmStrip(QWidget* parent = nullptr);

    /// Shows that run as it is now. It must stay until the next call; null: nothing.
    void show(const Recording* recording, PictureReader* pictures);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void frameChosen(qint64 frame);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void restart();
    void makeNext();
    int cells() const;
    QRect cell(int index) const;
    qint64 frameOf(int index) const;

    const Recording* m_recording = nullptr;
    std::unique_ptr<Replay> m_replay;
    std::vector<QImage> m_pictures;
    qint64 m_frames = 0;
    QTimer m_work;
};
