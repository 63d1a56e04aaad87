#include "platform/host/odbc_errors.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// FreeTDS reports a broken connection as a mere warning, with one of these numbers: timed out,
/// read failed, write failed, connect failed, closed by the server, connection dead.
constexpr std::array<int, 6> kFreeTdsLost = {20003, 20004, 20006, 20009, 20017, 20047};

bool isTimeOut(const OdbcMessage &message)
{
    return message.state == u"HYT00"_s || message.state == u"HYT01"_s;
}

bool isLost(const OdbcMessage &message)
{
    return message.state.startsWith(u"08"_s) || isTimeOut(message) ||
           std::find(kFreeTdsLost.begin(), kFreeTdsLost.end(), message.native) !=
               kFreeTdsLost.end();
}

using Cause = HostError::Cause;

/// What the server's own error numbers, the states of ODBC and the words of drivers mean. The first
/// entry that any message bears is told: a refused database brings a refused login with it.
struct Reason
{
    QStringView state; ///< its beginning; may be empty
    int native;        ///< 0: any
    QStringView word;  ///< of the text, where a driver has no number for it; may be empty
    Cause cause;
    QStringView text;

    bool isBehind(const OdbcMessage &message) const
    {
        return message.state.startsWith(state) && (native == 0 || message.native == native) &&
               message.text.contains(word, Qt::CaseInsensitive);
    }
};

constexpr QStringView kNoDatabase =
    u"Veritabanı açılamadı: adı yanlış ya da bu kullanıcının o veritabanına hakkı yok.";
constexpr QStringView kNoLogin = u"Kullanıcı adı ya da parola kabul edilmedi.";
constexpr QStringView kLocked = u"Bu kullanıcı sunucuda kapatılmış ya da kilitlenmiş.";
constexpr QStringView kNoRight = u"Kullanıcının bu işleme hakkı yok.";
constexpr QStringView kNoTable =
    u"Tablo bulunamadı; bu veritabanı bir muhasebe şirketi olmayabilir.";
constexpr QStringView kNoColumn =
    u"Tabloda beklenen sütun yok; muhasebe programının sürümü başka olabilir.";
constexpr QStringView kSyntax = u"Sunucu sorguyu anlamadı; yazılanda tek tırnak (') olabilir.";
constexpr QStringView kDeadlock =
    u"Başka bir program aynı kayıtları yazıyordu; sunucu bu işlemi bıraktı.";
constexpr QStringView kNoRoom = u"Sunucuda yer kalmadı: veritabanının diski ya da günlüğü dolu.";
constexpr QStringView kTooLong = u"Bir metin tablodaki sütununa sığmıyor.";
constexpr QStringView kNoEncryption = u"Sürücü ile sunucu şifrelemede anlaşamadı.";
constexpr QStringView kNoAnswer = u"Sunucu süresinde yanıt vermedi.";
constexpr QStringView kNoDriver = u"ODBC sürücüsü bulunamadı ya da yüklenemedi.";
constexpr QStringView kBroken = u"Sunucuyla bağlantı koptu.";
constexpr QStringView kAway = u"Sunucuya ulaşılamıyor.";

