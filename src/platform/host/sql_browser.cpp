#include "platform/host/sql_browser.h"

#include "platform/host/network.h"

#include <QList>

namespace sql_browser {

namespace {

constexpr char kInstanceRequest = 0x04;
constexpr char kAnswer = 0x05;
constexpr qsizetype kAnswerHeader = 3; // kind and length

} // namespace

std::optional<int> instancePort(const QString &host, const QString &instance,
                                std::chrono::milliseconds patience, int browserPort)
{
    const QStringList addresses = network::addresses(host);
    if (addresses.isEmpty())
        return std::nullopt;
    return portInAnswer(
        network::askDatagram(addresses.first(), browserPort, instanceRequest(instance), patience));
}

QByteArray instanceRequest(const QString &instance)
{
    return kInstanceRequest + instance.toUtf8() + '\0';
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
