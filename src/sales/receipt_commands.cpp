#include "sales/receipt_commands.h"

#include "common/amount.h"
#include "common/record_set.h"
#include "paper/millimetres.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr double kMmPerPoint = kMmPerInch / kPointsPerInch;
constexpr double kLeading = 1.25;  ///< line height over font size
constexpr double kEdge = 2.0;      ///< mm left free above and below
constexpr double kLeastRoom = 5.0; ///< mm
constexpr double kNameGap = 1.0;   ///< mm between a name that fills its room and the next column

/// Writes the receipt from top to bottom.
class ReceiptWriter
{
public:
    explicit ReceiptWriter(const ReceiptLayout &layout) : m_layout(layout)
    {
        m_page.width = layout.paperWidth();
    }

    void textBlock(const QString &options, const QString &text, double width)
    {
        applyStyle(options);
        for (const QString &line : printedLines(text))
            textLine(line, width);
    }

    void textLine(const QString &text, double width)
    {
        put(0.0, width, text);
        feed();
    }

    void emptyLine() { feed(); }

    void productLine(const SaleLine &line)
    {
        put(0.0, column(0), line[SaleColumn::name], Fit::middle);
        put(offset(1), column(1), line[SaleColumn::quantity] + u'X');
        put(offset(2), column(2), line[SaleColumn::vatRate] + u" %"_s);
        put(offset(3), column(3), starred(pricing::valueOf(line, SaleColumn::amount)));
        feed();
    }

    void totalLine(const QString &label, const QString &value)
    {
        put(0.0, offset(3), label);
        put(offset(3), column(3), starred(amount::parse(value).value_or(0.0)));
        feed();
    }

    void applyStyle(const QString &options)
    {
        const ReceiptStyle style = styleOf(options);
        if (m_layout.namedFonts)
            m_font.name = style.font;
        m_font.size = style.points;
        m_font.bold = style.bold;
    }

    ReceiptPage finish()
    {
        m_page.length = m_y + kEdge;
        return std::move(m_page);
    }

private:
    /// What a text does for which its room is too small. Columns must not be pushed apart: a name
    /// loses words of its middle, figures are never cut and are written smaller.
    enum class Fit
    {
        middle,
        smaller
    };

    /// Width of product column i, and where it starts behind the left margin.
    double column(std::size_t i) const { return m_layout.widths[2 + i]; }
    double offset(std::size_t i) const
    {
        const auto first = m_layout.widths.begin() + 2;
        return std::accumulate(first, first + static_cast<std::ptrdiff_t>(i), 0.0);
    }

    static QString starred(double value) { return u'*' + amount::money(value); }

    void put(double indent, double width, const QString &text, Fit fit = Fit::smaller)
    {
        const double x = m_layout.leftMargin + indent;
        const double left = std::max(m_page.width - x, kLeastRoom);
        const double room = width > 0.0 ? std::min(width, left) : left;
        const double gap = fit == Fit::middle ? std::min(kNameGap, room / 2) : 0.0;
        m_page.texts.push_back({.box = {x, m_y, room - gap, lineHeight(m_font.size)},
                                .font = m_font,
                                .text = text,
                                .shrink = fit == Fit::smaller});
    }

    void feed() { m_y += lineHeight(m_font.size); }

    const ReceiptLayout &m_layout;
    ReceiptPage m_page;
    double m_y = kEdge;
    PaperFont m_font{.name = {}, .size = 9.0};
};

QString momentLine(const QDateTime &moment)
{
    // Hour and minute are plain numbers: five past two is 14:5 on the shop's receipts.
    return u"TARİH: "_s + RecordSet::toText(moment.date()) +
           u"  SAAT: %1:%2"_s.arg(moment.time().hour()).arg(moment.time().minute());
}

SaleLine sampleLine(const QString &name, const QString &price, double quantity,
                    const QString &vatRate)
{
    SaleLine line;
    line[SaleColumn::name] = name;
    line[SaleColumn::price] = price;
    line[SaleColumn::vatRate] = vatRate;
    pricing::recompute(line, quantity);
    return line;
}

} // namespace