constexpr auto kReasons = std::to_array<Reason>({
    {{}, 4060, {}, Cause::database, kNoDatabase},
    {{}, 4064, {}, Cause::database, kNoDatabase},
    {{}, 911, {}, Cause::database, kNoDatabase},
    {{}, 916, {}, Cause::database, kNoDatabase},
    {{}, 18470, {}, Cause::login, kLocked},
    {{}, 18486, {}, Cause::login, kLocked},
    {{}, 18487, {}, Cause::login, u"Parolanın süresi dolmuş; sunucuda yenilenmesi gerekiyor."},
    {{}, 18488, {}, Cause::login, u"Parolanın sunucuda değiştirilmesi gerekiyor."},
    {{}, 18452, {}, Cause::login, kNoLogin},
    {{}, 18456, {}, Cause::login, kNoLogin},
    {u"28000", 0, {}, Cause::login, kNoLogin},
    {u"01000", 0, u"Can't open lib", Cause::noDriver, kNoDriver},
    {u"IM002", 0, {}, Cause::noDriver, kNoDriver},
    {u"IM003", 0, {}, Cause::noDriver, kNoDriver},
    {u"IM004", 0, {}, Cause::noDriver, kNoDriver},
    {{}, 17835, {}, Cause::encryption, kNoEncryption},
    {{}, 229, {}, Cause::right, kNoRight},
    {{}, 230, {}, Cause::right, kNoRight},
    {{}, 262, {}, Cause::right, kNoRight},
    {u"42000", 0, u"permission denied", Cause::right, kNoRight},
    {{}, 208, {}, Cause::noTable, kNoTable},
    {{}, 207, {}, Cause::noTable, kNoColumn},
    {{}, 105, {}, Cause::unknown, kSyntax},
    {{}, 102, {}, Cause::unknown, kSyntax},
    {{}, 8152, {}, Cause::unknown, kTooLong},
    {{}, 2628, {}, Cause::unknown, kTooLong},
    {{}, 515, {}, Cause::unknown, u"Tabloda boş bırakılamayan bir sütun boş kaldı."},
    {{}, 1105, {}, Cause::unknown, kNoRoom},
    {{}, 9002, {}, Cause::unknown, kNoRoom},
    {{}, 3906, {}, Cause::unknown, u"Veritabanı salt okunur."},
    {{}, 1205, {}, Cause::unknown, kDeadlock},
    {u"08001", 0, u"SSL", Cause::encryption, kNoEncryption},
    {u"08001", 0, u"TLS ", Cause::encryption, kNoEncryption},
    {u"08001", 0, u"encrypt", Cause::encryption, kNoEncryption},
    {u"08001", 0, u"certificate", Cause::encryption, kNoEncryption},
    {u"08001", 0, u"sertifika", Cause::encryption, kNoEncryption},
    {u"HYT0", 0, {}, Cause::silent, kNoAnswer},
    {{}, 20003, {}, Cause::silent, kNoAnswer},
    {{}, 20009, {}, Cause::unknown, kAway},
    {{}, 20004, {}, Cause::unknown, kBroken},
    {{}, 20006, {}, Cause::unknown, kBroken},
    {{}, 20017, {}, Cause::unknown, kBroken},
    {{}, 20047, {}, Cause::unknown, kBroken},
    {u"08S01", 0, {}, Cause::unknown, kBroken},
    {u"08", 0, {}, Cause::unknown, kAway},
});

const Reason *reasonOf(const std::vector<OdbcMessage> &messages)
{
    for (const Reason &reason : kReasons)
        for (const OdbcMessage &message : messages)
            if (reason.isBehind(message))
                return &reason;
    return nullptr;
}

bool isRule(const OdbcMessage &message)
{
    return message.state == u"23000"_s;
}

} // namespace

int odbcErrorNumber(const std::vector<OdbcMessage> &messages)
{
    if (std::any_of(messages.begin(), messages.end(), isLost))
        return HostError::kConnectionLost;
    if (std::any_of(messages.begin(), messages.end(), isRule))
        return HostError::kDuplicate;
    return HostError::kStatement;
}

QString odbcReason(const std::vector<OdbcMessage> &messages)
{
    const Reason *reason = reasonOf(messages);
    return reason ? reason->text.toString() : QString();
}

HostError::Cause odbcCause(const std::vector<OdbcMessage> &messages)
{
    const Reason *reason = reasonOf(messages);
    return reason ? reason->cause : Cause::unknown;
}

bool odbcTimedOut(const std::vector<OdbcMessage> &messages)
{
    return std::any_of(messages.begin(), messages.end(), isTimeOut);
}
