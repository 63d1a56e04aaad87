#include "platform/bounded_calls.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>

using namespace std::chrono_literals;

namespace {

TEST(BoundedCalls, WaitsAsLongAsTheCallShowsLife)
{
    BoundedCalls calls;
    EXPECT_TRUE(calls.run(500ms, [](BoundedCalls::Life &life) {
        for (int i = 0; i < 20; ++i) {
            std::this_thread::sleep_for(50ms);
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
            std::this_thread::sleep_for(1s);
            finished = true;
        }));
        EXPECT_FALSE(finished);
        EXPECT_TRUE(calls.run(500ms, [](BoundedCalls::Life &) {}));
    }
    EXPECT_TRUE(finished); // nothing runs on when the program has ended
}

TEST(BoundedCalls, PassesOnWhatACallThrows)
{
    BoundedCalls calls;
    EXPECT_THROW(calls.run(5s, [](BoundedCalls::Life &) { throw std::logic_error("x"); }),
                 std::logic_error);
}

} // namespace
