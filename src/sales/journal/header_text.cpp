#include "sales/journal/header_text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

using ledger::Header;

/// The names bind files that were written before: none may change.
constexpr std::pair<QStringView, QString Header::*> kFields[] = {
    {u"tarih", &Header::today},
    {u"yil", &Header::year},
    {u"ay", &Header::month},
    {u"saat", &Header::time},
    {u"depo", &Header::warehouse},
    {u"fiyatip", &Header::priceNumber},
    {u"carikod", &Header::customerCode},
    {u"cari", &Header::customerName},
    {u"stkfistip", &Header::stockSlipType},
    {u"crfistip", &Header::accountSlipType},
    {u"kasiyer", &Header::cashierCode},
    {u"brut", &Header::gross},
    {u"indirim", &Header::discount},
    {u"kdv", &Header::vat},
    {u"genel", &Header::grand},
    {u"oran", &Header::vatRate},
    {u"stkno", &Header::stockNumber},
    {u"crno", &Header::accountNumber},
    {u"ftno", &Header::invoiceNumber},
    {u"stksayac", &Header::stockCounter},
    {u"stkref", &Header::stockReference},
    {u"crref", &Header::accountReference},
    {u"ftref", &Header::invoiceReference},
};

} // namespace

QString header_text::of(const ledger::LedgerSale &sale)
{
    QJsonObject object;
    for (const auto &[name, field] : kFields)
        object.insert(name, sale.header().*field);
    QJsonArray counters;
    for (const ledger::Document document : ledger::kDocuments) {
        const ledger::Drawn &drawn = sale.drawn(document);
        counters.append(QJsonArray{drawn.readable, QString::number(drawn.value), drawn.number});
    }
    object.insert(u"sayaclar"_s, counters);
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

void header_text::read(const QString &text, Header &header, std::array<ledger::Drawn, 3> &counters)
{
    const QJsonObject object = QJsonDocument::fromJson(text.toUtf8()).object();
    for (const auto &[name, field] : kFields)
        header.*field = object.value(name).toString();
    const QJsonArray drawn = object.value(u"sayaclar"_s).toArray();
    for (std::size_t i = 0; i < counters.size(); ++i) {
        const QJsonArray one = drawn.at(static_cast<qsizetype>(i)).toArray();
        counters[i] = {one.at(0).toBool(), one.at(1).toString().toLongLong(), one.at(2).toString()};
    }
}
