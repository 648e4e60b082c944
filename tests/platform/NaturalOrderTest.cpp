#include "platform/NaturalOrder.h"

#include <gtest/gtest.h>

#include <array>

TEST(NaturalOrder, PutsNamesAsPeopleDo)
{
    const std::array<std::string_view, 14> names = {
        "",
        "0",
        "7up",
        "10",
        "ball",
        "ball 3x",
        "Ball2",
        "ball2b",
        "bat",
        "bat2",
        "BAT10",
        "bat010x",
        "bat99999999999999999999",
        "\xc3\xa4pfel",
    };
    const std::array<std::string_view, 2> twins = {"D01", "d1"};
    for (std::size_t first = 0; first < names.size(); ++first) {
        for (std::size_t second = 0; second < names.size(); ++second)
            EXPECT_EQ(naturallyBefore(names[first], names[second]), first < second)
                << names[first] << " and " << names[second];
    }
    EXPECT_NE(naturallyBefore(twins[0], twins[1]), naturallyBefore(twins[1], twins[0]));
}
