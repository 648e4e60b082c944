// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SpriteKeeper.h"

#include "forms/MessageBoxes.h"
#include "forms/Replacing.h"
#include "forms/Texts.h"
#include "games/WritableName.h"
#include "sprites/SpriteChooser.h"
#include "sprites/SpriteModel.h"

#include <QTimer>
#include <QWidget>

namespace
{

using namespace Qt::StringLiterals;

QString loadMessage(SpriteLoad result, const QString& name)
{
    switch (result) {
    case SpriteLoad::TooLarge:
        return u"The sprite %1 is too large for me to draw on."_s.arg(name);
    case SpriteLoad::Damaged:
        return u"I could not understand the files of the sprite %1. Maybe they are damaged."_s.arg(name);
    default:
        return u"I could not open the sprite %1. Maybe its files are gone."_s.arg(name);
    }
}

} // namespace

SpriteKeeper::SpriteKeeper(Desk& desk, SpriteModel& model, QWidget* window)
    : QObject(window)
    , m_desk(desk)
    , m_model(model)
    , m_window(window)
    , m_files(desk.installation(), desk.pictures(), desk.module().gamePath())
{
}

QString SpriteKeeper::graphicName() const
{
    return forms::fromUtf8(m_files.name());
}

void SpriteKeeper::load(const QString& graphicName)
{
    const SpriteLoad result = m_files.load(forms::toUtf8(graphicName), m_model);
    if (isLoaded(result))
        Q_EMIT loaded(result == SpriteLoad::Done);
    else // told once the window is there
        QTimer::singleShot(
            0, this, [this, message = loadMessage(result, graphicName)] { forms::tell(m_window, message); });
}

void SpriteKeeper::startNew()
{
    if (!mayLeave())
        return;
    m_model.clear(m_model.frameSize());
    m_discardAllowed = false;
    m_files.startNew();
    Q_EMIT loaded(true);
}

void SpriteKeeper::open()
{
    if (!mayLeave())
        return;
    m_discardAllowed = false; // the list of sprites may still be cancelled
    const auto name = chooseSprite(m_window, m_desk.installation(), m_desk.pictures(), m_files.folder());
    if (!name)
        return;
    const SpriteLoad result = m_files.load(forms::toUtf8(*name), m_model);
    if (isLoaded(result))
        Q_EMIT loaded(result == SpriteLoad::Done);
    else
        forms::warn(m_window, loadMessage(result, *name));
}

bool SpriteKeeper::save()
{
    return m_files.name().empty() ? saveAs() : saveUnder(graphicName());
}

bool SpriteKeeper::saveAs()
{
    const QString name = askName();
    return !name.isEmpty() && saveUnder(name);
}

QString SpriteKeeper::askName()
{
    for (QString wish = graphicName();;) {
        const auto answer =
            forms::askText(m_window, u"Save Sprite"_s,
                           u"What is the name of your sprite? (small letters and digits)"_s, wish);
        if (!answer)
            return {};
        const std::string name = writableName(forms::toUtf8(*answer));
        wish = name.empty() ? *answer : forms::fromUtf8(name);
        if (mayBeCalled(wish, m_files.faultOf(name)))
            return wish;
    }
}

bool SpriteKeeper::mayBeCalled(const QString& name, SpriteNameFault fault)
{
    switch (fault) {
    case SpriteNameFault::None:
        break;
    case SpriteNameFault::Empty:
        forms::tell(m_window, u"I need a name with at least one letter or digit in it."_s);
        return false;
    case SpriteNameFault::Icon:
        forms::tell(
            m_window,
            u"I cannot call a sprite \"%1\": that is the name of the picture that stands for your game. "
            "Please think of another name."_s.arg(name));
        return false;
    case SpriteNameFault::Taken:
        return forms::askOk(m_window, u"Save Sprite"_s,
                            u"There is a sprite named %1 already. Shall I replace it?"_s.arg(name));
    }
    return true;
}

bool SpriteKeeper::mayReplace(const QString& name)
{
    if (const auto file = m_files.changedFile(forms::toUtf8(name)))
        return forms::askReplaceChanged(m_window, forms::fromUtf8(*file));
    return m_desk.mayChangeGame(m_window);
}

bool SpriteKeeper::saveUnder(const QString& name)
{
    if (!mayReplace(name))
        return false;
    if (!m_files.save(forms::toUtf8(name), m_model)) {
        forms::warn(m_window,
                    u"I could not save the sprite %1. Maybe the disk is full, or I am not allowed to write "
                    "there. Your sprite is still here in this window."_s.arg(name));
        return false;
    }
    m_model.setSaved();
    Q_EMIT saved(name);
    return true;
}

bool SpriteKeeper::mayLeave()
{
    if (!m_model.isModified() || m_discardAllowed)
        return true;
    const QString name =
        m_files.name().empty() ? u"your new sprite"_s : u"the sprite %1"_s.arg(graphicName());
    switch (
        forms::askYesNoCancel(m_window, u"Zorbino Sprite Editor"_s, u"Do you want to save %1?"_s.arg(name))) {
    case forms::Answer::Yes:
        return save();
    case forms::Answer::No:
        m_discardAllowed = true; // not asked again while nothing new is drawn
        return true;
    default:
        return false;
    }
}
