// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/KeyCaps.h"

#include "language/LineArray.h"
#include "language/Vocabulary.h"

#include <QHBoxLayout>
#include <QToolButton>

#include <algorithm>
#include <array>
#include <set>

using namespace Qt::StringLiterals;

namespace
{

constexpr std::string_view keyboardWord = "keyboard.";

/// The code of the key that the program calls by that name; 0 for none.
int codeOf(std::string_view name)
{
    if (const auto* key = findWord<KeyWord>(name))
        return key->code;
    const char c = name.size() == 1 ? name.front() : ' ';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 'A';
    return c >= '0' && c <= '9' ? c : 0;
}

} // namespace

QString keyCapText(int code)
{
    constexpr std::array arrows = {u"\u2190", u"\u2191", u"\u2192", u"\u2193"};
    if (code >= 37 && code <= 40)
        return QString::fromUtf16(arrows[static_cast<std::size_t>(code - 37)]);
    if ((code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9'))
        return QChar(code);
    for (const KnownWord& word : vocabulary())
        if (const auto* key = std::get_if<KeyWord>(&word.meaning); key && key->code == code) {
            QString name = QString::fromUtf8(word.text.data(), static_cast<qsizetype>(word.text.size()));
            name[0] = name[0].toUpper();
            return name;
        }
    return u"#%1"_s.arg(code);
}

std::vector<int> keysOfProgram(const LineArray& lines)
{
    std::set<int> codes;
    for (int number = 1; number <= lines.upperBound(); ++number) {
        const std::string_view line = lines[number];
        for (std::size_t at = line.find(keyboardWord); at != std::string_view::npos;
             at = line.find(keyboardWord, at + 1)) {
            const std::string_view rest = line.substr(at + keyboardWord.size());
            if (const int code = codeOf(rest.substr(0, rest.find(' '))))
                codes.insert(code);
        }
    }
    return {codes.begin(), codes.end()};
}

KeyCaps::KeyCaps(QWidget* parent)
    : QWidget(parent)
    , m_row(new QHBoxLayout(this))
{
    setObjectName(u"Keys"_s);
    setAccessibleName(u"Keys"_s);
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(4);
    m_row->addStretch(1);
}

QToolButton* KeyCaps::cap(int code)
{
    QToolButton*& button = m_caps[code];
    if (button)
        return button;
    button = new QToolButton;
    button->setObjectName(u"Key_%1"_s.arg(code));
    button->setText(keyCapText(code));
    button->setAccessibleName(u"Key %1"_s.arg(keyCapText(code)));
    button->setToolTip(u"Hold or release this key"_s);
    button->setCheckable(true);
    button->setMinimumWidth(button->fontMetrics().height() * 2);
    // The button shows what the run says, not what was clicked.
    connect(button, &QToolButton::clicked, this, [this, button, code] {
        button->setChecked(!button->isChecked());
        Q_EMIT toggled(code);
    });
    const auto place = std::distance(m_caps.begin(), m_caps.find(code));
    m_row->insertWidget(static_cast<int>(place), button);
    return button;
}

void KeyCaps::show(const std::vector<int>& known, const std::vector<int>& down)
{
    const auto has = [](const std::vector<int>& codes, int code) {
        return std::ranges::find(codes, code) != codes.end();
    };
    for (const auto* codes : {&known, &down})
        for (const int code : *codes)
            cap(code);
    for (const auto& [code, button] : m_caps) {
        button->setVisible(has(known, code) || has(down, code));
        button->setChecked(has(down, code));
    }
}
