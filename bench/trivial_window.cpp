// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <QWidget>

#include <cstdio>

// The least that a program of the toolkit can do: one window of the library's size, painted once, with a word
// in it.

namespace
{

class Window : public QWidget
{
protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::blue);
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("Hello"));
        QTimer::singleShot(0, this, [] {
            std::puts("painted");
            std::fflush(stdout);
            QCoreApplication::exit(0);
        });
    }
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    Window window;
    window.resize(600, 418);
    window.show();
    return QApplication::exec();
}
