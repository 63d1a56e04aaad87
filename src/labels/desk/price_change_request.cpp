#include "labels/desk/price_change_request.h"

#include "common/program.h"
#include "labels/desk/typed_moment.h"

using namespace Qt::StringLiterals;

namespace {

/// Why nothing can be found in this range; "" when it can be asked for.
QString problemOf(const ChangeRange &range)
{
    if (!range.from.isValid() || !range.to.isValid())
        return typed_moment::kNoDate.toString();
    if (!range.start.isValid() || !range.end.isValid())
        return typed_moment::kNoTime.toString();
    if (range.from > range.to)
        return u"Başlangıç tarihi bitiş tarihinden sonra olamaz."_s;
    return range.start > range.end ? u"Başlangıç saati bitiş saatinden sonra olamaz."_s : QString();
}

} // namespace

PriceChangeRequest::PriceChangeRequest(Program &program, QObject *parent)
    : QObject(parent), m_program(program)
{}

ChangeRange PriceChangeRequest::usualRange() const
{
    const QDate today = m_program.clock.now().date();
    const QDate first(today.year(), today.month(), 1);
    return {first, first.addMonths(1).addDays(-1), QTime(0, 0), QTime(23, 59)};
}

void PriceChangeRequest::send(const ChangeRange &range)
{
    const QString problem = problemOf(range);
    if (!problem.isEmpty()) {
        m_program.caution(problem);
        return;
    }
    // A change made in the start minute itself belongs to the range. Midnight has none before it.
    const QTime minute(range.start.hour(), range.start.minute());
    const QTime start = minute > QTime(0, 0) ? minute.addSecs(-60) : minute;
    // The server was told to read days first: "Set DateFormat dmy".
    const QString day = u"dd.MM.yyyy"_s;
    Q_EMIT requested(range.from.toString(day), range.to.toString(day),
                     start.toString(u"HH:mm:00"_s), range.end.toString(u"HH:mm:ss"_s));
}
