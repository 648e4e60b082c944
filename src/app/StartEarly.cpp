// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/StartEarly.h"

#include "forms/Icons.h"
#include "library/ZorbinoMain.h"
#include "platform/Installation.h"
#include "platform/pictures/PictureFiles.h"

#include <QGuiApplication>

#include <new>
#include <optional>

namespace
{

/// What was begun early, or nothing where there was no memory for it: the window then begins anew.
template<typename Result> std::optional<Result> resultOf(std::future<Result>& begun)
{
    try {
        return begun.get();
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

} // namespace

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
        if (const auto image = resultOf(drawing))
            forms::keepIcon(name, *image);
    m_icons.clear();
}

QImage StartEarly::backdrop()
{
    return m_backdrop.valid() ? resultOf(m_backdrop).value_or(QImage()) : QImage();
}
