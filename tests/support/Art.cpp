#include "support/Art.h"

#include "runtime/ZB.h"

#include <algorithm>

namespace
{

constexpr std::string_view letters = ".#roygcbp";

Pixel colourOf(std::size_t letter)
{
    return letter == 0 ? black : letter == 1 ? white : ColorTable.at(letter - 2);
}

void appendNumber(std::string& out, unsigned number, int bytes)
{
    for (int i = 0; i < bytes; ++i, number >>= 8U)
        out += static_cast<char>(number & 0xffU);
}

} // namespace

Surface art(std::initializer_list<std::string_view> rows)
{
    Surface surface(static_cast<int>(rows.begin()->size()), static_cast<int>(rows.size()));
    int y = 0;
    for (const std::string_view row : rows) {
        std::ranges::transform(row, surface.row(y++).begin(),
                               [](char letter) { return colourOf(letters.find(letter)); });
    }
    return surface;
}

std::string art(const Surface& surface, int step)
{
    std::string text;
    for (int y = 0; y < surface.height(); y += step) {
        for (int x = 0; x < surface.width(); x += step) {
            std::size_t letter = 0;
            while (letter < letters.size() && colourOf(letter) != surface.at(x, y))
                ++letter;
            text += letter < letters.size() ? letters[letter] : '?';
        }
        text += '\n';
    }
    return text;
}

std::string bitmapFile(const Surface& surface)
{
    const auto width = static_cast<unsigned>(surface.width());
    const auto height = static_cast<unsigned>(surface.height());
    std::string out = "BM";
    for (const unsigned number : {54 + width * height * 4, 0U, 54U, 40U, width, height})
        appendNumber(out, number, 4);
    appendNumber(out, 1, 2);  // planes
    appendNumber(out, 32, 2); // bits for each pixel
    out.append(24, '\0');
    for (int y = surface.height(); y-- > 0;) // from the bottom row up
        for (const Pixel pixel : surface.row(y))
            appendNumber(out, pixel, 4);
    return out;
}
