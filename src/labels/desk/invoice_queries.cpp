#include "labels/desk/invoice_queries.h"

using namespace Qt::StringLiterals;

namespace invoice_queries {

QString types()
{
    return u"select * from FATFISTIP"_s;
}

QString all()
{
    return u"select * from FATFIS"_s;
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
