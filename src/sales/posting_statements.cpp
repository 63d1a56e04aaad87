#include "sales/posting_statements.h"

#include "common/amount.h"

#include <QStringBuilder>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace ledger {

namespace {

using Values = std::initializer_list<std::pair<QStringView, QString>>;

QString insertInto(QStringView table, Values values)
{
    QString columns;
    QString literals;
    for (const auto &[column, value] : values) {
        const bool first = columns.isEmpty();
        columns.append(first ? u"" : u",").append(column);
        literals.append(first ? u"" : u"','").append(value);
    }
    return u"INSERT INTO "_s % table % u" ("_s % columns % u") values ('"_s % literals % u"')"_s;
}

QString stockMonthCondition(const Header &h, const QString &stockCode, QStringView kind)
{
    return u"STKKOD='"_s % stockCode % u"' AND STKYIL='"_s % h.year % u"' AND STKAY='"_s % h.month +
           u"'AND STKRAKTIP='"_s % kind % u"'AND STKDEPO='"_s % h.warehouse % u"'"_s;
}

QString accountMonthCondition(const Header &h, QStringView kind)
{
    return u"CARKOD='"_s % h.customerCode % u"' AND CARYIL='"_s % h.year % u"' AND CARAY='"_s +
           h.month % u"'AND CARRAKTIP='"_s % kind % u"'AND CARISLTIP='1'"_s;
}

QString counterCondition(const Counter &counter)
{
    return u"EVRNOMODUL='"_s % counter.module % u"'AND EVRSIRANO='"_s % counter.sequence % u"'"_s;
}

} // namespace

QString decimal(QString displayText)
{
    return displayText.replace(u',', u'.');
}

QString amountText(double value)
{
    return decimal(amount::money(value).remove(u'.'));
}

QString balanceText(double value)
{
    return decimal(amount::plain(value));
}

QString summaryText(double value)
{
    QString text = amountText(value);
    if (text.startsWith(u"0."))
        return text.sliced(1);
    return text.startsWith(u"-0.") ? u'-' + text.sliced(2) : text;
}

Line::Line(const SaleLine &line, int lineNumber)
    : number(QString::number(lineNumber)), barcode(line[SaleColumn::barcode]),
      stockCode(line[SaleColumn::stockCode]), name(line[SaleColumn::name]),
      unit(line[SaleColumn::unit]), vatRate(decimal(line[SaleColumn::vatRate])),
      price(decimal(line[SaleColumn::price])), quantity(decimal(line[SaleColumn::quantity])),
      amount(decimal(line[SaleColumn::amount])), discount(decimal(line[SaleColumn::discount])),
      net(decimal(line[SaleColumn::net]))
{
    const pricing::Discounts parts = pricing::discountsOf(line.tag);
    for (std::size_t i = 0; i < percent.size(); ++i) {
        percent[i] = decimal(amount::plain(parts.percent[i]));
        discounts[i] = decimal(amount::plain(parts.amount[i]));
    }
    // The VAT is that of the totals: taken on the net amount and not added to it.
    const double netAmount = pricing::valueOf(line, SaleColumn::net);
    const double pieces = pricing::valueOf(line, SaleColumn::quantity);
    vatBase = amountText(netAmount);
    vatAmount = amountText(pricing::valueOf(line, SaleColumn::vatRate) / 100.0 * netAmount);
    total = amountText(netAmount);
    netPrice = amountText(pieces != 0.0 ? netAmount / pieces : 0.0);
}

QString counterRow(const Counter &counter)
{
    return u"select * from EVRAKNO where "_s % counterCondition(counter);
}

QString advanceCounter(const Counter &counter, const QString &newValue)
{
    return u"UPDATE EVRAKNO SET EVRNO= '"_s % newValue % u"' where "_s % counterCondition(counter);
}

QString highestReference(QStringView column, QStringView table)
{
    return u"select max("_s % column % u") AS TOTAL from  "_s % table;
}

