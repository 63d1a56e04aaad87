#include "platform/host/sql_browser.h"

#include <QNetworkDatagram>
#include <QUdpSocket>

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

using namespace Qt::StringLiterals;

TEST(SqlBrowser, AsksOnceAndDoesNotWaitLong)
{
    QUdpSocket service;
    ASSERT_TRUE(service.bind(QHostAddress::LocalHost));
    const auto ask = [&](std::chrono::milliseconds patience) {
        return sql_browser::instancePort(u"127.0.0.1"_s, u"SQL2"_s, patience, service.localPort());
    };
    EXPECT_FALSE(ask(std::chrono::milliseconds(50)));
    ASSERT_TRUE(service.hasPendingDatagrams());
    EXPECT_EQ(service.receiveDatagram().data(), QByteArray("\x04SQL2\0", 6));
    EXPECT_FALSE(service.hasPendingDatagrams());

    std::atomic<int> port = 0;
    std::thread client([&] { port = ask(std::chrono::seconds(5)).value_or(-1); });
    ASSERT_TRUE(service.waitForReadyRead(5000));
    service.writeDatagram(
        service.receiveDatagram().makeReply(QByteArray("\x05\x0A\x00tcp;49170;;", 14)));
    client.join();
    EXPECT_EQ(port, 49170);
}
