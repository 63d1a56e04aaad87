#include "app/outer_loop.h"

#include <QApplication>
#include <QEvent>
#include <QThread>
#include <QWidget>

#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kLook{20};

} // namespace

OuterLoop::OuterLoop(std::function<bool()> runs, QObject *parent)
    : QObject(parent), m_runs(std::move(runs))
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &OuterLoop::next);
    qApp->installEventFilter(this);
}

bool OuterLoop::isThere() const
{
    return QThread::currentThread()->loopLevel() <= 1 && !m_runs();
}

void OuterLoop::run(std::function<void()> act)
{
    m_acts.push_back(std::move(act));
    m_timer.start(0);
}

void OuterLoop::next()
{
    if (!isThere()) {
        m_timer.start(kLook);
        return;
    }
    const std::function<void()> act = std::move(m_acts.front());
    m_acts.erase(m_acts.begin());
    if (!m_acts.empty())
        m_timer.start(0);
    act();
}

bool OuterLoop::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::DeferredDelete || !watched->isWidgetType() ||
        !static_cast<QWidget *>(watched)->isWindow() || isThere())
        return false;
    m_leaving.emplace_back(watched);
    run([this] {
        const QPointer<QObject> form = m_leaving.front();
        m_leaving.pop_front();
        if (form)
            form->deleteLater();
    });
    return true;
}

void OuterLoop::deleteWaiting()
{
    for (const QPointer<QObject> &form : m_leaving)
        delete form.data();
}
