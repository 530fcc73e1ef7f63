#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

namespace zv::bench {

/// The number of measurements of each side. The sides take turns, so that other load falls
/// on both.
inline constexpr int rounds = 11;

template <class Work> double nanosecondsOf(Work& work)
{
    auto const start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) * 1e9 / CLOCKS_PER_SEC;
}

inline double median(std::vector<double> values)
{
    auto const middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Wall-clock time, for work done by another process (an X server).
template <class Work> double wallNanosecondsOf(Work& work)
{
    auto const start = std::chrono::steady_clock::now();
    work();
    return static_cast<double>(std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now() - start).count());
}

/// The work to be measured, and its undoing after each time.
template <class Work, class Undo> struct Side {
    Work work;
    Undo undo;
};
template <class Work, class Undo> Side(Work, Undo) -> Side<Work, Undo>;

/// Like ratio(), by wall-clock time.
template <class Ours, class Bare> double wallRatio(std::string const& name, std::size_t units, Ours ours, Bare bare, int times = rounds)
{
    std::vector<double> ourTimes;
    std::vector<double> bareTimes;
    for (int round = 0; round < times; ++round) {
        ourTimes.push_back(wallNanosecondsOf(ours.work));
        ours.undo();
        bareTimes.push_back(wallNanosecondsOf(bare.work));
        bare.undo();
    }
    auto const perUnit = [&](std::vector<double> const& each) { return median(each) / static_cast<double>(units); };
    double const result = median(ourTimes) / median(bareTimes);
    std::printf("%s: %.0f ns, %.0f ns, ratio %.2f\n", name.c_str(), perUnit(ourTimes), perUnit(bareTimes), result);
    return result;
}

/// Prints "name: A ns, B ns, ratio r": our time for each of `units`, the time of the bare
/// library (or other yardstick), and the first divided by the second. Returns the ratio.
template <class Ours, class Bare> double ratio(std::string const& name, std::size_t units, Ours ours, Bare bare)
{
    std::vector<double> ourTimes;
    std::vector<double> bareTimes;
    for (int round = 0; round < rounds; ++round) {
        ourTimes.push_back(nanosecondsOf(ours));
        bareTimes.push_back(nanosecondsOf(bare));
    }
    auto const perUnit = [&](std::vector<double> const& times) { return median(times) / static_cast<double>(units); };
    double const result = median(ourTimes) / median(bareTimes);
    std::printf("%s: %.0f ns, %.0f ns, ratio %.2f\n", name.c_str(), perUnit(ourTimes), perUnit(bareTimes), result);
    return result;
}

} // namespace zv::bench
