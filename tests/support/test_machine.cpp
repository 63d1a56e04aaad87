// The only file of the tests that is compiled with the places of this tree and its build.
#include "support/test_machine.h"

#include <QByteArray>

void useTestMachine()
{
#ifndef Q_OS_WIN // which finds no fonts without a display, and is made Turkish from outside
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LOCPATH", TEZGAH_TEST_LOCALES);
    qputenv("LC_ALL", "tr_TR.UTF-8");
#endif
}

QString sourcePath(const char *path)
{
    return QStringLiteral(TEZGAH_SOURCE_DIR) + QLatin1String(path);
}
