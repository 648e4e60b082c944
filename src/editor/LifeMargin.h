// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class CodeView;
class QTextBlock;
class RunLines;

/// Beside each line of a program how the last run went through it, by shape and color; and an arrow at the
/// line that is about to run at the moment that is looked at.
class LifeMargin : public QWidget
{
    Q_OBJECT

public:
    LifeMargin(CodeView& view, const RunLines& lines);

    /// Of the line that is about to run: quiet enough to read the text on it.
    static QColor bandColor(const QPalette& palette);
    int wishedWidth() const;
    /// What the text box has done to a part of itself: moved it up or down, or else painted it anew.
    void follow(const QRect& part, int movedBy);

Q_SIGNALS:
    /// The mark of a line of the run was clicked.
    void lineAsked(int line);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int markedLineAt(const QPointF& place) const;
    QString tipAt(const QPoint& place) const;

    CodeView& m_view;
    const RunLines& m_lines;
    int m_pressedLine = 0;
};
