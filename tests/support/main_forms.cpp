#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char *argv[])
{
#ifndef Q_OS_WIN // where that platform finds no fonts
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
