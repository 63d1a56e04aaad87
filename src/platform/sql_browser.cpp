#include "platform/sql_browser.h"

#include <QHostInfo>
#include <QUdpSocket>

using namespace Qt::StringLiterals;

namespace sql_browser {

namespace {

constexpr char kInstanceRequest = 0x04;
constexpr char kAnswer = 0x05;
constexpr qsizetype kAnswerHeader = 3; // kind and length

} // namespace

std::optional<int> instancePort(const QString &host, const QString &instance,
                                std::chrono::milliseconds patience, int browserPort)
{
    const QList<QHostAddress> addresses = QHostInfo::fromName(host).addresses();
    if (addresses.isEmpty())
        return std::nullopt;
    QUdpSocket socket;
    socket.connectToHost(addresses.first(), static_cast<quint16>(browserPort));
    socket.write(kInstanceRequest + instance.toUtf8() + '\0');
    if (!socket.waitForReadyRead(static_cast<int>(patience.count())))
        return std::nullopt;
    return portInAnswer(socket.readAll());
}

/// After the header: "ServerName;KASA1;InstanceName;SQL2;…;tcp;49170;;".
std::optional<int> portInAnswer(const QByteArray &answer)
{
    if (answer.size() < kAnswerHeader || answer.front() != kAnswer)
        return std::nullopt;
    const QList<QByteArray> words = answer.sliced(kAnswerHeader).split(';');
    for (qsizetype i = 0; i + 1 < words.size(); i += 2) {
        const int port = words.at(i + 1).toInt();
        if (words.at(i).toLower() == "tcp" && port >= 1 && port <= 65535)
            return port;
    }
    return std::nullopt;
}

} // namespace sql_browser
