#include "shell/diagnosis.h"

#include "shell/diagnosis_steps.h"
#include "shell/run_link.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

Diagnosis::Diagnosis(HostProbe &probe, QObject *parent, std::chrono::milliseconds patience)
    : QObject(parent), m_probe(probe)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &Diagnosis::giveUpStep);
}

Diagnosis::~Diagnosis()
{
    leaveRun();
}

void Diagnosis::start(const DiagnosisTarget &target)
{
    leaveRun();
    m_target = target;
    m_steps.clear();
    for (const DiagnosisSteps::Step &step : DiagnosisSteps::of(target))
        m_steps += DiagnosisStep{step.name.toString(), DiagnosisStep::State::waiting, {}, {}, {}};
    m_run = std::make_shared<RunLink>(*this);
    Q_EMIT started();
    begin(0);
    m_probe.start([this, run = m_run, target](HostTools &tools) {
        DiagnosisSteps steps(tools, target, [&](int step, const DiagnosisFinding &finding) {
            run->post([=, this] { report(step, finding); });
        });
        const auto count = static_cast<int>(DiagnosisSteps::of(target).size());
        for (int step = 0; step < count; ++step) {
            steps.run(step);
            if (!run->post([=, this] { end(step); }))
                return;
        }
    });
}

void Diagnosis::begin(int step)
{
    m_current = step;
    m_steps[step].state = DiagnosisStep::State::running;
    m_patience.start();
    Q_EMIT stepChanged(step);
}

void Diagnosis::report(int step, const DiagnosisFinding &finding)
{
    DiagnosisStep &line = m_steps[step];
    line.state = finding.good ? DiagnosisStep::State::good : DiagnosisStep::State::bad;
    line.found = finding.found;
    line.advice = finding.advice;
    line.grant = finding.grant;
    Q_EMIT stepChanged(step);
}

/// A step that reported nothing had nothing to build upon.
void Diagnosis::end(int step)
{
    if (m_steps[step].state == DiagnosisStep::State::running) {
        m_steps[step].state = DiagnosisStep::State::skipped;
        Q_EMIT stepChanged(step);
    }
    if (step + 1 < m_steps.size())
        begin(step + 1);
    else
        finish();
}

void Diagnosis::giveUpStep()
{
    const auto &step = DiagnosisSteps::of(m_target)[static_cast<std::size_t>(m_current)];
    report(m_current, diagnosis_finding::bad(
                          u"%1 saniyede yanıt gelmedi."_s.arg((m_patience.interval() + 999) / 1000),
                          step.silence.toString()));
    stop();
}

void Diagnosis::stop()
{
    if (isRunning())
        finish();
}

void Diagnosis::finish()
{
    leaveRun();
    for (int step = 0; step < m_steps.size(); ++step) {
        DiagnosisStep::State &state = m_steps[step].state;
        if (state != DiagnosisStep::State::waiting && state != DiagnosisStep::State::running)
            continue;
        state = DiagnosisStep::State::skipped;
        Q_EMIT stepChanged(step);
    }
    Q_EMIT finished();
}

void Diagnosis::leaveRun()
{
    m_patience.stop();
    if (const auto run = std::exchange(m_run, nullptr))
        run->cut();
}

bool Diagnosis::passed() const
{
    return !m_steps.isEmpty() &&
           std::all_of(m_steps.begin(), m_steps.end(), [](const DiagnosisStep &step) {
               return step.state == DiagnosisStep::State::good;
           });
}

int Diagnosis::faults() const
{
    return static_cast<int>(
        std::count_if(m_steps.begin(), m_steps.end(), [](const DiagnosisStep &step) {
            return step.state == DiagnosisStep::State::bad;
        }));
}

QString Diagnosis::mark(DiagnosisStep::State state)
{
    switch (state) {
    case DiagnosisStep::State::good:
        return u"✓"_s;
    case DiagnosisStep::State::bad:
        return u"✗"_s;
    case DiagnosisStep::State::skipped:
        return u"–"_s;
    default:
        return u"…"_s;
    }
}

QString Diagnosis::grants() const
{
    QStringList scripts;
    for (const DiagnosisStep &step : m_steps)
        if (!step.grant.isEmpty())
            scripts += step.grant.join(u'\n') + u'\n';
    return scripts.join(u'\n');
}

QString Diagnosis::text() const
{
    QStringList lines = {
        u"Tezgâh %1, sunucu tanılaması"_s.arg(QCoreApplication::applicationVersion()),
        u"Sunucu: %1, kullanıcı: %2, ana veritabanı: %3, şirket veritabanı: %4"_s.arg(
            m_target.server, m_target.user, m_target.master, m_target.company),
        {}};
    for (const DiagnosisStep &step : m_steps) {
        lines += u"%1 %2"_s.arg(mark(step.state), step.name);
        for (const QString &told : {step.found, step.advice})
            for (const QString &line : told.split(u'\n', Qt::SkipEmptyParts))
                lines += u"    "_s + line;
    }
    if (const QString script = grants(); !script.isEmpty())
        lines += {QString(), script};
    return lines.join(u'\n') + u'\n';
}
