#include "platform/NaturalOrder.h"

#include "platform/TextFile.h"

#include <string>

namespace
{

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Takes the number off the front of `text`, without its leading zeros.
std::string_view takeNumber(std::string_view& text)
{
    while (text.starts_with('0'))
        text.remove_prefix(1);
    std::size_t length = 0;
    while (length < text.size() && isDigit(text[length]))
        ++length;
    const std::string_view number = text.substr(0, length);
    text.remove_prefix(length);
    return number;
}

} // namespace

bool naturallyBefore(std::string_view a, std::string_view b)
{
    const std::string lowerA = lowerCase(a);
    const std::string lowerB = lowerCase(b);
    std::string_view restA = lowerA;
    std::string_view restB = lowerB;
    while (!restA.empty() && !restB.empty()) {
        if (isDigit(restA.front()) && isDigit(restB.front())) {
            const std::string_view numberA = takeNumber(restA);
            const std::string_view numberB = takeNumber(restB);
            if (numberA.size() != numberB.size())
                return numberA.size() < numberB.size();
            if (numberA != numberB)
                return numberA < numberB;
        } else {
            if (restA.front() != restB.front())
                return restA < restB;
            restA.remove_prefix(1);
            restB.remove_prefix(1);
        }
    }
    if (restA.empty() != restB.empty())
        return restA.empty();
    return a < b;
}
