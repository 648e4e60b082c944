// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "headless/KeyScript.h"

#include "platform/NumberText.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <array>
#include <string>

bool parseKeys(std::string_view text, std::vector<KeyChange>& keys, int& badLine)
{
    badLine = 0;
    for (std::string_view line : splitLines(text)) {
        ++badLine;
        line = trimBlanks(line);
        if (line.empty() || line.front() == '#')
            continue;
        std::array<std::string_view, 3> words;
        for (std::string_view& word : words) {
            const auto end = std::min(line.find_first_of(" \t"), line.size());
            word = line.substr(0, end);
            line = trimBlanks(line.substr(end));
        }
        const auto frame = wholeNumber(words[0]);
        const auto code = wholeNumber(words[2]);
        if (!frame || !code || !line.empty() || (words[1] != "down" && words[1] != "up"))
            return false;
        keys.push_back({*frame, words[1] == "down", *code});
    }
    // What stands in the file first comes first within its frame.
    std::ranges::stable_sort(keys, {}, &KeyChange::frame);
    return true;
}
