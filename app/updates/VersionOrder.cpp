#include "app/updates/VersionOrder.h"

#include <string>
#include <vector>

namespace zv {

namespace {

enum class RunKind { word, separator, number }; // in their order of comparison

struct Run {
    RunKind kind;
    std::string_view text;
};

RunKind kindOf(char c)
{
    if (c >= '0' && c <= '9')
        return RunKind::number;
    bool const isAsciiLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return isAsciiLetter || static_cast<unsigned char>(c) >= 0x80 ? RunKind::word : RunKind::separator;
}

/// Each separator is a run of its own: "1..0" has two.
std::vector<Run> runsOf(std::string_view text)
{
    std::vector<Run> runs;
    for (std::size_t start = 0; start < text.size();) {
        auto const kind = kindOf(text[start]);
        auto end = start + 1;
        while (kind != RunKind::separator && end < text.size() && kindOf(text[end]) == kind)
            ++end;
        runs.push_back({ kind, text.substr(start, end - start) });
        start = end;
    }
    return runs;
}

std::string_view withoutLeadingZeros(std::string_view digits)
{
    auto const first = digits.find_first_not_of('0');
    return first == std::string_view::npos ? std::string_view() : digits.substr(first);
}

std::strong_ordering compareNumbers(std::string_view a, std::string_view b)
{
    a = withoutLeadingZeros(a);
    b = withoutLeadingZeros(b);
    return a.size() != b.size() ? a.size() <=> b.size() : a.compare(b) <=> 0;
}

std::strong_ordering compareRuns(Run const& a, Run const& b)
{
    if (a.kind != b.kind)
        return a.kind <=> b.kind;
    switch (a.kind) {
    case RunKind::number:
        return compareNumbers(a.text, b.text);
    case RunKind::word:
        return a.text.compare(b.text) <=> 0;
    case RunKind::separator:
        break;
    }
    return std::strong_ordering::equal;
}

/// Compares the longer text, which goes on with `rest`, to the ended one.
std::strong_ordering orderOfLonger(std::vector<Run> const& runs, std::size_t rest)
{
    bool const skipsSeparator = runs[rest].kind == RunKind::separator && rest + 1 < runs.size();
    auto const& next = skipsSeparator ? runs[rest + 1] : runs[rest];
    return next.kind == RunKind::word ? std::strong_ordering::less : std::strong_ordering::greater;
}

} // namespace

std::strong_ordering compareVersions(std::string_view a, std::string_view b)
{
    auto const runsA = runsOf(a);
    auto const runsB = runsOf(b);
    std::size_t i = 0;
    for (; i < runsA.size() && i < runsB.size(); ++i) {
        if (auto const order = compareRuns(runsA[i], runsB[i]); order != 0)
            return order;
    }
    if (runsA.size() == runsB.size())
        return std::strong_ordering::equal;
    return runsA.size() > runsB.size() ? orderOfLonger(runsA, i) : 0 <=> orderOfLonger(runsB, i);
}

} // namespace zv
