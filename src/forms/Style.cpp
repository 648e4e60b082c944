// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/Style.h"

#include "forms/Icons.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleFactory>
#include <QWidget>

#include <algorithm>
#include <optional>

namespace
{

using namespace Qt::StringLiterals;

constexpr qreal smallestFont = 11;

struct Shade {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

// clang-format off
constexpr Shade shades[] = {
    {QPalette::Window,          0xfff3f5fa, 0xff262a33},
    {QPalette::WindowText,      0xff20242e, 0xffe9ecf2},
    {QPalette::Base,            0xffffffff, 0xff1b1e25},
    {QPalette::AlternateBase,   0xfff0f3f9, 0xff22262f},
    {QPalette::Text,            0xff20242e, 0xffe9ecf2},
    {QPalette::PlaceholderText, 0xff737b8c, 0xff939bab},
    {QPalette::Button,          0xffffffff, 0xff363c48},
    {QPalette::ButtonText,      0xff20242e, 0xffe9ecf2},
    {QPalette::BrightText,      0xffffffff, 0xffffffff},
    {QPalette::Light,           0xffffffff, 0xff4a5160},
    {QPalette::Midlight,        0xffe9edf5, 0xff3d4350},
    {QPalette::Mid,             0xffb9c1d0, 0xff4d5463},
    {QPalette::Dark,            0xff98a1b3, 0xff171a20},
    {QPalette::Shadow,          0xff6b7385, 0xff0e1014},
    {QPalette::Highlight,       0xff2f6fd6, 0xff3d7be0},
    {QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    {QPalette::Link,            0xff1f5fc4, 0xff82b1ff},
    {QPalette::LinkVisited,     0xff7442b8, 0xffc3a2f2},
    {QPalette::ToolTipBase,     0xfffff7d6, 0xff3d4350},
    {QPalette::ToolTipText,     0xff20242e, 0xffe9ecf2},
};
// clang-format on

QPalette ourPalette(bool dark)
{
    QPalette palette;
    for (const Shade& shade : shades)
        palette.setColor(shade.role, QColor(dark ? shade.dark : shade.light));
    const QColor faint = dark ? QColor(0x7c, 0x84, 0x94) : QColor(0x9a, 0xa2, 0xb1);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    palette.setColor(QPalette::Disabled, QPalette::Highlight,
                     dark ? QColor(0x4d, 0x54, 0x63) : QColor(0xb9, 0xc1, 0xd0));
    return palette;
}

/// Soft, rounded buttons with a focus that can be seen; everything else is left to the style below. The
/// border has the same width with and without focus, so that nothing moves. A word with @ stands for a color.
constexpr auto sheet = R"(
QPushButton, QToolButton {
    border: 2px solid @border; border-radius: 9px; padding: 5px 10px;
    background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 @top, stop:1 @bottom);
}
QPushButton { padding: 5px 16px; } /* no min-width here: it would take the place of what the caption needs */
QPushButton:hover, QToolButton:hover { border-color: @hover; background: @lit; }
QPushButton:pressed, QToolButton:pressed, QPushButton:checked, QToolButton:checked {
    border-color: @accent; background: @down;
}
QPushButton:focus, QToolButton:focus { border-color: @accent; outline: none; } /* one ring is enough */
QPushButton:disabled, QToolButton:disabled { border-color: @faint; background: transparent; }
EditorBars QToolButton, GameEditor QToolButton { padding: 5px 4px; } /* windows that have to fit beside others */
QToolBar QToolButton { padding: 3px; border-radius: 7px; }
QFileDialog QToolButton { padding: 2px; border-radius: 5px; } /* small ones: more leaves no room for the icon */
QToolBar QToolButton:!hover:!pressed:!checked:!focus { border-color: transparent; background: transparent; }
QToolBar { spacing: 2px; padding: 3px; border: none; }
QCheckBox::indicator, QRadioButton::indicator {
    width: 18px; height: 18px; border: 2px solid @outline; border-radius: 6px; background: @base;
}
QRadioButton::indicator { border-radius: 11px; }
QCheckBox::indicator:hover, QRadioButton::indicator:hover { border-color: @hover; }
QCheckBox::indicator:focus, QRadioButton::indicator:focus { border-color: @accent; background: @down; }
QCheckBox::indicator:checked { image: url(:/ui/ok.svg); }
QRadioButton::indicator:checked {
    background: qradialgradient(cx:0.5, cy:0.5, radius:0.5, fx:0.5, fy:0.5, stop:0.5 @accent, stop:0.6 @base);
}
QCheckBox::indicator:disabled, QRadioButton::indicator:disabled { border-color: @faint; }
QListView, QLineEdit { border: 2px solid @outline; border-radius: 6px; padding: 2px; background: @base; }
QListView:focus, QLineEdit:focus { border-color: @accent; }
QListView:disabled, QLineEdit:disabled { border-color: @faint; }
QCheckBox, QRadioButton { spacing: 8px; }
QSlider::groove:horizontal { height: 8px; border-radius: 4px; background: @groove; }
QSlider::sub-page:horizontal { border-radius: 4px; background: @accent; }
QSlider::handle:horizontal {
    width: 18px; height: 18px; margin: -7px 0; border: 2px solid @handle; border-radius: 11px; background: @top;
}
QSlider::handle:horizontal:hover { background: @lit; }
QSlider:focus { border: 2px solid @accent; border-radius: 9px; }
QSlider { border: 2px solid transparent; padding: 4px; min-height: 24px; }
QSlider::sub-page:horizontal:disabled { background: @groove; }
QToolTip { border: 1px solid @border; padding: 4px; color: @tiptext; background: @tip; }
)"_L1;

struct SheetColor {
    QLatin1StringView name;
    QLatin1StringView light;
    QLatin1StringView dark;
};

// The longer name first: "@tip" is the beginning of "@tiptext".
constexpr SheetColor sheetColors[] = {
    {"@border"_L1, "#c3cbdb"_L1, "#505868"_L1},  {"@top"_L1, "#ffffff"_L1, "#414856"_L1},
    {"@bottom"_L1, "#eef2fa"_L1, "#363c48"_L1},  {"@hover"_L1, "#8fb2ea"_L1, "#6f94cf"_L1},
    {"@lit"_L1, "#eaf2ff"_L1, "#454e60"_L1},     {"@down"_L1, "#d5e4fb"_L1, "#2d4a75"_L1},
    {"@accent"_L1, "#2f6fd6"_L1, "#6ea5ff"_L1},  {"@faint"_L1, "#dfe4ed"_L1, "#3a404c"_L1},
    {"@tiptext"_L1, "#20242e"_L1, "#e9ecf2"_L1}, {"@tip"_L1, "#fff7d6"_L1, "#3d4350"_L1},
    {"@outline"_L1, "#b3bccd"_L1, "#5f687a"_L1}, {"@base"_L1, "#ffffff"_L1, "#1b1e25"_L1},
    {"@groove"_L1, "#d6dce8"_L1, "#4d5463"_L1},  {"@handle"_L1, "#5b8dd6"_L1, "#8db4f5"_L1},
};

QString ourStyleSheet(bool dark)
{
    QString filled = sheet;
    for (const SheetColor& color : sheetColors)
        filled.replace(color.name, dark ? color.dark : color.light);
    return filled;
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

/// Puts our colors on, and puts them on again when the desktop changes between light and dark.
class ThemeFollower : public QObject
{
public:
    using QObject::QObject;

    void apply()
    {
        const QScopedValueRollback applying(m_applying, true);
        const bool dark = isDark(QApplication::palette());
        QApplication::setPalette(ourPalette(dark));
        QPalette scrollBars = ourPalette(dark);
        scrollBars.setColor(QPalette::Button,
                            QColor(dark ? 0xff5f687a : 0xffc3cbdb)); // a handle that is seen
        QApplication::setPalette(scrollBars, "QScrollBar");
        if (m_dark == dark)
            return;
        m_dark = dark;
        qApp->setStyleSheet(ourStyleSheet(dark));
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ThemeChange && !m_applying) {
            const QScopedValueRollback applying(m_applying, true);
            QApplication::setPalette(QPalette()); // lets the desktop's own colors show again
            apply();
        } else if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp && !m_applying) {
            apply();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_applying = false;
    std::optional<bool> m_dark;
};

} // namespace

namespace forms
{

QFont fixedFont(int points)
{
    QFont font;
    font.setFamilies({u"Courier New"_s, u"Liberation Mono"_s, u"Cousine"_s, u"DejaVu Sans Mono"_s});
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

void setUpApplication()
{
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QFont font = QApplication::font();
    if (font.pointSizeF() > 0)
        font.setPointSizeF(std::max(font.pointSizeF(), smallestFont));
    QApplication::setFont(font);
    QApplication::setWindowIcon(icon("zorbino"));
    auto* follower = new ThemeFollower(qApp);
    follower->apply();
    qApp->installEventFilter(follower);
}

} // namespace forms
