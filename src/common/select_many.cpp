#include "common/select_many.h"

#include "common/host_connection.h"
#include "common/host_error.h"

#include <QElapsedTimer>
#include <QStringList>

#include <algorithm>
#include <exception>
#include <vector>

namespace {

/// How many statements travel together: as many as are answered in the time between two looks at
/// the user's keys, whatever the server and the way to it are like. Batches grow quickly; where the
/// way is long they stay large enough to be worth it, and only where the answers themselves are
/// slow each statement goes alone, with all the time a statement has.
class BatchSize
{
public:
    int next() const { return m_size; }

    void learn(qint64 milliseconds)
    {
        if (milliseconds < kGood)
            m_size = std::min(m_size * (milliseconds < kShort ? 4 : 2), kMost);
        else if (milliseconds > kVeryLong)
            m_size = std::max(m_size / 8, 1);
        else if (milliseconds > kLong)
            m_size = std::max(m_size / 2, std::min(m_size, kFewest));
    }

private:
    static constexpr int kFewest = 8;
    static constexpr int kMost = 128; // larger ones are no faster per statement
    // Milliseconds. What grows is below what shrinks by far: a busy server's pause must not leave
    // the batches small for good.
    static constexpr qint64 kShort = 15;
    static constexpr qint64 kGood = 150;
    static constexpr qint64 kLong = 400;
    static constexpr qint64 kVeryLong = 1000;

    int m_size = kFewest;
};

} // namespace

bool selectMany(CompanyDatabase &database, int count, const std::function<QString(int)> &statement,
                const std::function<bool(int, RecordSet)> &take)
{
    BatchSize size;
    QElapsedTimer timer;
    for (int first = 0; first < count;) {
        QStringList statements;
        statements.reserve(std::min(size.next(), count - first));
        for (int i = first; i < std::min(first + size.next(), count); ++i)
            statements += statement(i);
        std::vector<RecordSet> answers;
        std::exception_ptr failure;
        timer.start();
        try {
            database.company().executeAll(statements, answers);
        } catch (const HostError &) {
            failure = std::current_exception(); // after what was answered before it
        }
        size.learn(timer.elapsed());
        for (RecordSet &answer : answers)
            if (!take(first++, std::move(answer)))
                return false;
        if (failure)
            std::rethrow_exception(failure);
    }
    return true;
}
