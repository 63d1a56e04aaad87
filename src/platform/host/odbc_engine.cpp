#include "platform/host/odbc_engine.h"

#include "platform/host/engine_errors.h"
#include "platform/host/odbc_session.h"
#include "platform/host/statement_batch.h"

#include <iterator>

using namespace Qt::StringLiterals;

namespace {

HostError silent(const QString &statement = {})
{
    return engineError(HostError::kConnectionLost, u"Sunucu yanıt vermiyor."_s, statement,
                       HostError::Cause::silent);
}

} // namespace

OdbcEngine::OdbcEngine(std::shared_ptr<BoundedCalls> calls, const Where &where,
                       std::chrono::milliseconds patience)
    : m_calls(std::move(calls)), m_patience(patience)
{
    const auto session = std::make_shared<std::shared_ptr<OdbcSession>>();
    const bool finished = m_calls->run(m_patience, [=](BoundedCalls::Life &) {
        *session = std::make_shared<OdbcSession>(where(), patience);
    });
    if (!finished)
        throw silent();
    m_session = std::move(*session);
}

OdbcEngine::~OdbcEngine()
{
    leaveSession();
}

/// Closing a connection asks the server, and a driver may wait for its answer as long as it likes.
void OdbcEngine::leaveSession()
{
    if (m_session)
        m_calls->start(
            [session = std::exchange(m_session, nullptr)]() mutable { session.reset(); });
}

int OdbcEngine::state() const
{
    return m_session ? 1 : 0;
}

QString OdbcEngine::driver() const
{
    return m_session ? m_session->driver() : QString();
}

RecordSet OdbcEngine::execute(const QString &statement)
{
    const auto rows = std::make_shared<RecordSet>();
    const bool answered = inSession(statement, [=](OdbcSession &session, BoundedCalls::Life &life) {
        *rows = session.execute(statement, life);
    });
    if (!answered)
        throw silent(statement);
    return std::move(*rows);
}

void OdbcEngine::executeAll(const QStringList &statements, std::vector<RecordSet> &answers)
{
    const auto batch = m_takesBatches ? statementBatch(statements) : std::nullopt;
    if (!batch) {
        HostConnection::executeAll(statements, answers);
        return;
    }
    const auto results = std::make_shared<std::vector<RecordSet>>();
    bool answered = false;
    try {
        answered = inSession(*batch, [=](OdbcSession &session, BoundedCalls::Life &life) {
            session.executeBatch(*batch, *results, life);
        });
    } catch (const HostError &error) {
        std::move(results->begin(), results->end(), std::back_inserter(answers));
        if (state() != 1)
            throw;
        // Alone, the failing statement says what is wrong with it; or it was the batch that was,
        // and each statement in it is answered in its own time.
        HostConnection::executeAll(statements.mid(static_cast<qsizetype>(results->size())),
                                   answers);
        m_takesBatches = !results->empty() || error.connectionLost();
        return;
    }
    if (!answered)
        throw silent(*batch);
    m_takesBatches = results->size() == static_cast<std::size_t>(statements.size());
    if (m_takesBatches)
        std::move(results->begin(), results->end(), std::back_inserter(answers));
    else // a driver that answers the first of them only
        HostConnection::executeAll(statements, answers);
}

bool OdbcEngine::inSession(const QString &statement, const Work &work)
{
    if (!m_session)
        throw engineError(HostError::kConnectionLost, u"Bağlantı kapalı."_s, statement);
    if (statement.contains(QChar(u'\0')))
        throw engineError(HostError::kStatement, u"Sorguda geçersiz karakter var."_s, statement);
    try {
        const bool finished =
            m_calls->run(m_patience, [work, session = m_session](BoundedCalls::Life &life) {
                work(*session, life);
            });
        if (!finished)
            leaveSession();
        return finished;
    } catch (const HostError &) {
        if (m_session && m_session->lost())
            leaveSession();
        throw;
    }
}
