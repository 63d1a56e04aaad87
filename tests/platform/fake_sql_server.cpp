#include "platform/fake_sql_server.h"

#include <QtEndian>

namespace {

QByteArray little(quint64 number, int bytes)
{
    QByteArray result;
    for (int i = 0; i < bytes; ++i)
        result += static_cast<char>(number >> (8 * i));
    return result;
}

QByteArray utf16(QStringView text)
{
    return QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
}

/// A text with its length in characters before it, in one byte.
QByteArray shortText(QStringView text)
{
    return little(static_cast<quint64>(text.size()), 1) + utf16(text);
}

/// A text with its length in characters before it, in two bytes.
QByteArray longText(QStringView text)
{
    return little(static_cast<quint64>(text.size()), 2) + utf16(text);
}

QByteArray done(quint16 status)
{
    return "\xFD" + little(status, 2) + little(0xC1, 2) + little(0, 8);
}

/// Version 12, and "no encryption here".
QByteArray helloAnswer()
{
    return QByteArray::fromHex("00000b0006"
                               "0100110001"
                               "ff"
                               "0c0000000000"
                               "02");
}

QByteArray loginAnswer()
{
    const QByteArray body = QByteArray::fromHex("0174000004") + shortText(u"Microsoft SQL Server") +
                            QByteArray::fromHex("0c000000");
    return "\xAD" + little(static_cast<quint64>(body.size()), 2) + body + done(0);
}

/// One column of text, STKKOD nvarchar(20).
QByteArray columns()
{
    return "\x81" + little(1, 2) + little(0, 4) + little(9, 2) + "\xE7" + little(40, 2) +
           QByteArray::fromHex("1f0405d000") + shortText(u"STKKOD");
}

QByteArray row(QStringView text)
{
    return "\xD1" + little(static_cast<quint64>(text.size()) * 2, 2) + utf16(text);
}

QByteArray duplicateKey()
{
    const QByteArray body = little(2627, 4) + QByteArray::fromHex("010e") +
                            longText(u"Çift kayıt") + shortText(u"SUNUCU") + shortText(u"") +
                            little(1, 4);
    return "\xAA" + little(static_cast<quint64>(body.size()), 2) + body + done(2);
}

} // namespace

void FakeSqlServer::serve()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    m_port = server.serverPort();
    while (!m_stop) {
        server.waitForNewConnection(20);
        if (const std::unique_ptr<QTcpSocket> client{server.nextPendingConnection()})
            talk(*client);
    }
}

void FakeSqlServer::talk(QTcpSocket &client)
{
    while (!m_stop && client.state() == QAbstractSocket::ConnectedState) {
        quint8 type = 0;
        if (readPacket(client, type).isEmpty())
            continue;
        if (!answerPacket(client, type))
            return client.abort();
    }
}

/// Empty while no packet has come.
QByteArray FakeSqlServer::readPacket(QTcpSocket &client, quint8 &type)
{
    constexpr qsizetype header = 8;
    const QByteArray seen = client.peek(header);
    const int length = seen.size() < header ? 0 : qFromBigEndian<quint16>(seen.constData() + 2);
    if (length == 0 || client.bytesAvailable() < length) {
        client.waitForReadyRead(20);
        return {};
    }
    type = static_cast<quint8>(seen.front());
    return client.read(length);
}

void FakeSqlServer::reply(QTcpSocket &client, const QByteArray &tokens, bool whole)
{
    const qsizetype announced = tokens.size() + 8 + (whole ? 0 : 100);
    QByteArray packet;
    packet += static_cast<char>(Packet::answer);
    packet += static_cast<char>(1);
    packet += static_cast<char>(announced >> 8);
    packet += static_cast<char>(announced);
    packet += QByteArray::fromHex("00330100");
    client.write(packet + tokens);
    client.waitForBytesWritten(1000);
}

bool FakeSqlServer::answerPacket(QTcpSocket &client, quint8 type)
{
    if (m_fault == Fault::silent)
        return true;
    switch (type) {
    case Packet::hello:
        reply(client, helloAnswer());
        return true;
    case Packet::login:
        if (m_fault == Fault::refusesLogin)
            return false;
        reply(client, loginAnswer());
        return true;
    case Packet::attention:
        if (m_fault == Fault::slowQuery)
            reply(client, done(0x20));
        return true;
    default:
        return answerQuery(client);
    }
}

bool FakeSqlServer::answerQuery(QTcpSocket &client)
{
    switch (m_fault) {
    case Fault::closesOnQuery:
        return false;
    case Fault::closesInResult:
        reply(client, columns() + row(u"S001") + row(u"S002").first(5), false);
        return false;
    case Fault::silentInResult:
        reply(client, columns() + row(u"S001") + row(u"S002").first(5), false);
        return true;
    case Fault::violatesKey:
        reply(client, duplicateKey());
        return true;
    default:
        return true;
    }
}
