#include "sales/receipt_store.h"

#include "common/amount.h"
#include "common/resume_next.h"
#include "common/settings_database.h"

using namespace Qt::StringLiterals;

namespace receipt_store {

namespace {

using settings::Texts;

/// The layout as the file holds it; the counter is written on its own after each sale.
Texts textsOf(const ReceiptLayout &layout)
{
    Texts texts{{u"baslik.bilgi"_s, layout.headerOptions},
                {u"baslik.text"_s, layout.headerText},
                {u"fis.bilgi"_s, layout.receiptOptions},
                {u"fis.ust"_s, layout.aboveText},
                {u"fis.alt"_s, layout.belowText},
                {u"urun.bilgi"_s, layout.productOptions},
                {u"fnt.fnt"_s, layout.namedFonts ? u"1"_s : u"0"_s},
                {u"sol.sol"_s, amount::plain(layout.leftMargin)}};
    for (std::size_t i = 0; i < layout.widths.size(); ++i)
        texts.insert(u"karakter.b%1"_s.arg(i + 1), amount::plain(layout.widths[i]));
    return texts;
}

void write(const LocalFiles &files, SettingWriter writer, const Texts &texts)
{
    const auto quotable = [&](const SettingRow &row) {
        return texts.value(settings::nameOf(row)).replace(u'\'', u'’');
    };
    OpenDatabase db(files, settings::kReceiptFile);
    for (const QString &statement : settings::updates(LocalFile::receipt, writer, quotable))
        db.execute(statement);
}

double number(const Texts &texts, const QString &name)
{
    return amount::parse(texts.value(name)).value_or(0.0);
}

ReceiptLayout layoutOf(const Texts &texts)
{
    ReceiptLayout layout;
    layout.headerOptions = texts.value(u"baslik.bilgi"_s);
    layout.headerText = texts.value(u"baslik.text"_s);
    layout.receiptOptions = texts.value(u"fis.bilgi"_s);
    layout.aboveText = texts.value(u"fis.ust"_s);
    layout.belowText = texts.value(u"fis.alt"_s);
    layout.productOptions = texts.value(u"urun.bilgi"_s);
    layout.lastNumber = texts.value(u"zno.zno"_s);
    layout.namedFonts = texts.value(u"fnt.fnt"_s) == u"1";
    for (std::size_t i = 0; i < layout.widths.size(); ++i)
        layout.widths[i] = number(texts, u"karakter.b%1"_s.arg(i + 1));
    layout.leftMargin = number(texts, u"sol.sol"_s);
    return layout;
}

} // namespace

ReceiptLayout designLayout()
{
    return layoutOf(settings::designTexts(LocalFile::receipt));
}

ReceiptLayout fisoku(const LocalFiles &files)
{
    Texts texts = settings::designTexts(LocalFile::receipt);
    resumeNext([&] {
        OpenDatabase db(files, settings::kReceiptFile);
        const auto readAll = [&] {
            bool all = true;
            for (const QStringView table : settingTables(LocalFile::receipt))
                all &= settings::readTexts(db, LocalFile::receipt, table, texts);
            return all;
        };
        if (!readAll()) {
            settings::complete(db, LocalFile::receipt, settings::Fill::design);
            readAll();
        }
    });
    return layoutOf(texts);
}

void save(const LocalFiles &files, const ReceiptLayout &layout)
{
    write(files, SettingWriter::dialog, textsOf(layout));
}

bool saveNumber(const LocalFiles &files, const QString &number)
{
    return resumeNext([&] { write(files, SettingWriter::till, {{u"zno.zno"_s, number}}); });
}

} // namespace receipt_store
