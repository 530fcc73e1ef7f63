#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
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

/// Nanoseconds of one unit of work.
struct Medians {
    double ours = 0;
    double theirs = 0;
};

/// Prints "name: A ns, B ns, ratio r": our time for each of `units`, the time of the bare library (or other yardstick),
/// and the first divided by the second.
inline Medians report(std::string const& name, std::size_t units, std::vector<double> const& ours, std::vector<double> const& theirs)
{
    auto const perUnit = [units](std::vector<double> const& times) { return median(times) / static_cast<double>(units); };
    Medians const found { perUnit(ours), perUnit(theirs) };
    std::printf("%s: %.0f ns, %.0f ns, ratio %.2f\n", name.c_str(), found.ours, found.theirs, found.ours / found.theirs);
    return found;
}

/// By wall-clock time.
template <class Ours, class Bare> Medians wallRatio(std::string const& name, std::size_t units, Ours ours, Bare bare, int times = rounds)
{
    std::vector<double> ourTimes;
    std::vector<double> bareTimes;
    for (int round = 0; round < times; ++round) {
        ourTimes.push_back(wallNanosecondsOf(ours.work));
        ours.undo();
        bareTimes.push_back(wallNanosecondsOf(bare.work));
        bare.undo();
    }
    return report(name, units, ourTimes, bareTimes);
}

/// By the process's own time.
template <class Ours, class Bare> Medians ratio(std::string const& name, std::size_t units, Ours ours, Bare bare)
{
    std::vector<double> ourTimes;
    std::vector<double> bareTimes;
    for (int round = 0; round < rounds; ++round) {
        ourTimes.push_back(nanosecondsOf(ours));
        bareTimes.push_back(nanosecondsOf(bare));
    }
    return report(name, units, ourTimes, bareTimes);
}

/// Hands a cell of the table of speeds to bench/table, where that has asked for them: what all of the row's work takes
/// with `size` things, and a peer's in the same run. The file has milliseconds.
inline void note(std::string const& row, std::size_t size, Medians const& found, std::string const& peer)
{
    if (auto const* const path = std::getenv("ZV_BENCH_ROWS"))
        std::ofstream(path, std::ios::app) << row << '\t' << size << '\t' << found.ours / 1e6 << '\t' << peer << '\t' << found.theirs / 1e6 << '\n';
}

/// Measures a cell of the table of speeds, small sizes as often as the clock needs.
template <class Ours, class Bare> void cell(std::string const& row, std::size_t size, std::string const& peer, Ours ours, Bare bare)
{
    auto const times = std::max<std::size_t>(1, 10'000 / size);
    auto const repeated = [times](auto& work) {
        return [&work, times] {
            for (std::size_t i = 0; i < times; ++i)
                work();
        };
    };
    note(row, size, ratio(row + ", " + std::to_string(size) + " (ours, " + peer + ")", times, repeated(ours), repeated(bare)), peer);
}

} // namespace zv::bench
