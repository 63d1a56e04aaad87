#include "sales/cashier.h"

#include "common/host_queries.h"
#include "common/program.h"

using namespace Qt::StringLiterals;

namespace {

const QString kSeparator = u"<\\\\\\>"_s;

} // namespace

CashierChoice::CashierChoice(Program &program, bool byCode, QObject *parent)
    : QObject(parent), m_program(program), m_byCode(byCode)
{}

void CashierChoice::load()
{
    m_entries.clear();
    RecordSet rows = m_program.company().execute(host_queries::allOf(u"PERSONEL"));
    for (; !rows.eof(); rows.moveNext()) {
        QString tag;
        for (const QString &part : {rows.text(u"PERKOD"), rows.text(u"PEROZKOD"), QString()})
            tag.append(kSeparator).append(part);
        m_entries.push_back({rows.text(u"PERADSOYAD"), tag});
    }
}

QStringList CashierChoice::names() const
{
    QStringList names;
    for (const Entry &entry : m_entries)
        names += entry.text;
    return names;
}

void CashierChoice::perlistesec(int row)
{
    if (row < 0 || row >= static_cast<int>(m_entries.size()))
        return;
    const Entry &entry = m_entries[static_cast<std::size_t>(row)];
    Q_EMIT chosen({entry.element(1), entry.text});
}

void CashierChoice::persifresec(const QString &personalCode)
{
    for (const Entry &entry : m_entries) {
        if (entry.element(2) == personalCode) {
            Q_EMIT chosen({entry.element(1), entry.text});
            return;
        }
    }
    m_program.warn(u"GİRİLEN ŞİFREYİ KULLANAN PERSONEL BULUNAMADI..."_s);
    Q_EMIT rejected();
}

QString CashierChoice::Entry::element(qsizetype i) const
{
    return tag.split(kSeparator).value(i);
}
