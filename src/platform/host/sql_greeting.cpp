#include "platform/host/sql_greeting.h"

#include <QtEndian>

namespace sql_greeting {

namespace {

constexpr qsizetype kHeader = 8; ///< kind, state, length of all (two bytes), four more
constexpr char kAnswer = 0x04;
constexpr char kEncryption = 0x01;
constexpr char kEndOfOptions = '\xFF';
constexpr qsizetype kOption = 5; ///< name, place and length (two bytes each)

int wordAt(const QByteArray &bytes, qsizetype at)
{
    return bytes.size() < at + 2 ? 0 : qFromBigEndian<quint16>(bytes.constData() + at);
}

/// What the server says of encryption; nothing when its answer is no answer.
std::optional<PortGreeting::Encryption> encryptionIn(const QByteArray &answer)
{
    using Encryption = PortGreeting::Encryption;
    const QByteArray body = answer.sliced(kHeader);
    for (qsizetype at = 0; at + kOption <= body.size() && body.at(at) != kEndOfOptions;
         at += kOption) {
        if (body.at(at) != kEncryption)
            continue;
        const int place = wordAt(body, at + 1);
        if (place >= body.size())
            return std::nullopt;
        switch (body.at(place)) {
        case 0x01: // on
        case 0x03: // required
            return Encryption::required;
        case 0x02: // not supported
            return Encryption::none;
        default:
            return Encryption::possible;
        }
    }
    return std::nullopt;
}

} // namespace

/// Options and their places, then: version 9, encryption at the server's choice, no instance, no
/// thread.
QByteArray request()
{
    return QByteArray::fromHex("1201002900000100"
                               "0000150006"
                               "01001b0001"
                               "02001c0001"
                               "03001d0004"
                               "ff"
                               "090000000000"
                               "00"
                               "00"
                               "00000000");
}

bool isWhole(const QByteArray &answer)
{
    if (answer.isEmpty())
        return false;
    return answer.front() != kAnswer ||
           (answer.size() >= kHeader && answer.size() >= wordAt(answer, 2));
}

PortGreeting read(const network::Conversation &conversation)
{
    using End = network::Conversation::End;
    using Kind = PortGreeting::Kind;
    const QByteArray &answer = conversation.answer;
    if (answer.isEmpty())
        return {conversation.end == End::silent ? Kind::silent : Kind::closed, {}};
    if (answer.front() != kAnswer)
        return {Kind::foreign, {}};
    if (conversation.end != End::whole)
        return {Kind::half, {}};
    if (const auto encryption = encryptionIn(answer))
        return {Kind::server, *encryption};
    return {Kind::foreign, {}};
}

} // namespace sql_greeting