QString stockSlip(const Header &h)
{
    return insertInto(u"STKFIS", {{u"STKFISTAR", h.today},
                                  {u"STKFISREFNO", h.stockReference},
                                  {u"STKFISTIPI", h.stockSlipType},
                                  {u"STKFISGCFLAG", u"2"_s},
                                  {u"STKFISKAYONC", u"2"_s},
                                  {u"STKFISKAYNAK", u"3"_s},
                                  {u"STKFISCARKOD", h.customerCode},
                                  {u"STKFISANADEPO", h.warehouse},
                                  {u"STKFISEVRAKNO1", h.stockNumber},
                                  {u"STKFISEVRAKNO2", h.stockNumber},
                                  {u"STKFISDOVTAR", h.today},
                                  {u"STKFISTOPBTUT", h.gross},
                                  {u"STKFISTOPISK", h.discount},
                                  {u"STKFISTOPNTUT", h.grand},
                                  {u"STKFISTOPKDV", h.vat},
                                  {u"STKFISTOPKTUT", h.grand},
                                  {u"STKFISSEVNO", u"999"_s},
                                  {u"STKFISOTVFLAG", u"0"_s},
                                  {u"STKFISTOPOTUT", u"0"_s}});
}

QString stockBalance(const QString &stockCode, double balance)
{
    return u"UPDATE STKKART SET STKBAKIYE= '"_s + balanceText(balance) + u"' where STKKOD='"_s +
           stockCode + u"'"_s;
}

QString stockMonth(const Header &h, const QString &stockCode, QStringView kind)
{
    return u"select * from STKMIZDEGER where "_s + stockMonthCondition(h, stockCode, kind);
}

QString updateStockMonth(const Header &h, const QString &stockCode, QStringView kind, double value)
{
    return u"UPDATE STKMIZDEGER SET STKALACAK= '"_s + balanceText(value) + u"' where "_s +
           stockMonthCondition(h, stockCode, kind);
}

QString insertStockMonth(const Header &h, const QString &stockCode, QStringView kind, double value)
{
    return insertInto(u"STKMIZDEGER", {{u"STKKOD", stockCode},
                                       {u"STKYIL", h.year},
                                       {u"STKAY", h.month},
                                       {u"STKRAKTIP", kind.toString()},
                                       {u"STKALACAK", balanceText(value)},
                                       {u"STKDEPO", h.warehouse}});
}

QString stockMovement(const Header &h, const Line &l)
{
    return insertInto(u"STKHAR", {{u"STKHARTAR", h.today},
                                  {u"STKHARREFNO", h.stockReference},
                                  {u"STKHARTIPI", h.stockSlipType},
                                  {u"STKHARGCFLAG", u"2"_s},
                                  {u"STKHARKAYONC", u"2"_s},
                                  {u"STKHARKAYNAK", u"3"_s},
                                  {u"STKHARCARKOD", h.customerCode},
                                  {u"STKHARANADEPO", h.warehouse},
                                  {u"STKHARSTKKOD", l.stockCode},
                                  {u"STKHARSTKCINS", l.name},
                                  {u"STKHARSTKBRM", l.unit},
                                  {u"STKHARBARKOD", l.barcode},
                                  {u"STKHARMIKTAR", l.quantity},
                                  {u"STKHARFIYAT", l.price},
                                  {u"STKHARTUTAR", l.amount},
                                  {u"STKHARKDVYUZ", l.vatRate},
                                  {u"STKHARISKYUZ1", l.percent[0]},
                                  {u"STKHARISKYUZ2", l.percent[1]},
                                  {u"STKHARISKYUZ3", l.percent[2]},
                                  {u"STKHARISKYTUT1", l.discounts[0]},
                                  {u"STKHARISKYTUT2", l.discounts[1]},
                                  {u"STKHARISKYTUT3", l.discounts[2]},
                                  {u"STKHARTOPLAMIND", l.discount},
                                  {u"STKHARKDVMATRAH", l.vatBase},
                                  {u"STKHARKDVTUTAR", l.vatAmount},
                                  {u"STKHARTOPLAMTUT", l.total},
                                  {u"STKHARVADETAR", h.today},
                                  {u"STKHARFIYTIP", h.priceNumber},
                                  {u"STKHARSIRANO", l.number},
                                  {u"STKHARNETTUTAR", l.total},
                                  {u"STKHARNETFIYAT", l.netPrice},
                                  {u"STKHAROTVMATRAH", u"0"_s},
                                  {u"STKHAROTVTUTAR", u"0"_s},
                                  {u"STKHAREKDATE1", h.today},
                                  {u"STKHAREKDATE2", h.today}});
}

