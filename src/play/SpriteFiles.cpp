#include "play/SpriteFiles.h"

#include "platform/NumberText.h"
#include "platform/TextFile.h"
#include "play/BitmapFile.h"
#include "play/SpriteModel.h"

#include <algorithm>

namespace
{

constexpr std::string_view descriptionEnding = ".spr";
constexpr std::string_view pictureEnding = ".spb";
constexpr std::size_t longestName = 40;

std::string productPath(std::string_view folder, std::string_view name, std::string_view ending)
{
    return std::string(folder).append(name).append(ending);
}

} // namespace

bool spriteExists(const Installation& installation, std::string_view folder, std::string_view name)
{
    return installation.isFile(productPath(folder, name, descriptionEnding));
}

SpriteLoad loadSprite(const Installation& installation, PictureReader& pictures, std::string_view folder,
                      std::string_view name, SpriteModel& model)
{
    const auto text = installation.readText(productPath(folder, name, descriptionEnding));
    const auto pictureFile = installation.find(productPath(folder, name, pictureEnding));
    if (!text || !pictureFile)
        return SpriteLoad::Missing;
    const auto description = GraphicDescription::fromText(*text);
    if (!description || description->frameWidth <= 0 || description->frameHeight <= 0)
        return SpriteLoad::Damaged;
    if (!SpriteModel::canHold(*description))
        return SpriteLoad::TooLarge;
    const auto picture = pictures.read(*pictureFile);
    if (!picture)
        return SpriteLoad::Damaged;
    return model.load(*description, *picture) ? SpriteLoad::Done : SpriteLoad::TooLarge;
}

bool saveSprite(const Installation& installation, std::string_view folder, std::string_view name,
                const SpriteModel& model)
{
    const std::string pictureFile = productPath(folder, name, pictureEnding);
    const auto oldPicture = installation.readBytes(pictureFile);
    const bool wasThere = installation.isFile(pictureFile);
    if (wasThere && !oldPicture)
        return false; // it could not be brought back
    if (!installation.write(pictureFile, bitmapFile(model.picture())))
        return false;
    if (installation.write(productPath(folder, name, descriptionEnding), model.description().toText()))
        return true;
    // A new picture beside an old description would be a broken sprite.
    [[maybe_unused]] const bool restored =
        oldPicture ? installation.write(pictureFile, *oldPicture) : installation.remove(pictureFile);
    return false;
}

std::string spriteName(std::string_view wish)
{
    std::string name = lowerCase(trimBlanks(wish));
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == ' ' || c == '\t'; }, '_');
    std::erase_if(name, [](char c) {
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
        return !isPlain && static_cast<unsigned char>(c) < 0x80U; // letters of other alphabets stay
    });
    if (!isValidUtf8(name))
        return {};
    std::size_t end = std::min(name.size(), longestName);
    while (end < name.size() && (static_cast<unsigned char>(name[end]) & 0xc0U) == 0x80U)
        --end; // never in the middle of a letter
    name.resize(end);
    return name;
}
