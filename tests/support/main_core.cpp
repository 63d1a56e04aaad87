#include "support/test_machine.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char *argv[])
{
    useTestMachine();
    const QGuiApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
