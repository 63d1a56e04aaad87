#include "platform/host/engine_errors.h"

using namespace Qt::StringLiterals;

HostError engineError(int number, const QString &engineText, const QString &statement,
                      HostError::Cause cause)
{
    QString text = u"İşlem yapılamadı."_s;
    if (number == HostError::kConnectionLost)
        text = u"Veritabanına ulaşılamıyor."_s;
    else if (number == HostError::kDuplicate)
        text = u"Kayıt, tablonun kurallarına uymuyor; aynı kayıt zaten var olabilir."_s;
    return {number, text + u'\n' + engineText, statement, cause};
}
