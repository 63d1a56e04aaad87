#include "sales/sale_settings.h"

#include "common/column_widths.h"
#include "common/resume_next.h"
#include "common/settings_database.h"
#include "sales/sale_line.h"

using namespace Qt::StringLiterals;

Settings oku(const LocalFiles &files)
{
    return settings::read(files, {u"kdv", u"ses", u"yazici", u"stok", u"liste", u"per", u"kasa"});
}

QList<int> olcuyukle(const LocalFiles &files)
{
    return column_widths::fromText(settings::read(files, {u"olcu"}).olcu.olcu, kSaleColumns);
}

bool olcukaydet(const LocalFiles &files, const QList<int> &widths)
{
    Settings values;
    values.olcu.olcu = column_widths::toText(widths);
    return resumeNext([&] {
        OpenDatabase db(files, settings::kFile);
        for (const QString &statement : settings::updates(values, SettingWriter::till))
            db.execute(statement);
    });
}
