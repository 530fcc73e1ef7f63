#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

namespace zv::bench {

/// How often each side is measured. The sides take turns, so that what else the machine
/// does falls on both.
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

/// Prints "name: A ns, B ns, ratio r": what ours takes for one of `units`, what the bare
/// library (or whatever it is measured against) takes, and how often the one fits the other.
/// Returns the ratio.
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
