#include "sales/journal/day_end.h"

#include "common/program.h"
#include "common/whole_file.h"
#include "sales/journal/journal_file.h"
#include "sales/journal/kurus.h"
#include "sales/quantity.h"
#include "sales/till_session.h"

using namespace Qt::StringLiterals;

DayEnd::DayEnd(Program &program, JournalFile &file, TillSession &till, QObject *parent)
    : QObject(parent), m_program(program), m_file(file), m_till(till)
{}

QDate DayEnd::today() const
{
    return m_file.today();
}

void DayEnd::read(QDate from, QDate to)
{
    const QDate first = std::min(from, to);
    const QDate last = std::max(from, to);
    m_report = {{first, last, {}, {}}, {}, {}, false};
    m_program.handle([&] { m_report.figures = readDays(m_file, first, last); });
    Q_EMIT changed();
}

bool DayEnd::setCounted(const QString &typed)
{
    m_report.counted.reset();
    if (!typed.trimmed().isEmpty()) {
        const auto cash = quantity::parseCash(typed);
        if (!cash)
            return false;
        m_report.counted = kurus::of(*cash);
    }
    return true;
}

void DayEnd::compare()
{
    m_comparing = true;
    m_slices.start();
    const auto tell = [this](QDate day) { Q_EMIT comparing(day); };
    m_slices.lookUp([&] { tell(m_report.figures.from); });
    m_program.handle([&] {
        const auto found = day_report::compareWithLedger(
            m_program, m_file, m_report.figures.from, m_report.figures.to,
            [&](QDate day) { return m_slices.goOn([&] { tell(day); }); });
        m_report.compared = found.has_value();
        m_report.differences = found.value_or(QStringList());
    });
    m_comparing = false;
    Q_EMIT changed();
}

void DayEnd::print()
{
    PostingReport paper;
    paper.text = day_report::text(m_report);
    m_till.printReport(paper);
}

void DayEnd::savePdf(const QString &path)
{
    if (!day_report::writePdf(m_report, path))
        m_program.warn(u"Dosya yazılamadı: "_s + path);
}

void DayEnd::saveCsv(const QString &path)
{
    if (!writeTextFile(path, day_report::csv(m_report)))
        m_program.warn(u"Dosya yazılamadı: "_s + path);
}
