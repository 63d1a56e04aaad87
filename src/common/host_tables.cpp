#include "common/host_tables.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace host_tables {

namespace {

/// `columns`: separated by blanks.
Table table(Database database, const QString &name, std::vector<Grant> grants,
            const QString &columns)
{
    return {database, name, std::move(grants), columns.split(u' ')};
}

std::vector<Table> makeTables()
{
    return {
        table(Database::master, u"KDVKISIM"_s, {{Right::select, Use::labels}},
              u"KDVKISNO KDVKISORAN"_s),
        table(Database::company, u"STKKART"_s,
              {{Right::select, Use::labels}, {Right::update, Use::sales}},
              u"STKKOD STKCINSI STKBIRIM STKBIRIM2 STKBAKIYE STKSYFTARIHI "
              "STKSYFSAATI"_s),
        table(Database::company, u"STKBARKOD"_s,
              {{Right::select, Use::labels}, {Right::insert, Use::numbers}},
              u"STKBARKOD STKBARSTKKOD STKBARBRMNO STKBARTIP STKBARFIYTIP "
              "STKBARITEMNO"_s),
        table(Database::company, u"STKFIYAT"_s, {{Right::select, Use::labels}},
              u"STKFIYSTKKOD STKFIYNO STKFIYTUTAR STKFIYISKYUZ1 STKFIYISKYUZ2 "
              "STKFIYISKYUZ3 STKFIYKDVNO"_s),
        table(Database::company, u"STKFIYTIP"_s, {{Right::select, Use::labels}},
              u"STKFTFIYNO STKFTFIYADI"_s),
        table(Database::company, u"DEPO"_s, {{Right::select, Use::sales}}, u"DEPKOD DEPADI"_s),
        table(Database::company, u"STKFISTIP"_s, {{Right::select, Use::sales}},
              u"STKFTNO STKFTKOD"_s),
        table(Database::company, u"CARKART"_s,
              {{Right::select, Use::sales}, {Right::update, Use::sales}},
              u"CARKOD CARUNVAN CARBORCTOP CARBAKIYE"_s),
        table(Database::company, u"CARFISTIP"_s, {{Right::select, Use::sales}},
              u"CARFTNO CARFTKOD"_s),
        table(Database::company, u"FATFISTIP"_s, {{Right::select, Use::labels}},
              u"FATFTNO FATFTKOD"_s),
        table(Database::company, u"PERSONEL"_s, {{Right::select, Use::sales}},
              u"PERKOD PERADSOYAD PEROZKOD"_s),
        table(Database::company, u"EVRAKNO"_s,
              {{Right::select, Use::sales}, {Right::update, Use::sales}},
              u"EVRNOMODUL EVRSIRANO EVRNO EVRONTAKI"_s),
        table(Database::company, u"STKFIS"_s,
              {{Right::select, Use::sales}, {Right::insert, Use::sales}},
              u"STKFISREFNO STKFISTAR STKFISTIPI STKFISGCFLAG STKFISKAYONC "
              "STKFISKAYNAK STKFISCARKOD STKFISANADEPO STKFISEVRAKNO1 "
              "STKFISEVRAKNO2 STKFISDOVTAR STKFISTOPBTUT STKFISTOPISK "
              "STKFISTOPNTUT STKFISTOPKDV STKFISTOPKTUT STKFISSEVNO "
              "STKFISOTVFLAG STKFISTOPOTUT"_s),
        table(Database::company, u"STKHAR"_s,
              {{Right::select, Use::sales}, {Right::insert, Use::sales}},
              u"STKHARTAR STKHARREFNO STKHARTIPI STKHARGCFLAG STKHARKAYONC "
              "STKHARKAYNAK STKHARCARKOD STKHARANADEPO STKHARSTKKOD "
              "STKHARSTKCINS STKHARSTKBRM STKHARBARKOD STKHARMIKTAR "
              "STKHARFIYAT STKHARTUTAR STKHARKDVYUZ STKHARISKYUZ1 "
              "STKHARISKYUZ2 STKHARISKYUZ3 STKHARISKYTUT1 STKHARISKYTUT2 "
              "STKHARISKYTUT3 STKHARTOPLAMIND STKHARKDVMATRAH STKHARKDVTUTAR "
              "STKHARTOPLAMTUT STKHARVADETAR STKHARFIYTIP STKHARSIRANO "
              "STKHARNETTUTAR STKHARNETFIYAT STKHAROTVMATRAH STKHAROTVTUTAR "
              "STKHAREKDATE1 STKHAREKDATE2"_s),
        table(
            Database::company, u"STKMIZDEGER"_s,
            {{Right::select, Use::sales}, {Right::insert, Use::sales}, {Right::update, Use::sales}},
            u"STKKOD STKYIL STKAY STKRAKTIP STKALACAK STKDEPO"_s),
        table(Database::company, u"CARFIS"_s,
              {{Right::select, Use::sales}, {Right::insert, Use::sales}},
              u"CARFISREFNO CARFISTAR CARFISTIPI CARFISKAYONC CARFISKAYNAK "
              "CARFISCARKOD CARFISCARUNVAN CARFISEVRAKNO1 CARFISEVRAKNO2 "
              "CARFISDOVTAR CARFISBORCTOP CARFISHAZTAR CARFISKONTTAR "
              "CARFISONAYTAR CARFISSEVNO CARFISHAZKOD CARFISKONTKOD "
              "CARFISONAYKOD"_s),
        table(
            Database::company, u"CARMIZDEGER"_s,
            {{Right::select, Use::sales}, {Right::insert, Use::sales}, {Right::update, Use::sales}},
            u"CARKOD CARYIL CARAY CARRAKTIP CARBORC CARISLTIP"_s),
        table(Database::company, u"CARHAR"_s,
              {{Right::select, Use::sales}, {Right::insert, Use::sales}},
              u"CARHARTAR CARHARREFNO CARHARTIPI CARHARKAYONC CARHARKAYNAK "
              "CARHARCARKOD CARHARCARUNVAN CARHARSIRANO CARHARISTIPNO "
              "CARHARISTIPKOD CARHAREVRAKNO CARHARACIKLAMA CARHARGCFLAG "
              "CARHARTUTAR CARHARVADETAR CARHARODENDI"_s),
        table(Database::company, u"FATFIS"_s,
              {{Right::select, Use::labels}, {Right::insert, Use::sales}},
              u"FATFISREFNO FATFISTAR FATFISTIPI FATFISGCFLAG FATFISKAYONC "
              "FATFISKAYNAK FATFISSTKREFNO FATFISCARREFNO FATFISKDVDAHILFLAG "
              "FATFISANADEPO FATFISCARKOD FATFISCARUNVAN FATFISSAAT "
              "FATFISVADETAR FATFISIRSTAR FATFISEVRAKNO1 FATFISKDVORANI "
              "FATFISMALTOP FATFISKALINDYTOP FATFISBRUTTOPLAM FATFISKDVMATRAHI "
              "FATFISKDVTUTARI FATFISARATOPLAM FATFISGENTOPLAM FATFISSEVNO "
              "FATFISTOPOTUT FATFISSATKOD FATFISHAZKOD FATFISKONTKOD "
              "FATFISONAYKOD"_s),
        table(Database::company, u"FATHAR"_s,
              {{Right::select, Use::labels}, {Right::insert, Use::sales}},
              u"FATHARTAR FATHARREFNO FATHARTIPI FATHARGCFLAG FATHARKAYONC "
              "FATHARKAYNAK FATHARCARKOD FATHARSIRANO FATHARKODTIP "
              "FATHARSTKKOD FATHARSTKCINS FATHARSTKBRM FATHARDEPOKOD "
              "FATHARBARKOD FATHARMIKTAR FATHARFIYTIP FATHARFIYAT FATHARTUTAR "
              "FATHARKDVYUZ FATHARISKYUZ1 FATHARISKYUZ2 FATHARISKYUZ3 "
              "FATHARISKYTUT1 FATHARISKYTUT2 FATHARISKYTUT3 FATHARTOPLAMIND "
              "FATHARKDVMATRAH FATHARKDVTUTAR FATHARTOPLAMTUT FATHARNETTUTAR "
              "FATHARNETFIYAT FATHAROTVMATRAH FATHAROTVTUTAR FATHARACIKLAMA1"_s),
        table(Database::company, u"FATFISTOPLAM"_s,
              {{Right::select, Use::sales}, {Right::insert, Use::sales}},
              u"FFTTAR FFTREFNO FFTTIPI FFTGCFLAG FFTKAYONC FFTKAYNAK "
              "FFTKDVDAHILFLAG FFTCARKOD FFTEVRAKNO1 FFTKONU FFTBASLIK "
              "FFTTUTAR FFTMATRAH FFTKDVORAN FFTVADETAR"_s),
    };
}

struct Part
{
    Use use;
    QStringView heading;
};
constexpr std::array<Part, 3> kParts = {{{Use::labels, u"-- Etiket basmak"},
                                         {Use::numbers, u"-- Yeni barkod numarası vermek"},
                                         {Use::sales, u"-- Satış yapmak"}}};

} // namespace

