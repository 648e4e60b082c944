#include "app/Form1.h"

#include "forms/Forms.h"

#include <QApplication>

// The parse-test window as a program of its own.

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    forms::dressApplication();
    Form1 window;
    window.show();
    return QApplication::exec();
}
