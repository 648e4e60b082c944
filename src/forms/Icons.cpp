// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/Icons.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QImageReader>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>

// Outside every namespace: that is where the resource compiler puts its function.
static void loadIcons()
{
    Q_INIT_RESOURCE(ui);
}

namespace
{

using namespace Qt::StringLiterals;

QString drawingFile(const char* name)
{
    return u":/ui/%1.svg"_s.arg(QLatin1StringView(name));
}

/// The drawing in `file`, as large as `pixels` allows, in the middle of a picture of that size.
QImage drawingOf(const QString& file, QSize pixels)
{
    QImageReader reader(file, "svg"); // reads the drawing once; an icon made of the file would read it twice
    reader.setScaledSize(reader.size().scaled(pixels, Qt::KeepAspectRatio));
    const QImage image = reader.read();
    QImage drawing(pixels, QImage::Format_ARGB32_Premultiplied);
    drawing.fill(Qt::transparent);
    QPainter(&drawing).drawImage((pixels.width() - image.width()) / 2, (pixels.height() - image.height()) / 2,
                                 image);
    return drawing;
}

QString cacheKey(const QString& file, QSize pixels, QIcon::Mode mode)
{
    return u"%1 %2 %3 %4"_s.arg(file).arg(pixels.width()).arg(pixels.height()).arg(mode);
}

/// A drawing that is read when it is first shown. Windows have dozens of icons, most of them in menus and
/// panels that are still closed when the window must be there.
class DrawnIcon : public QIconEngine
{
public:
    explicit DrawnIcon(const QString& file)
        : m_file(file)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap((QSizeF(rect.size()) * scale).toSize(), mode, state));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        const QString key = cacheKey(m_file, size, mode);
        QPixmap drawn;
        if (!QPixmapCache::find(key, &drawn)) {
            drawn = draw(size, mode);
            QPixmapCache::insert(key, drawn);
        }
        return drawn;
    }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    /// Asked for by title bars and task bars only, which make of it what they need.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override { return {{48, 48}}; }
    QIconEngine* clone() const override { return new DrawnIcon(*this); }
    bool isNull() override { return false; }

private:
    QPixmap draw(const QSize& size, QIcon::Mode mode) const
    {
        QPixmap drawn = QPixmap::fromImage(drawingOf(m_file, size));
        if (mode != QIcon::Disabled)
            return drawn;
        QStyleOption option;
        option.palette = QApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, drawn, &option);
    }

    QString m_file;
};

/// Takes Enter for a button that has the focus.
class EnterPresses : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (!enter || (key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
            return false;
        if (!key->isAutoRepeat()) // one that is held down comes from another window
            static_cast<QAbstractButton*>(watched)->click();
        return true;
    }
};

QString withoutMnemonic(QString caption)
{
    return caption.remove(u'&');
}

} // namespace

namespace forms
{

QIcon icon(const char* name)
{
    loadIcons();
    const QString file = drawingFile(name);
    Q_ASSERT(QFile::exists(file));
    return QIcon(new DrawnIcon(file));
}

QImage drawIcon(const char* name, QSize pixels)
{
    loadIcons();
    return drawingOf(drawingFile(name), pixels);
}

void keepIcon(const char* name, const QImage& drawing)
{
    QPixmapCache::insert(cacheKey(drawingFile(name), drawing.size(), QIcon::Normal),
                         QPixmap::fromImage(drawing));
}

void setUpButton(QAbstractButton& button, const char* objectName, const char* iconName, const QString& tip)
{
    button.setObjectName(QLatin1StringView(objectName));
    button.setIcon(icon(iconName));
    button.setToolTip(tip);
    const QString caption = withoutMnemonic(button.text());
    button.setAccessibleName(caption.isEmpty() ? tip : caption);
    letEnterPress(button);
}

void letEnterPress(QAbstractButton& button)
{
    button.installEventFilter(new EnterPresses(&button));
}

} // namespace forms
