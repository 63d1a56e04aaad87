#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char *argv[])
{
#ifndef Q_OS_WIN // where that platform finds no fonts
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    const QGuiApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
