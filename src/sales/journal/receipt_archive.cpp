#include "sales/journal/receipt_archive.h"

#include "common/program.h"
#include "common/turkish.h"
#include "sales/journal/journal_file.h"
#include "sales/journal/journal_words.h"
#include "sales/journal/kurus.h"
#include "sales/receipt_printing.h"
#include "sales/till_session.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// "7.3" and "07.03.2026"; without a year the last such day.
std::optional<QDate> dayOf(const QString &text, QDate today)
{
    static const QRegularExpression form(u"^(\\d{1,2})\\.(\\d{1,2})(?:\\.(\\d{4}))?$"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return {};
    const int year = match.captured(3).isEmpty() ? today.year() : match.captured(3).toInt();
    QDate day(year, match.captured(2).toInt(), match.captured(1).toInt());
    if (match.captured(3).isEmpty() && day > today)
        day = day.addYears(-1);
    return day.isValid() ? std::optional(day) : std::nullopt;
}

std::optional<QTime> timeOf(const QString &text)
{
    const QTime time = QTime::fromString(text, u"H:m"_s);
    return time.isValid() ? std::optional(time) : std::nullopt;
}

/// What a sale must have one of to be found by the text.
QString conditionFor(const QString &text, QDate today)
{
    const QString literal = JournalFile::quoted(text);
    QStringList any = {u"fis=%1"_s.arg(literal), u"fatura=%1"_s.arg(literal)};
    if (const auto day = dayOf(text, today))
        any += u"substr(an,1,10)='%1'"_s.arg(day->toString(Qt::ISODate));
    if (const auto time = timeOf(text))
        any += u"substr(an,12,5)='%1'"_s.arg(time->toString(u"HH:mm"_s));
    if (const auto value = amount::parse(text))
        any += u"genel=%1"_s.arg(kurus::of(*value));
    any +=
        u"no IN (SELECT satis FROM kalem WHERE stok=%1 OR barkod=%1 OR instr(aranan,%2)>0)"_s.arg(
            literal, JournalFile::quoted(turkish::lower(text)));
    return u" AND ("_s + any.join(u" OR "_s) + u')';
}

} // namespace

ReceiptArchive::ReceiptArchive(Program &program, JournalFile &file, SaleJournal &sales,
                               TillSession &till)
    : m_program(program), m_file(file), m_sales(sales), m_till(till)
{}

std::vector<ReceiptArchive::Entry> ReceiptArchive::find(const QString &text)
{
    const QString wanted = text.trimmed();
    const QDate today = m_file.today();
    RecordSet rows;
    m_fault.clear();
    try {
        rows = m_file.readWhole(
            u"SELECT no,an,fis,fatura,genel,kasiyer,durum FROM satis WHERE an>='%1' AND %2%3 ORDER "
            u"BY "
            "no DESC LIMIT %4"_s.arg(today.addDays(-kDays).toString(Qt::ISODate), m_file.soldHere(),
                                     wanted.isEmpty() ? QString() : conditionFor(wanted, today),
                                     QString::number(kMost)));
    } catch (const HostError &error) {
        m_fault = error.text();
    }
    std::vector<Entry> found;
    for (; !rows.eof(); rows.moveNext())
        found.push_back({qRound64(rows.number(u"no")),
                         QDateTime::fromString(rows.text(u"an"), Qt::ISODateWithMs),
                         rows.text(u"fis"), rows.text(u"fatura"),
                         kurus::text(qRound64(rows.number(u"genel"))), rows.text(u"kasiyer"),
                         rows.text(u"durum") == journal::kIncomplete});
    return found;
}

Receipt ReceiptArchive::receipt(qint64 number) const
{
    const auto found = m_sales.sale(number);
    return found ? Receipt{found->sale, found->receiptNumber, true} : Receipt{};
}

ReceiptPage ReceiptArchive::page(qint64 sale) const
{
    return drawReceipt(m_till.receiptLayout(), receipt(sale));
}

void ReceiptArchive::print(qint64 sale)
{
    Receipt copy = receipt(sale);
    if (copy.number.isEmpty()) {
        copy.number = m_till.drawReceiptNumber();
        m_sales.setReceiptNumber(sale, copy.number);
    }
    m_program.handle([&] {
        printReceipt(m_program.printers, m_till.settings().yazici.yazici1,
                     drawReceipt(m_till.receiptLayout(), copy));
    });
}