double lineHeight(double points)
{
    return points * kMmPerPoint * kLeading;
}

ReceiptPage drawReceipt(const ReceiptLayout &layout, const Receipt &receipt)
{
    const Sale &sale = receipt.sale;
    const double blockWidth = layout.widths[1];
    ReceiptWriter writer(layout);
    writer.textBlock(layout.headerOptions, layout.headerText, layout.widths[0]);
    writer.textBlock(layout.receiptOptions, layout.aboveText, blockWidth);
    if (receipt.copy)
        writer.textLine(u"KOPYA"_s, blockWidth);
    writer.textLine(momentLine(sale.moment), blockWidth);
    writer.textLine(u"FIS NO: "_s + receipt.number, blockWidth);
    writer.emptyLine();

    writer.applyStyle(layout.productOptions);
    for (const SaleLine &line : sale.lines)
        writer.productLine(line);
    writer.emptyLine();
    writer.totalLine(u"ARATOP"_s, sale.totals.gross);
    writer.totalLine(u"TOPKDV"_s, sale.totals.vat);
    writer.totalLine(u"TOPLAM"_s, sale.totals.grand);
    writer.emptyLine();
    if (sale.payment == Payment::card)
        writer.totalLine(u"KART"_s, sale.totals.grand);
    writer.totalLine(u"NAKİT"_s, sale.cash);
    writer.totalLine(u"P.ÜSTÜ"_s, sale.change);

    if (!sale.customer.name.isEmpty())
        writer.textBlock(layout.receiptOptions, u"Cari: "_s + sale.customer.name, blockWidth);
    if (!sale.cashierName.isEmpty())
        writer.textBlock(layout.receiptOptions, u"Kasiyer: "_s + sale.cashierName, blockWidth);
    writer.textBlock(layout.receiptOptions, layout.belowText, blockWidth);
    return writer.finish();
}

Receipt sampleReceipt(const QDateTime &moment)
{
    Receipt receipt;
    receipt.number = u"123"_s;
    receipt.sale.moment = moment;
    receipt.sale.cashierName = u"Örnek Kasiyer"_s;
    receipt.sale.lines = {
        sampleLine(u"Ekmek 250 g"_s, u"12,50"_s, 2, u"1"_s),
        sampleLine(u"Siyah Çay Dökme 1.000 g Yeni Ürün Uzun Ad"_s, u"189,90"_s, 1, u"10"_s),
        sampleLine(u"Beyaz Peynir"_s, u"1.249,90"_s, 1.25, u"20"_s)};
    std::vector<pricing::Figures> figures;
    for (const SaleLine &line : receipt.sale.lines)
        figures.push_back(pricing::figuresOf(line));
    receipt.sale.totals = pricing::hesapla(figures);
    receipt.sale.cash = u"2.000,00"_s;
    receipt.sale.change = pricing::change(receipt.sale.cash, receipt.sale.totals.grand);
    return receipt;
}

std::vector<DrawCommand> receiptCommands(const ReceiptPage &page, const TextMeasure &measure)
{
    std::vector<DrawCommand> commands;
    for (const TextBlock &text : page.texts)
        for (const TextCommand &line : placeText(text, measure).lines)
            commands.push_back({line, {}});
    return commands;
}

QString toText(const ReceiptPage &page)
{
    QString text = u"page %1 x %2\n"_s.arg(amount::length(page.width), amount::length(page.length));
    for (const TextBlock &t : page.texts)
        text += u"%1 %2 w%3 %4 %5%6%7 | %8\n"_s.arg(
            amount::length(t.box.x()), amount::length(t.box.y()), amount::length(t.box.width()),
            t.font.name.isEmpty() ? u"-"_s : t.font.name, amount::points(t.font.size),
            t.font.bold ? u" bold"_s : u""_s, t.shrink ? u""_s : u" …"_s, t.text);
    return text;
}
