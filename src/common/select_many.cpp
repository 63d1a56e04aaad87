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
/// the user's keys, whatever the server and the way to it are like.
class BatchSize
{
public:
    int next() const { return m_size; }

    void learn(qint64 milliseconds)
    {
        if (milliseconds < kShort)
            m_size = std::min(m_size * 2, kMost);
        else if (milliseconds > kLong)
            m_size = std::max(m_size / 2, kFewest);
    }

private:
    static constexpr int kFewest = 8;
    static constexpr int kMost = 512;
    static constexpr qint64 kShort = 25; // milliseconds
    static constexpr qint64 kLong = 100;

    int m_size = 16;
};

} // namespace

bool selectMany(CompanyDatabase &database, int count, const std::function<QString(int)> &statement,
                const std::function<bool(int, RecordSet)> &take)
{
    BatchSize size;
    QElapsedTimer timer;
    for (int first = 0; first < count;) {
        QStringList statements;
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
