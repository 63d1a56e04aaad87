#include "shell/setup_ledger.h"

#include "common/host_probe.h"
#include "common/resume_next.h"
#include "shell/host_check.h"
#include "shell/run_link.h"
#include "shell/setup_step.h"

#include <QStringBuilder>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Of a server that answers, but slowly: each statement has its own time-out. The window lives
/// meanwhile.
constexpr std::chrono::seconds kPatience{30};

/// The accounting system's own tables tell its databases from others, as far as the login may see
/// them.
QStringList databasesWith(HostConnection &server, const QString &table)
{
    QStringList names;
    resumeNext([&] { names = host_check::openableDatabases(server, table); });
    return names;
}

OpenDatabases databasesOf(HostTools &tools, const DiagnosisTarget &target)
{
    const QString master = kDemoMaster.toString();
    const QString company = kDemoCompany.toString();
    if (target.isEmbedded())
        return {{master, company}, {master}, {company}};
    const auto server = tools.open(target.connectionTo(kServerDatabase.toString()));
    return {host_check::openableDatabases(*server), databasesWith(*server, u"KDVKISIM"_s),
            databasesWith(*server, u"STKKART"_s)};
}

/// A server reads a long list in pieces: fifty thousand customers at once outlast the time-out of a
/// statement where it is slow.
std::vector<HostCode> codesOf(HostConnection &company, const CodeQuestion &question, bool inPieces)
{
    constexpr int piece = 5000;
    const QString select = inPieces ? u"select top %1 "_s.arg(piece) : u"select "_s;
    std::vector<HostCode> codes;
    QString from;
    for (int read = piece; read == piece;) {
        RecordSet rows =
            company.execute(select % question.key % u',' % question.display % u" from " %
                            question.table % from % u" order by " % question.key);
        QString last;
        for (read = 0; !rows.eof(); rows.moveNext(), ++read) {
            last = rows.text(question.key);
            codes.push_back({last.trimmed(), rows.text(question.display).trimmed()});
        }
        if (!inPieces)
            break;
        from = u" where " % question.key % u">'" % last.replace(u'\'', u"''"_s) % u'\'';
    }
    return codes;
}

/// A list that the login may not read does not keep the others away.
HostLists listsOf(HostTools &tools, const DiagnosisTarget &target)
{
    HostLists lists;
    const auto company = tools.open(target.connectionTo(target.company));
    for (const CodeQuestion &question : codeQuestions()) {
        const QString table = question.table.toString();
        if (lists.codes.contains(table) || lists.closed.contains(table))
            continue;
        try {
            lists.codes.insert(table, codesOf(*company, question, !target.isEmbedded()));
        } catch (const HostError &error) {
            if (error.connectionLost())
                throw;
            lists.closed += table;
        }
    }
    return lists;
}

} // namespace

QStringList OpenDatabases::without(const QStringList &first) const
{
    QStringList others = names;
    others.removeIf([&](const QString &name) { return first.contains(name); });
    return others;
}

SetupLedger::SetupLedger(HostProbe &probe, QObject *parent) : QObject(parent), m_probe(probe)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(kPatience);
    connect(&m_patience, &QTimer::timeout, this,
            [this] { end(u"Sunucu zamanında yanıt vermedi."_s); });
}

SetupLedger::~SetupLedger()
{
    leave();
}

template <typename Read, typename Take>
void SetupLedger::start(const DiagnosisTarget &target, Read read, Take take)
{
    leave();
    m_run = std::make_shared<RunLink>(*this);
    m_patience.start();
    m_fault.clear();
    Q_EMIT changed();
    m_probe.start([this, run = m_run, target, read, take](HostTools &tools) {
        try {
            run->post([this, take, found = read(tools, target)] {
                take(found);
                end({});
            });
        } catch (const HostError &error) {
            run->post([this, fault = target.withoutPassword(error.text())] { end(fault); });
        }
    });
}

void SetupLedger::readDatabases(const DiagnosisTarget &target)
{
    m_databases = {};
    start(target, databasesOf, [this](const OpenDatabases &found) { m_databases = found; });
}

void SetupLedger::readCodes(const DiagnosisTarget &target)
{
    m_lists = {};
    start(target, listsOf, [this](const HostLists &found) { m_lists = found; });
}

void SetupLedger::end(const QString &fault)
{
    leave();
    m_fault = fault;
    Q_EMIT changed();
}

void SetupLedger::leave()
{
    m_patience.stop();
    if (const auto run = std::exchange(m_run, nullptr))
        run->cut();
}
