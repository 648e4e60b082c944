// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/GameAssets.h"

#include "runtime/world/Field.h"

namespace
{

/// Of all graphics of a run together. Pictures squeeze well: small files could fill any memory.
constexpr std::size_t mostGraphicPixels = std::size_t{32} << 20U;

/// Of backgrounds that are kept, each 0.9 MB.
constexpr std::size_t mostBackgrounds = 32;

} // namespace

GameAssets::GameAssets(const FileSource& files, PictureReader& pictures)
    : m_files(files)
    , m_pictures(pictures)
    , m_read(std::make_shared<RunFiles>(files, std::string()))
{
}

bool GameAssets::exists(std::string_view name) const
{
    return m_read->isFile(path() + std::string(name));
}

std::optional<std::string> GameAssets::text(std::string_view name) const
{
    return m_read->readText(path() + std::string(name));
}

RunFiles::Background GameAssets::background(std::string_view name)
{
    if (const auto known = m_read->backgrounds.find(name); known != m_read->backgrounds.end())
        return known->second;
    const auto picture = m_pictures.read(*m_read, path() + std::string(name));
    if (!picture || picture->isNull())
        return {};
    auto field = std::make_shared<Surface>(fieldSize, fieldSize, white);
    stretch(*field, *picture);
    RunFiles::Background background{std::move(field), picture->pixels().size()};
    if (m_read->backgrounds.size() < mostBackgrounds)
        m_read->backgrounds.emplace(name, background);
    return background;
}

std::shared_ptr<const ZBGraphic>
GameAssets::graphic(std::string_view name, const std::vector<std::shared_ptr<const ZBGraphic>>& others) const
{
    if (others.size() >= graphicCount)
        return nullptr;
    std::shared_ptr<const ZBGraphic>& graphic = m_read->graphics[std::string(name)];
    if (!graphic) {
        auto sheet = SpriteSheet::read(*m_read, m_pictures, path() + std::string(name));
        if (!sheet)
            return nullptr;
        graphic = std::make_shared<const ZBGraphic>(name, std::move(*sheet));
    }
    std::size_t pixels = graphic->picture().pixels().size();
    for (const auto& other : others)
        pixels += other->picture().pixels().size();
    if (pixels > mostGraphicPixels)
        return nullptr;
    return graphic;
}
