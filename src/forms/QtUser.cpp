#include "forms/QtUser.h"

#include "forms/Forms.h"

#include <QApplication>

void QtUser::messageBox(std::string_view text)
{
    forms::tell(QApplication::activeWindow(), forms::fromUtf8(text));
}

void QtUser::beep()
{
    QApplication::beep();
}

void QtUser::deliverMessages(Wait wait)
{
    QCoreApplication::processEvents(wait == Wait::Yes ? QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents
                                                      : QEventLoop::AllEvents);
}
