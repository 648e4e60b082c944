// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QString>

#include <filesystem>
#include <future>
#include <vector>

/// Reads what the library shows first beside the start of the toolkit's windows: the backdrop and the
/// pictures of its big buttons. The windows read for themselves what they are not handed, so that leaving
/// this out costs nothing but time; the start-up benchmark prints how much.
class StartEarly
{
public:
    /// Begins. Threads work on copies of what they need and end before this does.
    explicit StartEarly(const std::filesystem::path& root);
    ~StartEarly();

    StartEarly(const StartEarly&) = delete;
    StartEarly& operator=(const StartEarly&) = delete;

    /// Waits for the button pictures and hands them to the windows.
    void keepIcons();
    /// Waits for the backdrop; null where it cannot be read.
    QImage backdrop();

private:
    std::future<QImage> m_backdrop;
    std::vector<std::pair<const char*, std::future<QImage>>> m_icons;
};
