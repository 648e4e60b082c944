// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/StartEarly.h"

#include "forms/Icons.h"
#include "library/ZorbinoMain.h"
#include "platform/Installation.h"
#include "platform/pictures/PictureFiles.h"

#include <QGuiApplication>

StartEarly::StartEarly(const std::filesystem::path& root)
    : m_backdrop(std::async([root] {
        PictureFiles pictures;
        return Backdrop::read(Installation(root), pictures);
    }))
{
    const QSize pixels = ZorbinoMain::buttonPicture * qGuiApp->devicePixelRatio();
    for (const char* name : ZorbinoMain::buttonIcons)
        m_icons.emplace_back(name, std::async(forms::drawIcon, name, pixels));
}

StartEarly::~StartEarly() = default; // waits for what nobody has fetched

void StartEarly::keepIcons()
{
    for (auto& [name, drawing] : m_icons)
        forms::keepIcon(name, drawing.get());
    m_icons.clear();
}

QImage StartEarly::backdrop()
{
    return m_backdrop.valid() ? m_backdrop.get() : QImage();
}
