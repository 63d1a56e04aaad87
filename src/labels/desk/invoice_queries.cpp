#include "labels/desk/invoice_queries.h"

#include "common/host_queries.h"

using namespace Qt::StringLiterals;

namespace invoice_queries {

QString all()
{
    return host_queries::allOf(u"FATFIS");
}

QString lines(const QString &reference)
{
    return u"select * from FATHAR where FATHARREFNO='"_s + reference + u"'"_s;
}

QString trackedLines(const QString &reference, const QString &trackingNumber)
{
    return lines(reference) + u" and FATHARACIKLAMA1='"_s + trackingNumber + u"'"_s;
}

} // namespace invoice_queries
