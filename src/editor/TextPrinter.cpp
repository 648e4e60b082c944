// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/TextPrinter.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextLayout>

namespace
{

/// A line is laid out in portions of this many characters: the time for a very long one then grows with its
/// length.
constexpr qsizetype longestPortion = 4000;

class PageWriter
{
public:
    PageWriter(QPagedPaintDevice& device, QPainter& painter, const QFont& font)
        : m_device(device)
        , m_painter(painter)
        , m_font(font, &device)
        , m_page(painter.viewport())
    {
    }

    /// False where the device refuses a new page.
    bool writeLine(const QString& line)
    {
        qsizetype done = 0;
        do {
            if (!writePortion(line.mid(done, longestPortion)))
                return false;
            done += longestPortion;
        } while (done < line.size());
        return true;
    }

private:
    bool writePortion(const QString& portion)
    {
        QTextLayout layout(portion, m_font, &m_device);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
            line.setLineWidth(m_page.width());
        layout.endLayout();
        for (int i = 0; i < layout.lineCount(); ++i) {
            if (!placeLine(layout.lineAt(i)))
                return false;
        }
        return true;
    }

    bool placeLine(const QTextLine& line)
    {
        if (m_y > 0 && m_y + line.height() > m_page.height()) {
            if (!m_device.newPage())
                return false;
            m_y = 0;
        }
        line.draw(&m_painter, QPointF(0, m_y));
        m_y += line.height();
        return true;
    }

    QPagedPaintDevice& m_device;
    QPainter& m_painter;
    QFont m_font;
    QRectF m_page;
    qreal m_y = 0;
};

} // namespace

bool printText(QPagedPaintDevice& device, const QString& text, const QFont& font)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    PageWriter writer(device, painter, font);
    bool isWritten = true;
    qsizetype start = 0;
    while (isWritten && start < text.size()) {
        const qsizetype found = text.indexOf(u'\n', start);
        const qsizetype end = found < 0 ? text.size() : found;
        isWritten = writer.writeLine(text.mid(start, end - start));
        start = end + 1;
    }
    const bool isEnded = painter.end();
    return isWritten && isEnded;
}
