#include "platform/host/bounded_calls.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>

namespace {

/// What the waiting and the working thread share.
struct Call
{
    BoundedCalls::Life life;
    std::mutex mutex;
    std::condition_variable changed;
    bool done = false;
    std::exception_ptr error;
};

void work(Call &call, const std::function<void(BoundedCalls::Life &)> &body)
{
    std::exception_ptr error;
    try {
        body(call.life);
    } catch (...) {
        error = std::current_exception();
    }
    const std::lock_guard lock(call.mutex);
    call.error = error;
    call.done = true;
    call.changed.notify_one();
}

} // namespace

BoundedCalls::BoundedCalls(std::chrono::milliseconds farewell)
    : m_farewell(farewell), m_threads(std::make_unique<QThreadPool>())
{}

BoundedCalls::~BoundedCalls()
{
    // The end of a pool waits without limit for its threads, so this one may not be ended.
    if (!m_threads->waitForDone(static_cast<int>(m_farewell.count())))
        static_cast<void>(m_threads.release());
}

void BoundedCalls::start(std::function<void()> call)
{
    // Calls that were left alone may not keep others from starting.
    m_threads->setMaxThreadCount(m_threads->activeThreadCount() + 1);
    m_threads->start(std::move(call));
}

bool BoundedCalls::run(std::chrono::milliseconds patience, std::function<void(Life &)> body)
{
    const auto call = std::make_shared<Call>();
    start([call, body = std::move(body)] { work(*call, body); });
    constexpr std::chrono::milliseconds moment(300);
    std::unique_lock lock(call->mutex);
    while (!call->done) {
        const auto now = std::chrono::steady_clock::now();
        const auto deadline = call->life.last() + patience;
        if (now >= deadline)
            return false;
        if (call->changed.wait_until(lock, std::min(deadline, now + moment)) ==
                std::cv_status::timeout &&
            waiting) {
            lock.unlock();
            waiting();
            lock.lock();
        }
    }
    if (call->error)
        std::rethrow_exception(call->error);
    return true;
}
