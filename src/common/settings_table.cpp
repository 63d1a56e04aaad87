#include "common/settings_table.h"

#include "common/host_connection.h"

#include <algorithm>
#include <array>

namespace {

template <auto Table, auto Column>
SettingPlace place(Settings &settings)
{
    return &(settings.*Table.*Column);
}

using S = Settings;
using enum SettingWriter;

constexpr QStringView kHeaderText =
    u"MAĞAZA ADI<*say*><\\?\\>Adres, ilçe / il<*say*><\\?\\>Vergi dairesi ve numarası";
constexpr QStringView kFooterText =
    u"Bilgi fişidir, mali değeri yoktur.<*say*><\\?\\>TEŞEKKÜR EDERİZ";

constexpr auto kSettings = LocalFile::settings;
constexpr auto kReceipt = LocalFile::receipt;

// Other programs of the shop read and write these files: the blank behind `yazici2` and the order
// of the columns are theirs too.
const auto kRows = std::to_array<SettingRow>({
    {kSettings, u"kdv", u"kdv", u"20", u"20", place<&S::kdv, &S::Kdv::kdv>},
    {kSettings, u"ses", u"bulses", u"1", u"0", place<&S::ses, &S::Ses::bulses>},
    {kSettings, u"ses", u"bulmases", u"1", u"0", place<&S::ses, &S::Ses::bulmases>},
    {kSettings, u"yazici", u"yazici1", u"PDF", u"", place<&S::yazici, &S::Yazici::yazici1>},
    {kSettings, u"yazici", u"yazici2", u"", u"", nullptr, dialog, u" ,"},
    {kSettings, u"yazici", u"yazdirma", u"1", u"0", place<&S::yazici, &S::Yazici::yazdirma>},
    {kSettings, u"login", u"sifre", u"", u"", place<&S::login, &S::Login::sifre>},
    {kSettings, u"server", u"kuladi", u"", u"", place<&S::server, &S::Server::kuladi>},
    {kSettings, u"server", u"sifre", u"", u"", place<&S::server, &S::Server::sifre>},
    {kSettings, u"server", u"server", kEmbeddedServer, u"", place<&S::server, &S::Server::server>},
    {kSettings, u"server", u"sql", kDemoCompany, u"", place<&S::server, &S::Server::sql>},
    {kSettings, u"server", u"msql", kDemoMaster, u"", place<&S::server, &S::Server::msql>},
    {kSettings, u"instan", u"insname", u"", u"", place<&S::instan, &S::Instan::insname>},
    {kSettings, u"instan", u"inskullan", u"0", u"0", place<&S::instan, &S::Instan::inskullan>},
    {kSettings, u"stok", u"br2fytadi", u"KOLİ", u"", place<&S::stok, &S::Stok::br2fytadi>},
    {kSettings, u"stok", u"br1fytadi", u"PERAKENDE", u"", place<&S::stok, &S::Stok::br1fytadi>},
    {kSettings, u"stok", u"br2fyt", u"2", u"", place<&S::stok, &S::Stok::br2fyt>},
    {kSettings, u"stok", u"br1fyt", u"1", u"", place<&S::stok, &S::Stok::br1fyt>},
    {kSettings, u"stok", u"depoadi", u"MAĞAZA", u"", place<&S::stok, &S::Stok::depoadi>, setup},
    {kSettings, u"stok", u"depo", u"01", u"", place<&S::stok, &S::Stok::depo>, setup},
    {kSettings, u"stok", u"fytadi", u"PERAKENDE", u"", place<&S::stok, &S::Stok::fytadi>, setup},
    {kSettings, u"stok", u"fiyatip", u"1", u"", place<&S::stok, &S::Stok::fiyatip>, setup},
    {kSettings, u"stok", u"cari", u"PERAKENDE MÜŞTERİ", u"", place<&S::stok, &S::Stok::cari>,
     setup},
    {kSettings, u"stok", u"carikod", u"120.00.001", u"", place<&S::stok, &S::Stok::carikod>, setup},
    {kSettings, u"stok", u"stkfistipadi", u"PERAKENDE SATIŞ ÇIKIŞI", u"",
     place<&S::stok, &S::Stok::stkfistipadi>, setup},
    {kSettings, u"stok", u"stkfistip", u"3", u"", place<&S::stok, &S::Stok::stkfistip>, setup},
    {kSettings, u"stok", u"crfistipadi", u"SATIŞ FATURASI", u"",
     place<&S::stok, &S::Stok::crfistipadi>, setup},
    {kSettings, u"stok", u"crfistip", u"4", u"", place<&S::stok, &S::Stok::crfistip>, setup},
    {kSettings, u"stok", u"ftfistipadi", u"PERAKENDE SATIŞ", u"",
     place<&S::stok, &S::Stok::ftfistipadi>, setup},
    {kSettings, u"stok", u"ftfistip", u"3", u"", place<&S::stok, &S::Stok::ftfistip>, setup},
    {kSettings, u"liste", u"enust", u"0", u"0", place<&S::liste, &S::Liste::enust>},
    {kSettings, u"liste", u"tmekran", u"0", u"0", place<&S::liste, &S::Liste::tmekran>},
    {kSettings, u"liste", u"winac", u"0", u"0", place<&S::liste, &S::Liste::winac>},
    {kSettings, u"liste", u"yzrenk", u"0", u"0", place<&S::liste, &S::Liste::yzrenk>},
    {kSettings, u"liste", u"listrenk", u"16777215<1234>16447985", u"16777215<1234>16447985",
     place<&S::liste, &S::Liste::listrenk>},
    {kSettings, u"liste", u"title", u"TEZGÂH", u"", place<&S::liste, &S::Liste::title>},
    {kSettings, u"liste", u"bold", u"0", u"0", place<&S::liste, &S::Liste::bold>},
    {kSettings, u"liste", u"font", u"Arial", u"", place<&S::liste, &S::Liste::font>},
    {kSettings, u"liste", u"size", u"14", u"", place<&S::liste, &S::Liste::size>},
    {kSettings, u"per", u"per", u"0", u"0", place<&S::per, &S::Per::per>},
    {kSettings, u"kasa", u"silsifre", u"0", u"0", place<&S::kasa, &S::Kasa::silsifre>},
    {kSettings, u"kasa", u"musteri", u"0", u"0", place<&S::kasa, &S::Kasa::musteri>},
    {kSettings, u"olcu", u"olcu", u"", u"", place<&S::olcu, &S::Olcu::olcu>, till},
    // Options: a field that is kept only, font, points, bold. Texts: lines and how many there are.
    {kReceipt, u"baslik", u"bilgi", u"<>Arial<>12<>True", u"<>Arial<>12<>True"},
    {kReceipt, u"baslik", u"text", kHeaderText, kHeaderText},
    {kReceipt, u"fis", u"bilgi", u"<>Arial<>9<>False", u"<>Arial<>9<>False"},
    {kReceipt, u"fis", u"ust", u"", u""},
    {kReceipt, u"fis", u"alt", kFooterText, kFooterText},
    {kReceipt, u"urun", u"bilgi", u"<>Arial<>9<>False", u"<>Arial<>9<>False"},
    {kReceipt, u"fnt", u"fnt", u"1", u"1"},
    {kReceipt, u"karakter", u"b1", u"72", u"72"}, // millimetres
    {kReceipt, u"karakter", u"b2", u"72", u"72"},
    {kReceipt, u"karakter", u"b3", u"33", u"33"},
    {kReceipt, u"karakter", u"b4", u"10", u"10"},
    {kReceipt, u"karakter", u"b5", u"9", u"9"},
    {kReceipt, u"karakter", u"b6", u"20", u"20"},
    {kReceipt, u"karakter", u"b7", u"80", u"80"},
    {kReceipt, u"sol", u"sol", u"4", u"4"},
    {kReceipt, u"zno", u"zno", u"0", u"0", nullptr, till},
});

} // namespace

std::span<const SettingRow> settingRows()
{
    return kRows;
}

std::span<const SettingRow> settingRows(LocalFile file, QStringView table)
{
    const auto first = std::ranges::find_if(
        kRows, [&](const SettingRow &row) { return row.file == file && row.table == table; });
    const auto last = std::find_if(first, kRows.end(), [&](const SettingRow &row) {
        return row.file != file || row.table != table;
    });
    return {first, last};
}

QList<QStringView> settingTables(LocalFile file)
{
    QList<QStringView> tables;
    for (const SettingRow &row : kRows)
        if (row.file == file && !tables.contains(row.table))
            tables += row.table;
    return tables;
}
