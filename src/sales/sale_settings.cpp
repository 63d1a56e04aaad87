#include "sales/sale_settings.h"

#include "common/column_widths.h"
#include "common/program.h"
#include "common/resume_next.h"
#include "sales/sale_line.h"

using namespace Qt::StringLiterals;

namespace {

struct Field
{
    QStringView column;
    QString &value;
};

/// A column that a settings file of an older version lacks does not keep the others from being
/// read.
void readRow(OpenDatabase &db, QStringView table, std::initializer_list<Field> fields)
{
    resumeNext([&] {
        const RecordSet row = settings::row(db, table);
        if (row.eof())
            return;
        for (const Field &field : fields)
            resumeNext([&] { field.value = row.text(field.column); });
    });
}

} // namespace

SaleSettings oku(Program &program)
{
    SaleSettings s;
    resumeNext([&] {
        OpenDatabase db(program.db, program.path(settings::kFile));
        readRow(db, u"kdv", {{u"kdv", s.kdv}});
        readRow(db, u"ses", {{u"bulses", s.bulses}, {u"bulmases", s.bulmases}});
        readRow(db, u"yazici", {{u"yazici1", s.yazici1}, {u"yazdirma", s.yazdirma}});
        readRow(db, u"stok",
                {{u"depo", s.depo},
                 {u"fiyatip", s.fiyatip},
                 {u"cari", s.cari},
                 {u"carikod", s.carikod},
                 {u"stkfistip", s.stkfistip},
                 {u"crfistip", s.crfistip},
                 {u"ftfistip", s.ftfistip}});
        readRow(db, u"liste",
                {{u"listrenk", s.listrenk},
                 {u"yzrenk", s.yzrenk},
                 {u"font", s.font},
                 {u"size", s.size},
                 {u"bold", s.bold},
                 {u"title", s.title},
                 {u"tmekran", s.tmekran},
                 {u"enust", s.enust}});
        readRow(db, u"per", {{u"per", s.per}});
    });
    return s;
}

QList<int> olcuyukle(Program &program)
{
    return column_widths::fromText(settings::value(program, u"olcu", u"olcu"), kSaleColumns);
}

bool olcukaydet(Program &program, const QList<int> &widths)
{
    return resumeNext([&] {
        OpenDatabase db(program.db, program.path(settings::kFile));
        db.execute(u"Update olcu set olcu = '"_s + column_widths::toText(widths) +
                   u"' Where id ='1'"_s);
    });
}
