// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/NameOrder.h"

#include "forms/Texts.h"

#include <QCollator>

#include <algorithm>

QStringList forms::inNameOrder(const std::vector<std::string>& utf8Names)
{
    QStringList names;
    for (const std::string& name : utf8Names)
        names += fromUtf8(name);
    QCollator collator{QLocale(QLocale::English)}; // a system without a language knows no numbers
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::sort(names); // names that differ in their case alone keep one order
    std::ranges::stable_sort(names, collator);
    return names;
}