QString accountSlip(const Header &h)
{
    return insertInto(u"CARFIS", {{u"CARFISTAR", h.today},
                                  {u"CARFISREFNO", h.accountReference},
                                  {u"CARFISTIPI", h.accountSlipType},
                                  {u"CARFISKAYONC", u"2"_s},
                                  {u"CARFISKAYNAK", u"3"_s},
                                  {u"CARFISCARKOD", h.customerCode},
                                  {u"CARFISCARUNVAN", h.customerName},
                                  {u"CARFISEVRAKNO1", h.accountNumber},
                                  {u"CARFISEVRAKNO2", h.accountNumber},
                                  {u"CARFISDOVTAR", h.today},
                                  {u"CARFISBORCTOP", h.grand},
                                  {u"CARFISHAZTAR", h.today},
                                  {u"CARFISKONTTAR", h.today},
                                  {u"CARFISONAYTAR", h.today},
                                  {u"CARFISSEVNO", u"999"_s},
                                  {u"CARFISHAZKOD", h.cashierCode},
                                  {u"CARFISKONTKOD", QString()},
                                  {u"CARFISONAYKOD", QString()}});
}

QString accountMonth(const Header &h, QStringView kind)
{
    return u"select * from CARMIZDEGER where "_s + accountMonthCondition(h, kind);
}

QString updateAccountMonth(const Header &h, QStringView kind, double value)
{
    return u"UPDATE CARMIZDEGER SET CARBORC= '"_s + balanceText(value) + u"' where "_s +
           accountMonthCondition(h, kind);
}

QString insertAccountMonth(const Header &h, QStringView kind, double value)
{
    return insertInto(u"CARMIZDEGER", {{u"CARKOD", h.customerCode},
                                       {u"CARYIL", h.year},
                                       {u"CARAY", h.month},
                                       {u"CARRAKTIP", kind.toString()},
                                       {u"CARBORC", balanceText(value)},
                                       {u"CARISLTIP", u"1"_s}});
}

QString account(const Header &h)
{
    return u"select * from CARKART where CARKOD='"_s + h.customerCode + u"'"_s;
}

QString accountBalance(const Header &h, double debit, double balance)
{
    return u"UPDATE CARKART SET CARBORCTOP= '"_s + balanceText(debit) + u"',CARBAKIYE= '"_s +
           balanceText(balance) + u"' where CARKOD='"_s + h.customerCode + u"'"_s;
}

QString invoice(const Header &h)
{
    return insertInto(u"FATFIS", {{u"FATFISTAR", h.today},
                                  {u"FATFISREFNO", h.invoiceReference},
                                  {u"FATFISTIPI", u"3"_s},
                                  {u"FATFISGCFLAG", u"2"_s},
                                  {u"FATFISKAYONC", u"1"_s},
                                  {u"FATFISKAYNAK", u"3"_s},
                                  {u"FATFISSTKREFNO", h.stockReference},
                                  // Of the stock counter, whatever the column's name says.
                                  {u"FATFISCARREFNO", h.stockCounter},
                                  {u"FATFISKDVDAHILFLAG", u"1"_s},
                                  {u"FATFISANADEPO", h.warehouse},
                                  {u"FATFISCARKOD", h.customerCode},
                                  {u"FATFISCARUNVAN", h.customerName},
                                  {u"FATFISSAAT", h.time},
                                  {u"FATFISVADETAR", h.today},
                                  {u"FATFISIRSTAR", h.today},
                                  {u"FATFISEVRAKNO1", h.invoiceNumber},
                                  {u"FATFISKDVORANI", decimal(h.vatRate)},
                                  {u"FATFISMALTOP", h.gross},
                                  {u"FATFISKALINDYTOP", h.discount},
                                  {u"FATFISBRUTTOPLAM", h.grand},
                                  {u"FATFISKDVMATRAHI", h.grand},
                                  {u"FATFISKDVTUTARI", h.vat},
                                  {u"FATFISARATOPLAM", h.grand},
                                  {u"FATFISGENTOPLAM", h.grand},
                                  {u"FATFISSEVNO", u"999"_s},
                                  {u"FATFISTOPOTUT", amountText(0.0)},
                                  {u"FATFISSATKOD", h.cashierCode},
                                  {u"FATFISHAZKOD", h.cashierCode},
                                  {u"FATFISKONTKOD", QString()},
                                  {u"FATFISONAYKOD", QString()}});
}

