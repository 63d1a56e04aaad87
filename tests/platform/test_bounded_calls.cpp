#include "platform/host/bounded_calls.h"

#include <future>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>

using namespace std::chrono_literals;

namespace {

TEST(BoundedCalls, WaitsAsLongAsTheCallShowsLife)
{
    BoundedCalls calls;
    EXPECT_TRUE(calls.run(200ms, [](BoundedCalls::Life &life) {
        for (int i = 0; i < 15; ++i) {
            std::this_thread::sleep_for(20ms);
            life.show();
        }
    }));
}

TEST(BoundedCalls, LeavesASilentCallAloneAndRunsTheNext)
{
    std::atomic<bool> finished = false;
    {
        BoundedCalls calls;
        EXPECT_FALSE(calls.run(50ms, [&](BoundedCalls::Life &) {
            std::this_thread::sleep_for(300ms);
            finished = true;
        }));
        EXPECT_FALSE(finished);
        EXPECT_TRUE(calls.run(500ms, [](BoundedCalls::Life &) {}));
    }
    EXPECT_TRUE(finished); // what ends soon is waited for
}

TEST(BoundedCalls, TheEndDoesNotWaitForACallThatNeverReturns)
{
    const auto hanging = std::make_shared<std::promise<void>>();
    const auto ended = std::make_shared<std::promise<void>>();
    const auto start = std::chrono::steady_clock::now();
    {
        BoundedCalls calls(100ms);
        calls.start([=] {
            hanging->get_future().wait();
            ended->set_value();
        });
        EXPECT_FALSE(
            calls.run(50ms, [](BoundedCalls::Life &) { std::this_thread::sleep_for(1h); }));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
    hanging->set_value(); // an abandoned call touches nothing of the pool it came from
    EXPECT_EQ(ended->get_future().wait_for(5s), std::future_status::ready);
}

TEST(BoundedCalls, PassesOnWhatACallThrows)
{
    BoundedCalls calls;
    EXPECT_THROW(calls.run(5s, [](BoundedCalls::Life &) { throw std::logic_error("x"); }),
                 std::logic_error);
}

} // namespace
