#include "platform/machine/single_instance.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SingleInstance, OneCopyRunsUntilItEndsOrMakesRoom)
{
    const QString name = u"tezgah-deneme-%1"_s.arg(QCoreApplication::applicationPid());
    {
        const SingleInstance first(name);
        EXPECT_TRUE(first.first());
        EXPECT_FALSE(SingleInstance(name).first());
        EXPECT_FALSE(SingleInstance(name).first());
        EXPECT_TRUE(SingleInstance(name + u"-2"_s).first());
    }
    {
        SingleInstance first(name);
        int starts = 0;
        first.onFurtherStart([&] { ++starts; });
        SingleInstance(name).tellFirst();
        QElapsedTimer time;
        for (time.start(); starts == 0 && time.elapsed() < 5000;)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        EXPECT_EQ(starts, 1);
    }
    SingleInstance leaving(name);
    EXPECT_TRUE(leaving.first());
    leaving.release();
    EXPECT_TRUE(SingleInstance(name).first());
}
