#include "forms/Forms.h"

#include "platform/qt/SurfaceImage.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QImageReader>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>

#include <future>
#include <map>

// Outside every namespace: that is where the resource compiler puts its function.
static void loadIcons()
{
    Q_INIT_RESOURCE(ui);
}

namespace
{

/// The drawing in `file`, as large as `size` allows.
QImage drawingOf(const QString& file, QSize size)
{
    QImageReader reader(file, "svg"); // reads the drawing once; an icon made of the file would read it twice
    reader.setScaledSize(reader.size().scaled(size, Qt::KeepAspectRatio));
    return reader.read();
}

QString drawingFile(const char* name)
{
    return QStringLiteral(":/ui/%1.svg").arg(QLatin1String(name));
}

/// Drawings that were begun before anybody needed them.
struct DrawnAhead {
    QSize size;
    std::map<QString, std::shared_future<QImage>> drawings;
};

DrawnAhead& drawnAhead()
{
    static DrawnAhead ahead;
    return ahead;
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
        const QString key =
            QStringLiteral("%1 %2 %3 %4").arg(m_file).arg(size.width()).arg(size.height()).arg(mode);
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
        const auto ahead = drawnAhead().drawings.find(m_file);
        const bool known = size == drawnAhead().size && ahead != drawnAhead().drawings.end();
        const QImage image = known ? ahead->second.get() : drawingOf(m_file, size);
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter(&drawn).drawImage((size.width() - image.width()) / 2, (size.height() - image.height()) / 2,
                                   image);
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

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string toUtf8(const QString& text)
{
    return text.toStdString();
}

QString withoutEndlessLines(const QString& text)
{
    constexpr qsizetype longest = 3000;
    QString cut;
    for (const QStringView line : QStringView(text).split(u'\n')) {
        cut += line.left(longest);
        if (line.size() > longest)
            cut += QStringLiteral("...");
        cut += u'\n';
    }
    cut.chop(1);
    return cut;
}

QIcon icon(const char* name)
{
    loadIcons();
    const QString file = drawingFile(name);
    Q_ASSERT(QFile::exists(file));
    return QIcon(new DrawnIcon(file));
}

void drawAhead(const std::vector<const char*>& names, QSize size)
{
    loadIcons();
    drawnAhead().size = (QSizeF(size) * qApp->devicePixelRatio()).toSize();
    for (const char* name : names) {
        const QString file = drawingFile(name);
        drawnAhead().drawings[file] = std::async(std::launch::async, drawingOf, file, drawnAhead().size);
    }
}

void dressButton(QAbstractButton& button, const char* objectName, const char* iconName, const QString& tip)
{
    button.setObjectName(QLatin1String(objectName));
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

QFont fixedFont(int points)
{
    QFont font;
    font.setFamilies({QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"),
                      QStringLiteral("Cousine"), QStringLiteral("DejaVu Sans Mono")});
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setPointSize(points);
    return font;
}

void bringUp(QWidget& window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

PictureArea::PictureArea(const char* objectName, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QLatin1String(objectName));
    setAccessibleName(QLatin1String(objectName));
    setAttribute(Qt::WA_OpaquePaintEvent); // paintEvent covers every pixel, nothing has to be cleared before
}

void PictureArea::showSurface(const Surface* surface)
{
    m_surface = surface;
    update();
}

void PictureArea::paintEvent(QPaintEvent* event)
{
    const QRect picture =
        m_surface == nullptr ? QRect() : QRect(0, 0, m_surface->width(), m_surface->height());
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    const QRect part = event->rect().intersected(picture);
    if (!part.isEmpty())
        painter.drawImage(part, viewOfSurface(*m_surface), part);
    if (part == event->rect())
        return;
    for (const QRect& bare : QRegion(event->rect()).subtracted(part))
        painter.fillRect(bare, palette().window());
}

} // namespace forms