QString invoiceLine(const Header &h, const Line &l)
{
    return insertInto(u"FATHAR", {{u"FATHARTAR", h.today},
                                  {u"FATHARREFNO", h.invoiceReference},
                                  {u"FATHARTIPI", u"3"_s},
                                  {u"FATHARGCFLAG", u"2"_s},
                                  {u"FATHARKAYONC", u"1"_s},
                                  {u"FATHARKAYNAK", u"3"_s},
                                  {u"FATHARCARKOD", h.customerCode},
                                  {u"FATHARSIRANO", l.number},
                                  {u"FATHARKODTIP", u"1"_s},
                                  {u"FATHARSTKKOD", l.stockCode},
                                  {u"FATHARSTKCINS", l.name},
                                  {u"FATHARSTKBRM", l.unit},
                                  {u"FATHARDEPOKOD", h.warehouse},
                                  {u"FATHARBARKOD", l.barcode},
                                  {u"FATHARMIKTAR", l.quantity},
                                  {u"FATHARFIYTIP", h.priceNumber},
                                  {u"FATHARFIYAT", l.price},
                                  {u"FATHARTUTAR", l.amount},
                                  {u"FATHARKDVYUZ", l.vatRate},
                                  {u"FATHARISKYUZ1", l.percent[0]},
                                  {u"FATHARISKYUZ2", l.percent[1]},
                                  {u"FATHARISKYUZ3", l.percent[2]},
                                  {u"FATHARISKYTUT1", l.discounts[0]},
                                  {u"FATHARISKYTUT2", l.discounts[1]},
                                  {u"FATHARISKYTUT3", l.discounts[2]},
                                  {u"FATHARTOPLAMIND", l.discount},
                                  {u"FATHARKDVMATRAH", l.vatBase},
                                  {u"FATHARKDVTUTAR", l.vatAmount},
                                  {u"FATHARTOPLAMTUT", l.total},
                                  {u"FATHARNETTUTAR", l.total},
                                  {u"FATHARNETFIYAT", l.netPrice},
                                  {u"FATHAROTVMATRAH", u"0"_s},
                                  {u"FATHAROTVTUTAR", u"0"_s}});
}

QString invoiceSummary(const Header &h, const Summary &row)
{
    return insertInto(u"FATFISTOPLAM", {{u"FFTTAR", h.today},
                                        {u"FFTREFNO", h.invoiceReference},
                                        {u"FFTTIPI", u"3"_s},
                                        {u"FFTGCFLAG", u"2"_s},
                                        {u"FFTKAYONC", u"1"_s},
                                        {u"FFTKAYNAK", u"3"_s},
                                        {u"FFTKDVDAHILFLAG", u"1"_s},
                                        {u"FFTCARKOD", h.customerCode},
                                        {u"FFTEVRAKNO1", h.invoiceNumber},
                                        {u"FFTKONU", row.subject},
                                        {u"FFTBASLIK", row.heading},
                                        {u"FFTTUTAR", summaryText(row.amount)},
                                        {u"FFTMATRAH", summaryText(row.base)},
                                        {u"FFTKDVORAN", row.vatRate},
                                        {u"FFTVADETAR", h.today}});
}

QString accountMovement(const Header &h)
{
    return insertInto(u"CARHAR", {{u"CARHARTAR", h.today},
                                  {u"CARHARREFNO", h.accountReference},
                                  {u"CARHARTIPI", h.accountSlipType},
                                  {u"CARHARKAYONC", u"2"_s},
                                  {u"CARHARKAYNAK", u"3"_s},
                                  {u"CARHARCARKOD", h.customerCode},
                                  {u"CARHARCARUNVAN", h.customerName},
                                  {u"CARHARSIRANO", u"1"_s},
                                  {u"CARHARISTIPNO", u"1"_s},
                                  {u"CARHARISTIPKOD", u"FATURA"_s},
                                  {u"CARHAREVRAKNO", h.invoiceNumber},
                                  {u"CARHARACIKLAMA", h.invoiceNumber + u" NOLU SATIS FAT.ILE"_s},
                                  {u"CARHARGCFLAG", u"1"_s},
                                  {u"CARHARTUTAR", h.grand},
                                  {u"CARHARVADETAR", h.today},
                                  {u"CARHARODENDI", u"1"_s}});
}

} // namespace ledger
