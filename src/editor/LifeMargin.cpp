// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/LifeMargin.h"

#include "editor/CodeView.h"
#include "editor/RunLines.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

#include <array>

using namespace Qt::StringLiterals;

namespace
{

using Life = LineMark::Life;

struct Shade {
    QRgb light;
    QRgb dark;
};

constexpr Shade nowColor{0xff138a3d, 0xff4fd481};
constexpr Shade beforeColor{0xff4fa873, 0xff3f9a66};
constexpr Shade neverColor{0xffb06a00, 0xffe0a94a};
constexpr Shade cannotColor{0xff7d879a, 0xff8e97a8};
constexpr Shade momentColor{0xff2f6fd6, 0xff82b1ff};

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < 128;
}

QColor inShade(const Shade& shade, const QPalette& palette)
{
    return QColor(isDark(palette) ? shade.dark : shade.light);
}

/// Draws the marks of lines. Their sizes are parts of the margin's width, which follows the letters.
class MarkPainter
{
public:
    MarkPainter(QPainter& painter, const QPalette& palette, qreal width)
        : m_painter(painter)
        , m_palette(palette)
        , m_width(width)
    {
        painter.setRenderHint(QPainter::Antialiasing);
    }

    void draw(Life life, const QRectF& line)
    {
        switch (life) {
        case Life::None:
            return;
        case Life::RanNow:
            return drawNow(line);
        case Life::RanBefore:
            return drawBar(line, m_width / 7, beforeColor);
        case Life::NeverRan:
            return drawNever(line);
        case Life::CannotRun:
            return drawCross(line);
        }
    }

    void drawMoment(const QRectF& line)
    {
        const QPointF middle = middleOf(line);
        const qreal half = m_width * 0.46;
        const std::array<QPointF, 3> arrow{middle + QPointF(-half, -half), middle + QPointF(half, 0),
                                           middle + QPointF(-half, half)};
        QPen edge(m_palette.color(QPalette::Base), m_width / 9); // sets it off from the mark below
        edge.setJoinStyle(Qt::RoundJoin);
        m_painter.setPen(edge);
        m_painter.setBrush(inShade(momentColor, m_palette));
        m_painter.drawPolygon(arrow.data(), static_cast<int>(arrow.size()));
    }

private:
    QPointF middleOf(const QRectF& line) const { return {m_width / 2, line.center().y()}; }

    void drawBar(const QRectF& line, qreal width, const Shade& shade)
    {
        m_painter.fillRect(QRectF((m_width - width) / 2, line.top(), width, line.height()),
                           inShade(shade, m_palette));
    }

    void drawNow(const QRectF& line)
    {
        drawBar(line, m_width * 0.3, nowColor);
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(inShade(nowColor, m_palette));
        m_painter.drawEllipse(middleOf(line), m_width * 0.32, m_width * 0.32);
    }

    void drawNever(const QRectF& line)
    {
        const qreal width = m_width * 0.43;
        QPen dashes(inShade(neverColor, m_palette), m_width / 10);
        dashes.setDashPattern({2, 1.5});
        m_painter.setPen(dashes);
        m_painter.setBrush(Qt::NoBrush);
        const QRectF box((m_width - width) / 2, line.top() + 2, width, line.height() - 4);
        m_painter.drawRoundedRect(box, width / 3, width / 3);
    }

    void drawCross(const QRectF& line)
    {
        const QPointF middle = middleOf(line);
        const qreal arm = m_width * 0.21;
        m_painter.setPen(QPen(inShade(cannotColor, m_palette), m_width / 10, Qt::SolidLine, Qt::RoundCap));
        m_painter.drawLine(middle - QPointF(arm, arm), middle + QPointF(arm, arm));
        m_painter.drawLine(middle - QPointF(arm, -arm), middle + QPointF(arm, -arm));
    }

    QPainter& m_painter;
    const QPalette& m_palette;
    qreal m_width;
};

/// A tip is plain text, whatever a program calls its things.
QString asPlainTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

} // namespace

LifeMargin::LifeMargin(CodeView& view, const RunLines& lines)
    : QWidget(&view)
    , m_view(view)
    , m_lines(lines)
{
    setObjectName(u"Margin"_s);
    setAccessibleName(u"How the run went through each line"_s);
    setMouseTracking(true);
    hide();
}

QColor LifeMargin::bandColor(const QPalette& palette)
{
    QColor quiet = palette.color(QPalette::Highlight);
    quiet.setAlphaF(isDark(palette) ? 0.34F : 0.18F);
    return quiet;
}

int LifeMargin::wishedWidth() const
{
    constexpr qreal part = 0.77; // of a line's height
    return qRound(QFontMetricsF(m_view.font()).height() * part);
}

void LifeMargin::follow(const QRect& part, int movedBy)
{
    if (movedBy != 0)
        scroll(0, movedBy);
    else
        update(0, part.y(), width(), part.height());
}

int LifeMargin::markedLineAt(const QPointF& place) const
{
    const QTextBlock block = m_view.blockAt(qRound(place.y()));
    return m_lines.markAt(block).life == Life::None ? 0 : m_lines.lineAt(block);
}

QString LifeMargin::tipAt(const QPoint& place) const
{
    const QTextBlock block = m_view.blockAt(place.y());
    QStringList tips{m_lines.markAt(block).tip};
    if (m_lines.isMomentAt(block))
        tips.prepend(u"This line is about to run."_s);
    tips.removeAll(QString());
    return tips.join(u'\n');
}

bool LifeMargin::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), asPlainTip(tipAt(help->pos())), this);
    return true;
}

void LifeMargin::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().alternateBase());
    MarkPainter marks(painter, palette(), width());
    m_view.forEachSeenLine(event->rect(), [&](const QTextBlock& block, const QRectF& line) {
        const bool isMoment = m_lines.isMomentAt(block);
        if (isMoment)
            painter.fillRect(line, bandColor(palette()));
        marks.draw(m_lines.markAt(block).life, line);
        if (isMoment)
            marks.drawMoment(line);
    });
}

void LifeMargin::mousePressEvent(QMouseEvent* event)
{
    m_pressedLine = event->button() == Qt::LeftButton ? markedLineAt(event->position()) : 0;
}

void LifeMargin::mouseMoveEvent(QMouseEvent* event)
{
    setCursor(markedLineAt(event->position()) > 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void LifeMargin::mouseReleaseEvent(QMouseEvent* event)
{
    const bool isInside = rect().contains(event->position().toPoint());
    if (event->button() == Qt::LeftButton && isInside && m_pressedLine > 0 &&
        markedLineAt(event->position()) == m_pressedLine)
        Q_EMIT lineAsked(m_pressedLine);
}

void LifeMargin::wheelEvent(QWheelEvent* event)
{
    QCoreApplication::sendEvent(m_view.viewport(), event); // the text box hears only its own
}
