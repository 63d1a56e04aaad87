#include "common/settings_database.h"

#include "common/program.h"
#include "common/resume_next.h"

using namespace Qt::StringLiterals;

namespace settings {

RecordSet row(OpenDatabase &db, QStringView table)
{
    return db.execute(u"select * from %1 where id='1'"_s.arg(table));
}

QString value(Program &program, QStringView table, QStringView column)
{
    QString text;
    resumeNext([&] {
        OpenDatabase db(program.db, program.path(kFile));
        text = row(db, table).text(column);
    });
    return text;
}

} // namespace settings
