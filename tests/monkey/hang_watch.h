#pragma once

#include "monkey/step_log.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <pthread.h>
#include <thread>

/// Ends the program, with the stack of the hanging thread where the sanitizers are on, when the
/// event loop stands still for longer than the shop would wait. What it waits for a processor of a
/// busy machine does not count.
class HangWatch
{
public:
    static constexpr std::chrono::seconds kLongest{6};

    HangWatch() : m_user(pthread_self()), m_thread([this] { watch(); }) { beat(); }
    ~HangWatch()
    {
        m_over = true;
        m_thread.join();
    }
    HangWatch(const HangWatch &) = delete;
    HangWatch &operator=(const HangWatch &) = delete;

    static void beat()
    {
        s_starved = starved();
        s_beat = std::chrono::steady_clock::now();
    }

    /// Ends the program at once: what was found would be hidden by an orderly end.
    [[noreturn]] static void fail(int code)
    {
        std::fflush(nullptr);
        std::_Exit(code);
    }

private:
    void watch()
    {
        while (!m_over) {
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            if (std::chrono::steady_clock::now() - s_beat.load() - (starved() - s_starved.load()) <
                kLongest)
                continue;
            std::fputs("the event loop stands still\n", stderr);
            pthread_kill(m_user, SIGABRT);
            std::this_thread::sleep_for(std::chrono::seconds(20));
        }
    }

    /// How long the threads have waited for a processor, as Linux counts it: the first one may
    /// wait for another that waits.
    static std::chrono::nanoseconds starved()
    {
        long long all = 0;
        std::error_code gone; // threads come and go
        for (const auto &thread : std::filesystem::directory_iterator("/proc/self/task", gone)) {
            std::ifstream file(thread.path() / "schedstat");
            long long ran = 0;
            long long waited = 0;
            file >> ran >> waited;
            all += waited;
        }
        return std::chrono::nanoseconds(all);
    }

    inline static std::atomic<std::chrono::steady_clock::time_point> s_beat;
    inline static std::atomic<std::chrono::nanoseconds> s_starved;
    std::atomic<bool> m_over = false;
    pthread_t m_user;
    std::thread m_thread;
};
