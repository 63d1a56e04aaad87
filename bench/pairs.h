#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <vector>

/// Runs of something and of its floor, taken in turn. What else the machine does only adds to a
/// run: the shortest of each is what it costs. How far the single pairs lie apart tells how quiet
/// the machine was.
class Pairs
{
public:
    /// Seconds of one run of each.
    void add(double whole, double floor)
    {
        m_whole.push_back(whole);
        m_floor.push_back(floor);
        m_ratios.push_back(whole / floor);
    }

    double whole() const { return least(m_whole); }
    double floor() const { return least(m_floor); }

    /// ratio: of the shortest runs; median, low and high (quartiles): of the pairs.
    void report(benchmark::State &state) const
    {
        if (m_ratios.empty())
            return;
        std::vector<double> ratios = m_ratios;
        std::sort(ratios.begin(), ratios.end());
        state.counters["ratio"] = whole() / floor();
        state.counters["low"] = ratios[ratios.size() / 4];
        state.counters["median"] = ratios[ratios.size() / 2];
        state.counters["high"] = ratios[ratios.size() * 3 / 4];
        state.counters["pairs"] = static_cast<double>(ratios.size());
    }

private:
    static double least(const std::vector<double> &runs)
    {
        return *std::min_element(runs.begin(), runs.end());
    }

    std::vector<double> m_whole;
    std::vector<double> m_floor;
    std::vector<double> m_ratios;
};
