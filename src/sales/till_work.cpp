#include "sales/till_work.h"

#include "common/program.h"

#include <utility>

using namespace Qt::StringLiterals;

TillWork::Step::Step(TillWork &work, std::function<QString()> doing) : m_work(work)
{
    ++m_work.m_steps;
    m_waiting = std::exchange(m_work.m_program.host.waiting, [&work, doing = std::move(doing)] {
        Q_EMIT work.waiting(u"Sunucu bekleniyor: "_s + doing());
    });
    m_beforeBox = std::exchange(m_work.m_program.prompt.beforeBox, m_work.settle);
}

TillWork::Step::~Step()
{
    --m_work.m_steps;
    m_work.m_program.host.waiting = std::move(m_waiting);
    m_work.m_program.prompt.beforeBox = std::move(m_beforeBox);
    if (m_work.m_steps > 0)
        return;
    if (m_work.busy())
        Q_EMIT m_work.boxWaits();
    else
        Q_EMIT m_work.done();
}

void TillWork::later(std::function<void()> box)
{
    m_boxes.push_back(std::move(box));
    if (m_steps == 0)
        Q_EMIT boxWaits();
}

void TillWork::dialog(std::function<void()> open)
{
    m_dialog = std::move(open);
    if (m_steps == 0)
        Q_EMIT boxWaits();
}

void TillWork::openBoxes()
{
    if (m_steps > 0)
        return;
    if (!m_boxes.empty()) {
        const Step step(*this, [] { return QString(); });
        m_program.prompt.beforeBox = nullptr; // nobody types now
        const std::function<void()> box = std::move(m_boxes.front());
        m_boxes.pop_front();
        m_program.handle(box);
    } else if (m_dialog) {
        const std::function<void()> open = std::exchange(m_dialog, nullptr);
        Q_EMIT dialogOpens();
        m_program.handle(open);
        Q_EMIT dialogClosed();
        if (!busy())
            Q_EMIT done();
    }
}
