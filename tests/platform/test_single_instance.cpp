#include "platform/machine/single_instance.h"

#include <QCoreApplication>

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
    SingleInstance leaving(name);
    EXPECT_TRUE(leaving.first());
    leaving.release();
    EXPECT_TRUE(SingleInstance(name).first());
}
