#include "platform/fake_sql_server.h"

#include <QtEndian>

#include <utility>
#include <vector>

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

QString fromUtf16(const QByteArray &bytes)
{
    return QString(reinterpret_cast<const QChar *>(bytes.constData()), bytes.size() / 2);
}

/// A text with its length in characters before it, in one byte.
QByteArray shortText(QStringView text)
{
    return little(static_cast<quint64>(text.size()), 1) + utf16(text);
}

/// A text with its length in characters before it, in two bytes.
QByteArray messageText(QStringView text)
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

/// One column: its name and the bytes that tell its type.
QByteArray column(QStringView name, const QByteArray &type)
{
    return little(0, 4) + little(9, 2) + type + shortText(name);
}

QByteArray columns(const std::vector<QByteArray> &list)
{
    return "\x81" + little(list.size(), 2) + QByteArrayList(list.begin(), list.end()).join();
}

QByteArray turkish()
{
    return QByteArray::fromHex("1f0405d000");
}

/// STKKOD nvarchar(20)
QByteArray codeColumn()
{
    return columns({column(u"STKKOD", "\xE7" + little(40, 2) + turkish())});
}

QByteArray codeRow(QStringView text)
{
    return "\xD1" + little(static_cast<quint64>(text.size()) * 2, 2) + utf16(text);
}

/// A long text in two pieces.
QByteArray pieces(QStringView text)
{
    const qsizetype half = text.size() / 2;
    QByteArray result = little(static_cast<quint64>(text.size()) * 2, 8);
    for (const QStringView piece : {text.first(half), text.sliced(half)})
        result += little(static_cast<quint64>(piece.size()) * 2, 4) + utf16(piece);
    return result + little(0, 4);
}

QByteArray typedColumns()
{
    return columns({
        column(u"TAM", "\x26" + little(4, 1)),
        column(u"BUYUK", "\x26" + little(8, 1)),
        column(u"PARA", "\x6E" + little(8, 1)),
        column(u"SAYI", "\x6D" + little(8, 1)),
        column(u"ONDALIK", "\x6A" + QByteArray::fromHex("090a02")),
        column(u"ZAMAN", "\x6F" + little(8, 1)),
        column(u"TARIH", "\x28"),
        column(u"SABIT", "\xAF" + little(5, 2) + turkish()),
        column(u"METIN", "\xA7" + little(20, 2) + turkish()),
        column(u"UZUN", "\xE7" + little(0xFFFF, 2) + turkish()),
    });
}

QByteArray typedRow()
{
    const QByteArray latin5 = QByteArray::fromHex("dd6ee763fd");            // İnçcı
    return "\xD1" + little(4, 1) + little(static_cast<quint64>(-7), 4)      // TAM
           + little(8, 1) + little(8690000000012, 8)                        // BUYUK
           + little(8, 1) + little(0, 4) + little(1499000, 4)               // PARA 149,90
           + little(8, 1) + QByteArray::fromHex("0000000000002940")         // SAYI 12,5
           + little(9, 1) + little(1, 1) + little(1899, 8)                  // ONDALIK 18,99
           + little(8, 1) + little(46344, 4) + little(quint64{300} * 60, 4) // ZAMAN
           + little(3, 1) + little(739939, 3)                               // TARIH
           + little(5, 2) + "ab   "                                         // SABIT
           + little(5, 2) + latin5                                          // METIN
           + pieces(FakeSqlServer::longText());                             // UZUN
}

QByteArray nullRow()
{
    return "\xD1" + QByteArray(7, '\0') + QByteArray(4, '\xFF') + QByteArray(8, '\xFF');
}

/// Two results; a client takes the first and has to read past the second.
QByteArray typedAnswer()
{
    constexpr quint16 more = 0x11; // with a count of rows, and more to come
    return typedColumns() + typedRow() + nullRow() + done(more) + codeColumn() + codeRow(u"S001") +
           done(0x10);
}

/// The password of a login packet, which crosses the wire in a thin disguise.
QString passwordOf(const QByteArray &login)
{
    constexpr qsizetype header = 8;
    constexpr qsizetype place = header + 44; // offset and length of the password
    const auto number = [&](qsizetype at) {
        return qFromLittleEndian<quint16>(login.constData() + at);
    };
    QByteArray bytes = login.sliced(header + number(place), qsizetype{number(place + 2)} * 2);
    for (char &c : bytes) {
        const auto byte = static_cast<quint8>(static_cast<quint8>(c) ^ 0xA5U);
        c = static_cast<char>(byte << 4 | byte >> 4);
    }
    return fromUtf16(bytes);
}

