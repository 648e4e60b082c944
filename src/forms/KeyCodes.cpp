// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "forms/KeyCodes.h"

#include <QGuiApplication>
#include <QKeyEvent>

#include <algorithm>

namespace
{

struct KeyRow {
    int key;
    int code;
};

// clang-format off
constexpr KeyRow keys[] = {
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9}, {Qt::Key_Backtab, 9}, {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13}, {Qt::Key_Enter, 13}, {Qt::Key_Shift, 16}, {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18}, {Qt::Key_AltGr, 18}, {Qt::Key_Pause, 19}, {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27}, {Qt::Key_Space, 32}, {Qt::Key_PageUp, 33}, {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35}, {Qt::Key_Home, 36}, {Qt::Key_Left, 37}, {Qt::Key_Up, 38},
    {Qt::Key_Right, 39}, {Qt::Key_Down, 40}, {Qt::Key_Select, 41}, {Qt::Key_Print, 44},
    {Qt::Key_SysReq, 44}, {Qt::Key_Insert, 45}, {Qt::Key_Delete, 46}, {Qt::Key_Help, 47},
    {Qt::Key_Meta, 91}, {Qt::Key_Super_L, 91}, {Qt::Key_Super_R, 92}, {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144}, {Qt::Key_ScrollLock, 145},
    // The shifted digit row and the punctuation of the usual keyboard.
    {Qt::Key_ParenRight, 48}, {Qt::Key_Exclam, 49}, {Qt::Key_At, 50}, {Qt::Key_NumberSign, 51},
    {Qt::Key_Dollar, 52}, {Qt::Key_Percent, 53}, {Qt::Key_AsciiCircum, 54}, {Qt::Key_Ampersand, 55},
    {Qt::Key_Asterisk, 56}, {Qt::Key_ParenLeft, 57},
    {Qt::Key_Semicolon, 186}, {Qt::Key_Colon, 186}, {Qt::Key_Equal, 187}, {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188}, {Qt::Key_Less, 188}, {Qt::Key_Minus, 189}, {Qt::Key_Underscore, 189},
    {Qt::Key_Period, 190}, {Qt::Key_Greater, 190}, {Qt::Key_Slash, 191}, {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, 192}, {Qt::Key_AsciiTilde, 192}, {Qt::Key_BracketLeft, 219}, {Qt::Key_BraceLeft, 219},
    {Qt::Key_Backslash, 220}, {Qt::Key_Bar, 220}, {Qt::Key_BracketRight, 221}, {Qt::Key_BraceRight, 221},
    {Qt::Key_Apostrophe, 222}, {Qt::Key_QuoteDbl, 222},
};
constexpr KeyRow keypad[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107}, {Qt::Key_Minus, 109},
    {Qt::Key_Period, 110}, {Qt::Key_Comma, 110}, {Qt::Key_Slash, 111},
};
// clang-format on

template<std::size_t N> int find(const KeyRow (&rows)[N], int key)
{
    const auto* row = std::ranges::find(rows, key, &KeyRow::key);
    return row == std::end(rows) ? 0 : row->code;
}

/// The digit row by its place on the keyboard: on many keyboards the digits need Shift, and the key is still
/// theirs.
int digitByPlace(const QKeyEvent& event)
{
    static const bool knowsPlaces = [] {
        const QString platform = QGuiApplication::platformName();
        return platform == QLatin1String("xcb") || platform.startsWith(QLatin1String("wayland"));
    }();
    constexpr quint32 firstDigit = 10; // the key of "1"; "0" comes last
    const quint32 place = event.nativeScanCode();
    if (!knowsPlaces || place < firstDigit || place >= firstDigit + 10)
        return 0;
    return '0' + static_cast<int>(place - firstDigit + 1) % 10;
}

quint64 physicalKey(const QKeyEvent& event, int code)
{
    // Made-up events have no place on a keyboard: their code must do.
    return event.nativeScanCode() != 0 ? event.nativeScanCode()
                                       : (quint64{1} << 32U) + static_cast<quint64>(code);
}

} // namespace

namespace forms
{

int virtualKeyCode(const QKeyEvent& event)
{
    const int key = event.key();
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return key;
    const bool onKeypad = event.modifiers().testFlag(Qt::KeypadModifier);
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return onKeypad ? key - Qt::Key_0 + 96 : key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return key - Qt::Key_F1 + 112;
    if (onKeypad) {
        if (const int code = find(keypad, key))
            return code;
    }
    if (const int digit = digitByPlace(event))
        return digit;
    return find(keys, key);
}

int shiftState(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers();
    return (held.testFlag(Qt::ShiftModifier) ? 1 : 0) + (held.testFlag(Qt::ControlModifier) ? 2 : 0) +
           (held.testFlag(Qt::AltModifier) ? 4 : 0);
}

int HeldKeys::press(const QKeyEvent& event)
{
    const int code = virtualKeyCode(event);
    if (code == 0 || event.isAutoRepeat())
        return 0;
    return m_codes.insert_or_assign(physicalKey(event, code), code).second ? code : 0;
}

int HeldKeys::release(const QKeyEvent& event)
{
    if (event.isAutoRepeat())
        return 0;
    const auto held = m_codes.find(physicalKey(event, virtualKeyCode(event)));
    if (held == m_codes.end())
        return 0;
    const int code = held->second;
    m_codes.erase(held);
    // The other Shift key, or the other Enter, may still hold the same code down.
    const bool stillHeld =
        std::ranges::any_of(m_codes, [code](const auto& entry) { return entry.second == code; });
    return stillHeld ? 0 : code;
}

std::vector<int> HeldKeys::releaseAll()
{
    std::vector<int> codes;
    for (const auto& [place, code] : m_codes)
        codes.push_back(code);
    m_codes.clear();
    return codes;
}

void KeyRepeats::release(const QKeyEvent& event)
{
    m_key = event.key();
    m_time = event.timestamp();
}

bool KeyRepeats::isRepeat(const QKeyEvent& press) const
{
    const bool atOnce = m_time != 0 && press.timestamp() == m_time; // made-up events may have no time
    return press.isAutoRepeat() || (atOnce && press.key() == m_key);
}

} // namespace forms
