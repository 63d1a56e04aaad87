#include "sales/sale_settings.h"

#include "common/column_widths.h"
#include "common/program.h"
#include "common/resume_next.h"
#include "common/settings_database.h"
#include "sales/sale_line.h"

using namespace Qt::StringLiterals;

Settings oku(const Program &program)
{
    return settings::read(program, {u"kdv", u"ses", u"yazici", u"stok", u"liste", u"per"});
}

QList<int> olcuyukle(Program &program)
{
    return column_widths::fromText(settings::read(program, {u"olcu"}).olcu.olcu, kSaleColumns);
}

bool olcukaydet(Program &program, const QList<int> &widths)
{
    Settings values;
    values.olcu.olcu = column_widths::toText(widths);
    return resumeNext([&] {
        OpenDatabase db(program.db, program.path(settings::kFile));
        for (const QString &statement : settings::updates(values, SettingWriter::till))
            db.execute(statement);
    });
}
