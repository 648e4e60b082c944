// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SettingsPanel.h"

#include "sprites/EditorSizes.h"
#include "sprites/SpriteModel.h"
#include "sprites/SpritePreview.h"

#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace
{

using namespace Qt::StringLiterals;

constexpr int largestSpinSide = 256;

struct KindRow {
    GraphicKind kind;
    const char16_t* name;
    const char16_t* hint;
};
constexpr std::array<KindRow, 3> kinds = {{
    {GraphicKind::Simple, u"Simple", u"A simple sprite shows its first frame."},
    {GraphicKind::Animated, u"Animated", u"An animated sprite shows its frames one after the other."},
    {GraphicKind::Rotating, u"Rotating",
     u"A rotating sprite turns with its direction: frame 1 looks right, the others go round by up and left."},
}};

/// A label as high as the longest hint needs, so that nothing moves when the kind changes.
QLabel* makeHint(QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setObjectName(u"KindHint"_s);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop);
    const QFontMetrics font = label->fontMetrics();
    const int width = std::max(184, font.averageCharWidth() * 24);
    int height = 0;
    for (const KindRow& row : kinds) {
        const QString hint = QString::fromUtf16(row.hint);
        height = std::max(height, font.boundingRect(0, 0, width, 9999, Qt::TextWordWrap, hint).height());
    }
    label->setFixedSize(width, height + 4);
    return label;
}

void showSide(QSpinBox& box, int side)
{
    const QSignalBlocker block(box);
    box.setMaximum(std::max(largestSpinSide, side)); // a large frame that others made stays as it is
    box.setValue(side);
}

} // namespace

SettingsPanel::SettingsPanel(SpriteModel& model, const EditorSizes& sizes, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_preview(new SpritePreview(model, sizes.preview, this))
    , m_kind(makeKinds())
    , m_width(makeSide("FrameWidth", u"Width of a frame"_s))
    , m_height(makeSide("FrameHeight", u"Height of a frame"_s))
    , m_hint(makeHint(this))
{
    m_hint->setVisible(sizes.hint);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(new QLabel(u"In the game"_s, this));
    layout->addWidget(m_preview, 0, Qt::AlignHCenter);
    layout->addLayout(makeForm());
    layout->addWidget(m_hint);
    layout->addStretch(1);
}

QComboBox* SettingsPanel::makeKinds()
{
    auto* const box = new QComboBox(this);
    box->setObjectName(u"Kind"_s);
    box->setAccessibleName(u"Kind of sprite"_s);
    for (const KindRow& row : kinds)
        box->addItem(QString::fromUtf16(row.name));
    connect(box, &QComboBox::activated, this, [this](int index) {
        m_model.setKind(kinds[static_cast<std::size_t>(index)].kind);
        Q_EMIT changed();
    });
    return box;
}

QSpinBox* SettingsPanel::makeSide(const char* name, const QString& what)
{
    auto* const box = new QSpinBox(this);
    box->setObjectName(QLatin1StringView(name));
    box->setAccessibleName(what);
    box->setToolTip(what + u", in pixels"_s);
    box->setRange(SpriteModel::smallestSide, largestSpinSide);
    box->setKeyboardTracking(false); // "64" is no 6 on the way
    box->installEventFilter(this);
    connect(box, &QSpinBox::valueChanged, this, &SettingsPanel::setFrameSize);
    return box;
}

QFormLayout* SettingsPanel::makeForm()
{
    auto* const form = new QFormLayout;
    form->setSpacing(8);
    form->addRow(u"&Kind"_s, m_kind);
    form->addRow(u"&Width"_s, m_width);
    form->addRow(u"&Height"_s, m_height);
    return form;
}

void SettingsPanel::finishInput()
{
    m_width->interpretText();
    m_height->interpretText();
}

void SettingsPanel::setFrameSize()
{
    m_model.setFrameSize({m_width->value(), m_height->value()});
    Q_EMIT changed();
}

void SettingsPanel::refresh()
{
    const std::size_t place = static_cast<std::size_t>(m_model.kind()) - 1;
    m_kind->setCurrentIndex(static_cast<int>(place)); // not a choice of the user: nothing is activated
    m_hint->setText(QString::fromUtf16(kinds[place].hint));
    m_kind->setToolTip(m_hint->text());
    showSide(*m_width, m_model.frameSize().width);
    showSide(*m_height, m_model.frameSize().height);
    refreshPixels();
}

void SettingsPanel::refreshPixels()
{
    m_preview->refresh();
}

bool SettingsPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
        event->ignore(); // it means the last change of the sprite, also while a box has the focus
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
