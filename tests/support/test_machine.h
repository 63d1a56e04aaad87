#pragma once

#include <QByteArray>

/// Makes this machine one like those of the shops for the test program: a Turkish one, without a
/// display. Call it before the application object.
inline void useTestMachine()
{
#ifndef Q_OS_WIN // which finds no fonts without a display, and is made Turkish from outside
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LOCPATH", TEZGAH_TEST_LOCALES);
    qputenv("LC_ALL", "tr_TR.UTF-8");
#endif
}
