// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "sprites/SpriteFiles.h"

#include "games/WritableName.h"
#include "runtime/world/SpriteSheet.h"
#include "sprites/SpriteModel.h"

#include <utility>

namespace
{

constexpr std::array<std::string_view, 2> endings = {".spr", ".spb"};

std::string joined(std::string_view first, std::string_view second, std::string_view third = {})
{
    return std::string(first).append(second).append(third);
}

} // namespace

SpriteLoad loadSprite(const Installation& installation, PictureReader& pictures, std::string_view folder,
                      std::string_view name, SpriteModel& model)
{
    SpriteSheet::Fault fault = SpriteSheet::Fault::None;
    const auto sheet = SpriteSheet::read(installation, pictures, joined(folder, name), &fault);
    if (!sheet)
        return fault == SpriteSheet::Fault::Missing ? SpriteLoad::Missing : SpriteLoad::Damaged;
    if (sheet->description().frameWidth <= 0 || sheet->description().frameHeight <= 0)
        return SpriteLoad::Damaged;
    if (!model.load(*sheet))
        return SpriteLoad::TooLarge;
    return sheet->isWhole() ? SpriteLoad::Done : SpriteLoad::Incomplete;
}

SpriteFiles::SpriteFiles(const Installation& installation, PictureReader& pictures, std::string folder)
    : m_installation(installation)
    , m_pictures(pictures)
    , m_folder(std::move(folder))
{
}

void SpriteFiles::startNew()
{
    m_name.clear();
}

SpriteLoad SpriteFiles::load(std::string_view name, SpriteModel& model)
{
    const Stamps stamps = stampsOf(name); // before they are read: what comes later is noticed
    const SpriteLoad result = loadSprite(m_installation, m_pictures, m_folder, name, model);
    if (isLoaded(result)) {
        m_name = name;
        m_stamps = stamps;
    }
    return result;
}

bool SpriteFiles::save(std::string_view name, const SpriteModel& model)
{
    if (!model.sheet().write(m_installation, joined(m_folder, name)))
        return false;
    m_stamps = stampsOf(name);
    m_name = name;
    return true;
}

SpriteNameFault SpriteFiles::faultOf(std::string_view name) const
{
    if (name.empty())
        return SpriteNameFault::Empty;
    if (name == m_name)
        return SpriteNameFault::None;
    if (isIconName(name))
        return SpriteNameFault::Icon;
    const bool isTaken = m_installation.isFile(joined(m_folder, name, endings[0]));
    return isTaken ? SpriteNameFault::Taken : SpriteNameFault::None;
}

std::optional<std::string> SpriteFiles::changedFile(std::string_view name) const
{
    if (name != m_name)
        return std::nullopt; // replacing another sprite is a question of its own
    for (std::size_t file = 0; file < endings.size(); ++file)
        if (m_stamps.at(file).hasChanged(m_installation, joined(m_folder, name, endings.at(file))))
            return joined(name, endings.at(file));
    return std::nullopt;
}

SpriteFiles::Stamps SpriteFiles::stampsOf(std::string_view name) const
{
    Stamps stamps;
    for (std::size_t file = 0; file < endings.size(); ++file)
        if (const auto bytes = m_installation.readBytes(joined(m_folder, name, endings.at(file))))
            stamps.at(file) = FileStamp(*bytes);
    return stamps;
}
