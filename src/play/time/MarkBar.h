// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "recording/RunIndex.h"

#include <QWidget>

#include <vector>

/// Ticks above the slider where something happened: a shape and a color for each kind of it. A click goes to
/// the nearest.
class MarkBar : public QWidget
{
    Q_OBJECT
public:
    explicit MarkBar(QWidget* parent = nullptr);

    /// `frames` is the length of the slider below, `inset` the half width of its handle.
    void show(std::vector<RunIndex::Mark> marks, std::int64_t frames, int inset);

    QSize sizeHint() const override { return {200, 16}; }

Q_SIGNALS:
    void momentChosen(Moment moment);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

private:
    int placeOf(const RunIndex::Mark& mark) const;
    const RunIndex::Mark* nearest(int x) const;

    std::vector<RunIndex::Mark> m_marks;
    std::int64_t m_frames = 0;
    int m_inset = 0;
};
