// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SpriteChooser.h"

#include "forms/Icons.h"
#include "forms/MessageBoxes.h"
#include "forms/NameOrder.h"
#include "forms/Texts.h"
#include "games/GameFolders.h"
#include "sprites/FramePainting.h"
#include "sprites/SpriteFiles.h"
#include "sprites/SpriteModel.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

namespace
{

using namespace Qt::StringLiterals;

constexpr int side = 64;
constexpr int mostPictures = 200; // a list that is longer shows the rest by name alone

QIcon pictureOf(const SpriteModel& model)
{
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const auto frame = model.frame(0);
    drawFrame(painter, fitFrame(picture.rect(), frame->width(), frame->height()), *frame);
    painter.end();
    return picture;
}

/// A list of sprites that shows what they look like.
QListWidget* makeList(const QStringList& names, const std::function<QIcon(const QString&)>& iconFor,
                      QWidget* parent)
{
    auto* const list = new QListWidget(parent);
    list->setObjectName(u"SpriteList"_s);
    list->setAccessibleName(u"Sprites of this game"_s);
    list->setIconSize(QSize(side, side));
    list->setViewMode(QListView::IconMode);
    list->setResizeMode(QListView::Adjust);
    list->setMovement(QListView::Static);
    const QFontMetrics font = list->fontMetrics();
    // A long name does not push the others away.
    list->setGridSize({std::max(side, font.averageCharWidth() * 14) + 16, side + font.height() + 16});
    for (const QString& name : names) {
        auto* const item = new QListWidgetItem(name, list);
        item->setToolTip(name);
        item->setIcon(list->count() <= mostPictures ? iconFor(name) : forms::icon("sprite"));
    }
    list->setCurrentRow(0);
    return list;
}

QDialogButtonBox* makeButtons(QDialog* dialog)
{
    auto* const buttons = new QDialogButtonBox(dialog);
    const auto addButton = [buttons](const QString& text, const char* name, const char* iconName,
                                     QDialogButtonBox::ButtonRole role) {
        QPushButton* const button = buttons->addButton(text, role);
        forms::setUpButton(*button, name, iconName, QString());
        return button;
    };
    addButton(u"&Open"_s, "OpenButton", "folder", QDialogButtonBox::AcceptRole)->setDefault(true);
    addButton(u"&Cancel"_s, "CancelButton", "cancel", QDialogButtonBox::RejectRole);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return buttons;
}

} // namespace

std::optional<QString> chooseSprite(QWidget* parent, const Installation& installation,
                                    PictureReader& pictures, const std::string& folder)
{
    const QStringList names = forms::inNameOrder(spriteNames(installation, folder));
    if (names.isEmpty()) {
        forms::tell(parent, u"There is no sprite in this game yet. Draw one and save it!"_s);
        return std::nullopt;
    }
    const auto iconFor = [&](const QString& name) {
        SpriteModel model;
        const SpriteLoad result = loadSprite(installation, pictures, folder, forms::toUtf8(name), model);
        return isLoaded(result) ? pictureOf(model) : forms::icon("sprite");
    };
    const QPointer<QDialog> dialog(new QDialog(parent)); // it may go while it waits
    dialog->setObjectName(u"OpenSpriteBox"_s);
    dialog->setWindowTitle(u"Open Sprite"_s);
    QListWidget* const list = makeList(names, iconFor, dialog);
    QObject::connect(list, &QListWidget::itemActivated, dialog, &QDialog::accept);
    auto* const layout = new QVBoxLayout(dialog);
    layout->addWidget(list);
    layout->addWidget(makeButtons(dialog));
    dialog->resize(460, 360);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (dialog.isNull())
        return std::nullopt;
    std::optional<QString> chosen;
    if (accepted && list->currentItem() != nullptr)
        chosen = list->currentItem()->text();
    dialog->deleteLater();
    return chosen;
}
