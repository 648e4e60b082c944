// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "language/Faults.h"

#include "language/ZBLProgramExp.h"

#include <algorithm>

namespace
{

class FaultList final : public ParseReporter
{
public:
    void parseError(const ParseFault& fault) override { faults.push_back(fault); }
    void beep() override {}
    std::vector<ParseFault> faults;
};

std::vector<ParseFault> readAll(const LineArray& lines, const MendedBlocks* mended)
{
    FaultList list;
    ZBLProgramExp().parseAll(lines, list, mended);
    return std::move(list.faults);
}

} // namespace

std::vector<ParseFault> findFaults(std::string_view text)
{
    const LineArray lines(text);
    std::vector<ParseFault> faults = readAll(lines, nullptr);
    if (faults.empty())
        return faults;
    if (std::ranges::any_of(faults, &ParseFault::unmatchedBlock)) {
        const MendedBlocks mended(lines);
        const ParseFault first = faults.front();
        faults = readAll(lines, &mended);
        std::erase(faults, first);
        faults.insert(faults.begin(), first);
    }
    std::stable_sort(faults.begin() + 1, faults.end(),
                     [](const ParseFault& a, const ParseFault& b) { return a.line < b.line; });
    return faults;
}
