// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/InstallationRefresh.h"

#include <cstdio>
#include <exception>

// refresh-installation FROM TO, for the launcher of the package and for ./play.

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::fputs("usage: refresh-installation FROM TO\n", stderr);
        return 2;
    }
    try {
        InstallationRefresh(argv[1], argv[2]).run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "refresh-installation: %s\n", error.what());
        return 1;
    }
    return 0;
}
