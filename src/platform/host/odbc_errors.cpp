#include "platform/host/odbc_errors.h"

#include "common/host_error.h"

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

/// What the server's own error numbers and the states of ODBC mean. The first entry that any
/// message bears is told: a refused database brings a refused login with it.
struct Reason
{
    QStringView state; ///< its beginning; empty: the number decides
    int native;
    bool refused;
    QStringView text;
};

constexpr QStringView kNoDatabase =
    u"Veritabanı açılamadı: adı yanlış ya da bu kullanıcının o veritabanına hakkı yok.";
constexpr QStringView kNoLogin = u"Kullanıcı adı ya da parola kabul edilmedi.";
constexpr QStringView kLocked = u"Bu kullanıcı sunucuda kapatılmış ya da kilitlenmiş.";
constexpr QStringView kNoRight = u"Kullanıcının bu işleme hakkı yok.";
constexpr QStringView kNoRoom = u"Sunucuda yer kalmadı: veritabanının diski ya da günlüğü dolu.";
constexpr QStringView kTooLong = u"Bir metin tablodaki sütununa sığmıyor.";
constexpr QStringView kNoDriver = u"ODBC sürücüsü bulunamadı ya da yüklenemedi.";
constexpr QStringView kBroken = u"Sunucuyla bağlantı koptu.";
constexpr QStringView kAway = u"Sunucuya ulaşılamıyor.";

constexpr auto kReasons = std::to_array<Reason>({
    {{}, 4060, true, kNoDatabase},
    {{}, 4064, true, kNoDatabase},
    {{}, 911, true, kNoDatabase},
    {{}, 916, true, kNoDatabase},
    {{}, 18470, true, kLocked},
    {{}, 18486, true, kLocked},
    {{}, 18487, true, u"Parolanın süresi dolmuş; sunucuda yenilenmesi gerekiyor."},
    {{}, 18488, true, u"Parolanın sunucuda değiştirilmesi gerekiyor."},
    {{}, 18452, true, kNoLogin},
    {{}, 18456, true, kNoLogin},
    {u"28000", 0, true, kNoLogin},
    {u"IM002", 0, true, kNoDriver},
    {u"IM003", 0, true, kNoDriver},
    {u"IM004", 0, true, kNoDriver},
    {{}, 229, false, kNoRight},
    {{}, 230, false, kNoRight},
    {{}, 262, false, kNoRight},
    {{}, 208, false, u"Tablo bulunamadı; bu veritabanı bir muhasebe şirketi olmayabilir."},
    {{}, 207, false, u"Tabloda beklenen sütun yok; muhasebe programının sürümü başka olabilir."},
    {{}, 105, false, u"Sunucu sorguyu anlamadı; yazılanda tek tırnak (') olabilir."},
    {{}, 102, false, u"Sunucu sorguyu anlamadı; yazılanda tek tırnak (') olabilir."},
    {{}, 8152, false, kTooLong},
    {{}, 2628, false, kTooLong},
    {{}, 515, false, u"Tabloda boş bırakılamayan bir sütun boş kaldı."},
    {{}, 1105, false, kNoRoom},
    {{}, 9002, false, kNoRoom},
    {{}, 3906, false, u"Veritabanı salt okunur."},
    {{}, 1205, false, u"Başka bir program aynı kayıtları yazıyordu; sunucu bu işlemi bıraktı."},
    {u"HYT0", 0, false, u"Sunucu süresinde yanıt vermedi."},
    {{}, 20003, false, u"Sunucu süresinde yanıt vermedi."},
    {{}, 20009, false, kAway},
    {{}, 20004, false, kBroken},
    {{}, 20006, false, kBroken},
    {{}, 20017, false, kBroken},
    {{}, 20047, false, kBroken},
    {u"08S01", 0, false, kBroken},
    {u"08", 0, false, kAway},
});

const Reason *reasonOf(const std::vector<OdbcMessage> &messages)
{
    for (const Reason &reason : kReasons)
        for (const OdbcMessage &message : messages)
            if (reason.state.isEmpty() ? message.native == reason.native
                                       : message.state.startsWith(reason.state))
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

bool odbcRefused(const std::vector<OdbcMessage> &messages)
{
    const Reason *reason = reasonOf(messages);
    return reason && reason->refused;
}

bool odbcTimedOut(const std::vector<OdbcMessage> &messages)
{
    return std::any_of(messages.begin(), messages.end(), isTimeOut);
}
