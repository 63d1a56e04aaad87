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
}

TillWork::Step::~Step()
{
    --m_work.m_steps;
    m_work.m_program.host.waiting = std::move(m_waiting);
    if (!m_work.busy())
        Q_EMIT m_work.done();
}

void TillWork::later(std::function<void()> box)
{
    m_boxes.push_back(std::move(box));
    Q_EMIT boxWaits();
}

void TillWork::openBoxes()
{
    while (!m_boxes.empty()) {
        const Step step(*this, [] { return QString(); });
        const std::function<void()> box = std::move(m_boxes.front());
        m_boxes.pop_front();
        m_program.handle(box);
    }
}
