#include "sales/sale_settings.h"

#include "common/amount.h"
#include "common/program.h"
#include "common/resume_next.h"
#include "sales/sale_line.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kLeastWidth = 10;
constexpr int kMostWidth = 2000;

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
    QList<int> widths;
    const QString stored = settings::value(program, u"olcu", u"olcu");
    for (const QStringView part : QStringView(stored).split(u'-')) {
        const double width = amount::parse(part).value_or(0.0);
        if (width < kLeastWidth || width > kMostWidth)
            return {};
        widths += qRound(width);
    }
    return widths.size() == kSaleColumns ? widths : QList<int>();
}

bool olcukaydet(Program &program, const QList<int> &widths)
{
    QStringList texts;
    for (const int width : widths)
        texts += QString::number(width);
    return resumeNext([&] {
        OpenDatabase db(program.db, program.path(settings::kFile));
        db.execute(u"Update olcu set olcu = '"_s + texts.join(u'-') + u"' Where id ='1'"_s);
    });
}