bool Table::needs(Right right) const
{
    return std::any_of(grants.begin(), grants.end(),
                       [right](const Grant &grant) { return grant.right == right; });
}

const std::vector<Table> &all()
{
    static const std::vector<Table> tables = makeTables();
    return tables;
}

std::vector<const Table *> tablesOf(Database database)
{
    std::vector<const Table *> tables;
    for (const Table &table : all())
        if (table.database == database)
            tables.push_back(&table);
    return tables;
}

QString word(Right right)
{
    switch (right) {
    case Right::insert:
        return u"INSERT"_s;
    case Right::update:
        return u"UPDATE"_s;
    default:
        return u"SELECT"_s;
    }
}

std::vector<TableRight> rightsOn(Database database)
{
    std::vector<TableRight> rights;
    for (const Table *table : tablesOf(database))
        for (const Grant &grant : table->grants)
            rights.push_back({table, grant.right, grant.use});
    return rights;
}

QStringList grantStatements(const std::vector<TableRight> &rights, const QString &user)
{
    QStringList statements;
    for (auto first = rights.begin(); first != rights.end();) {
        QStringList words;
        auto next = first;
        for (; next != rights.end() && next->table == first->table; ++next)
            words += word(next->right);
        statements += u"GRANT %1 ON %2 TO %3;"_s.arg(words.join(u", "_s), first->table->name,
                                                     quotedName(user));
        first = next;
    }
    return statements;
}

QStringList databaseScript(Database database, const QString &name, const QString &user)
{
    QStringList lines = {u"USE %1;"_s.arg(quotedName(name)),
                         u"CREATE USER %1 FOR LOGIN %1;"_s.arg(quotedName(user))};
    for (const Part &part : kParts) {
        std::vector<TableRight> rights = rightsOn(database);
        std::erase_if(rights, [&](const TableRight &right) { return right.use != part.use; });
        if (!rights.empty())
            lines += {QString(), part.heading.toString()};
        lines += grantStatements(rights, user);
    }
    return lines;
}

QString quotedName(QString name)
{
    return u'[' + name.replace(u']', u"]]"_s) + u']';
}

} // namespace host_tables
