// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/Form1.h"

#include "forms/Style.h"

#include <QApplication>

// The parse-test window as a program of its own.

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    forms::setUpApplication();
    Form1 window;
    window.show();
    return QApplication::exec();
}
