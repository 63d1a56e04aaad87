#include "labels/desk/long_task.h"

#include "common/amount.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

LongTask::Run::Run(LongTask &task, const QString &text) : outcome(task.m_failed), m_task(task)
{
    task.m_running = true;
    task.m_slices.start();
    Q_EMIT task.busyChanged(true);
    Q_EMIT task.statusChanged(text);
}

LongTask::Run::~Run()
{
    m_task.m_running = false;
    Q_EMIT m_task.ended();
    Q_EMIT m_task.busyChanged(false);
    Q_EMIT m_task.statusChanged(outcome);
}

LongTask::LongTask(QString failed, QObject *parent) : QObject(parent), m_failed(std::move(failed))
{}

bool LongTask::goOn(const QString &text, qsizetype done, qsizetype total)
{
    return m_slices.goOn([&] { tell(text, done, total); });
}

bool LongTask::show(const QString &text, qsizetype done, qsizetype total)
{
    return m_slices.lookUp([&] { tell(text, done, total); });
}

void LongTask::tell(const QString &text, qsizetype done, qsizetype total)
{
    Q_EMIT progressed(u"%1: %2 / %3"_s.arg(text, amount::whole(done), amount::whole(total)),
                      static_cast<int>(done), static_cast<int>(total));
}
