#include "platform/machine/process_locale.h"
#include "support/test_machine.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char *argv[])
{
    useTestMachine();
    QApplication app(argc, argv);
    useProgramLocale();
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
