#include "platform/host/sql_browser.h"
#include "platform/machine/system_autostart.h"
#include "platform/printing/spooler.h"
#include "support/print_qt.h"

#include <QCoreApplication>
#include <QPagedPaintDevice>
#include <QPrinterInfo>
#include <QSettings>

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <thread>
#include <winsock2.h>

using namespace Qt::StringLiterals;

namespace {

QVariant runValue()
{
    return QSettings(u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run"_s,
                     QSettings::NativeFormat)
        .value(u"Tezgah"_s);
}

/// A browser service on a port of its own that answers once.
struct BrowserService
{
    BrowserService()
    {
        WSADATA data{};
        WSAStartup(MAKEWORD(2, 2), &data);
        handle = socket(AF_INET, SOCK_DGRAM, IPPROTO_UDP);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        int size = sizeof address;
        auto *const name = reinterpret_cast<sockaddr *>(&address);
        EXPECT_EQ(bind(handle, name, size), 0);
        EXPECT_EQ(getsockname(handle, name, &size), 0);
        port = ntohs(address.sin_port);
    }
    ~BrowserService()
    {
        closesocket(handle);
        WSACleanup();
    }
    BrowserService(const BrowserService &) = delete;
    BrowserService &operator=(const BrowserService &) = delete;

    /// Returns what it was asked.
    QByteArray answerOnce(const QByteArray &answer) const
    {
        std::array<char, 100> asked{};
        sockaddr_in from{};
        int size = sizeof from;
        auto *const name = reinterpret_cast<sockaddr *>(&from);
        const int length =
            recvfrom(handle, asked.data(), static_cast<int>(asked.size()), 0, name, &size);
        sendto(handle, answer.constData(), static_cast<int>(answer.size()), 0, name, size);
        return {asked.data(), length};
    }

    SOCKET handle;
    int port = 0;
};

} // namespace

TEST(AutostartOnWindows, StartsThisProgramInItsFolder)
{
    SystemAutostart autostart(u"C:/Users/Ayşe Gül/Belgeler/Tezgâh"_s);
    EXPECT_TRUE(autostart.set(true));
    const QString program = QCoreApplication::applicationFilePath().replace(u'/', u'\\');
    EXPECT_EQ(runValue().toString(),
              u"\"%1\" --directory \"C:\\Users\\Ayşe Gül\\Belgeler\\Tezgâh\""_s.arg(program));
    EXPECT_TRUE(SystemAutostart(u"D:/"_s).set(true));
    EXPECT_TRUE(runValue().toString().endsWith(u"\"D:\\\\\""_s)); // the last backslash is doubled
    EXPECT_TRUE(autostart.set(false));
    EXPECT_FALSE(runValue().isValid());
    EXPECT_TRUE(autostart.set(false));
}

TEST(SqlBrowserOnWindows, AsksOnceAndDoesNotWaitLong)
{
    const BrowserService service;
    const auto ask = [&](std::chrono::milliseconds patience) {
        return sql_browser::instancePort(u"127.0.0.1"_s, u"SQL2"_s, patience, service.port);
    };
    EXPECT_FALSE(ask(std::chrono::milliseconds(50)));
    EXPECT_EQ(service.answerOnce("x"), QByteArray("\x04SQL2\0", 6));

    std::thread server([&] { service.answerOnce(QByteArray("\x05\x0A\x00tcp;49170;;", 14)); });
    EXPECT_EQ(ask(std::chrono::seconds(5)), 49170);
    server.join();
}

TEST(SpoolerOnWindows, PaperAndOrientationReachThePrinter)
{
    const QStringList printers = QPrinterInfo::availablePrinterNames();
    if (printers.isEmpty())
        GTEST_SKIP() << "this machine has no printer";
    for (const bool portrait : {true, false}) {
        const auto document =
            openSpooled(printers.first(), {u"Deneme"_s, portrait, 11, 0, {}}); // 11 = A5
        const QPageLayout layout = document->device().pageLayout();
        EXPECT_EQ(layout.pageSize().id(), QPageSize::A5);
        EXPECT_EQ(layout.orientation() == QPageLayout::Portrait, portrait);
        EXPECT_EQ(document->device().width() < document->device().height(), portrait);
    }
    for (const int quality : {0, 150, 300, 600}) { // what is painted is measured by its dots
        const auto document = openSpooled(printers.first(), {u"Deneme"_s, true, 11, quality, {}});
        const QPagedPaintDevice &device = document->device();
        EXPECT_EQ(device.logicalDpiX(), std::min(device.physicalDpiX(), device.physicalDpiY()));
    }
    EXPECT_THROW(openSpooled(u"Yok"_s, {}), PrintError);
}
