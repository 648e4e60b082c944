// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include <QGuiApplication>

/// Ends well where a window could be opened; the toolkit ends the program itself where not.
int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    return 0;
}
