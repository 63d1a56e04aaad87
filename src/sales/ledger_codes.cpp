#include "sales/ledger_codes.h"

#include "common/program.h"
#include "common/settings.h"

#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace {

struct Code
{
    QStringView name;
    QStringView table;
    QStringView column;
    const QString &value;
};

/// A ledger that may not be asked knows every code: a missing right must not look like a missing
/// warehouse.
bool knows(HostConnection &ledger, const Code &code)
{
    try {
        const RecordSet rows = ledger.execute(u"select * from " % code.table % u" where " %
                                              code.column % u"='" % code.value % u'\'');
        return !rows.eof() || rows.columns().isEmpty();
    } catch (const HostError &error) {
        if (error.connectionLost())
            throw;
        return error.cause() == HostError::Cause::right;
    }
}

QString told(const Code &code)
{
    return code.value.isEmpty() ? u"%1 (boş)"_s.arg(code.name)
                                : u"%1 %2"_s.arg(code.name, code.value);
}

/// Nothing when the ledger does not answer; the posting itself tells of a lost connection.
std::optional<QStringList> unknownCodes(Program &program, const Settings &settings,
                                        const QString &cashier)
{
    const Settings::Stok &stok = settings.stok;
    const Code codes[] = {
        {u"depo", u"DEPO", u"DEPKOD", stok.depo},
        {u"cari hesap", u"CARKART", u"CARKOD", stok.carikod},
        {u"satış fiyatı", u"STKFIYTIP", u"STKFTFIYNO", stok.fiyatip},
        {u"stok fişi tipi", u"STKFISTIP", u"STKFTNO", stok.stkfistip},
        {u"cari fişi tipi", u"CARFISTIP", u"CARFTNO", stok.crfistip},
        {u"fatura tipi", u"FATFISTIP", u"FATFTNO", stok.ftfistip},
        {u"kasiyer", u"PERSONEL", u"PERKOD", cashier},
    };
    QStringList unknown;
    try {
        HostConnection &ledger = program.openCompany();
        for (const Code &code : codes) {
            const bool nobodyChosen = code.table == u"PERSONEL" && code.value.isEmpty();
            if (!nobodyChosen && !knows(ledger, code))
                unknown += told(code);
        }
    } catch (const HostError &) {
        return {};
    }
    return unknown;
}

} // namespace

void LedgerCodes::check(const Settings &settings, const QString &cashier)
{
    m_unknown = unknownCodes(m_program, settings, cashier);
    m_accepted = false;
}

bool LedgerCodes::mayPost(const Settings &settings, const QString &cashier)
{
    if (m_accepted)
        return true;
    if (!m_unknown || !m_unknown->isEmpty())
        check(settings, cashier);
    return unknown().isEmpty();
}

bool LedgerCodes::accept()
{
    m_accepted = m_program.ask(u"Bu kodlar bağlı muhasebede yok: %1.\nSatış yine de bu kodlarla "
                               "kaydedilsin mi?"_s.arg(unknown().join(u", "_s)));
    return m_accepted;
}