/// The text of a statement packet, behind its list of headers.
QString statementOf(const QByteArray &packet)
{
    constexpr qsizetype header = 8;
    const auto skip = qFromLittleEndian<quint32>(packet.constData() + header);
    return fromUtf16(packet.sliced(header + skip));
}

QByteArray errorAnswer(quint64 number, QStringView text)
{
    const QByteArray body = little(number, 4) + QByteArray::fromHex("010e") + messageText(text) +
                            shortText(u"SUNUCU") + shortText(u"") + little(1, 4);
    return "\xAA" + little(static_cast<quint64>(body.size()), 2) + body + done(2);
}

} // namespace

QString FakeSqlServer::longText()
{
    return QString(5000, QChar(u'ş')) + QStringLiteral("son");
}

void FakeSqlServer::keep(QString &place, const QString &text)
{
    const std::lock_guard lock(m_mutex);
    place = text;
}

QString FakeSqlServer::read(const QString &place) const
{
    const std::lock_guard lock(m_mutex);
    return place;
}

void FakeSqlServer::serve()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    m_port = server.serverPort();
    std::vector<std::unique_ptr<QTcpSocket>> clients;
    while (!m_stop) {
        server.waitForNewConnection(clients.empty() ? 20 : 0);
        while (QTcpSocket *client = server.nextPendingConnection())
            clients.emplace_back(client);
        std::erase_if(clients, [this](const auto &client) { return !talk(*client); });
    }
}

/// False when a client has gone, or is left.
bool FakeSqlServer::talk(QTcpSocket &client)
{
    if (client.state() != QAbstractSocket::ConnectedState)
        return false;
    quint8 type = 0;
    const QByteArray packet = readPacket(client, type);
    if (packet.isEmpty())
        return true;
    constexpr qsizetype header = 8;
    m_message += m_message.isEmpty() ? packet : packet.sliced(header);
    const bool last = (packet.at(1) & 1) != 0; // long statements come in several packets
    if (!last || answerPacket(client, type, std::exchange(m_message, {})))
        return true;
    client.abort();
    return false;
}

/// Empty while no packet has come.
QByteArray FakeSqlServer::readPacket(QTcpSocket &client, quint8 &type)
{
    constexpr qsizetype header = 8;
    const QByteArray seen = client.peek(header);
    const int length = seen.size() < header ? 0 : qFromBigEndian<quint16>(seen.constData() + 2);
    if (length == 0 || client.bytesAvailable() < length) {
        client.waitForReadyRead(5);
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
    client.write(packet + tokens); // all answers fit into one packet
    client.waitForBytesWritten(1000);
}

bool FakeSqlServer::answerPacket(QTcpSocket &client, quint8 type, const QByteArray &packet)
{
    if (m_fault == Fault::silent)
        return true;
    switch (type) {
    case Packet::hello:
        if (m_fault == Fault::foreign)
            client.write("HTTP/1.1 400 Bad Request\r\n\r\n");
        else
            reply(client, helloAnswer(), m_fault != Fault::halfHello);
        return true;
    case Packet::login:
        keep(m_password, passwordOf(packet));
        if (m_fault == Fault::refusesLogin)
            return false;
        if (m_fault == Fault::wrongPassword) {
            reply(client, errorAnswer(18456, u"Login failed for user 'sa'."));
            return true;
        }
        reply(client, loginAnswer());
        return m_fault != Fault::closesWhenIdle;
    case Packet::attention:
        if (m_fault == Fault::slowQuery)
            reply(client, done(0x20));
        return true;
    default:
        keep(m_statement, statementOf(packet));
        return answerQuery(client);
    }
}

bool FakeSqlServer::answerQuery(QTcpSocket &client)
{
    switch (m_fault) {
    case Fault::closesOnQuery:
        return false;
    case Fault::closesInResult:
        reply(client, codeColumn() + codeRow(u"S001") + codeRow(u"S002").first(5), false);
        return false;
    case Fault::silentInResult:
        reply(client, codeColumn() + codeRow(u"S001") + codeRow(u"S002").first(5), false);
        return true;
    case Fault::none:
        reply(client, typedAnswer());
        return true;
    case Fault::violatesKey:
        reply(client, errorAnswer(2627, u"Çift kayıt"));
        return true;
    default:
        return true;
    }
}
