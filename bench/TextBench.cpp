// Texts against bare ICU: parsing and sorting 100,000 file names.

#include "app/model/FinderPopName.h"
#include "bench/Ratio.h"
#include "platform/text/Text.h"

#include <benchmark/benchmark.h>
#include <unicode/ubrk.h>
#include <unicode/ucasemap.h>
#include <unicode/ucol.h>
#include <unicode/ustring.h>
#include <unicode/utext.h>

#include <random>

using namespace zv;

namespace {

constexpr std::size_t nameCount = 100'000;

/// Realistic names; one in eight is not ASCII, one in ten has a shortcut or a prefix.
std::vector<std::string> fileNames()
{
    static constexpr char const* words[] = { "Report", "invoice", "IMG_", "Grüße", "holiday photo", "main", "résumé", "backup-" };
    static constexpr char const* extensions[] = { ".pdf", ".txt", ".jpeg", "", ".tar.gz", ".cpp" };
    std::mt19937 random(7); // the same names each time
    std::vector<std::string> names;
    names.reserve(nameCount);
    for (std::size_t i = 0; i < nameCount; ++i) {
        std::string name = words[random() % std::size(words)] + std::to_string(random() % 100'000);
        if (i % 20 == 0)
            name = "01)" + name;
        if (i % 20 == 10)
            name += "-*[cmd+opt+E]*";
        names.push_back(name + extensions[random() % std::size(extensions)]);
    }
    return names;
}

class BareIcu {
public:
    BareIcu()
    {
        UErrorCode status = U_ZERO_ERROR;
        m_collator = ucol_open("", &status);
        ucol_setStrength(m_collator, UCOL_SECONDARY);
        ucol_setAttribute(m_collator, UCOL_NUMERIC_COLLATION, UCOL_ON, &status);
        m_breaks = ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status);
        m_cases = ucasemap_open("", 0, &status);
    }
    ~BareIcu()
    {
        ucol_close(m_collator);
        ubrk_close(m_breaks);
        ucasemap_close(m_cases);
    }
    BareIcu(BareIcu const&) = delete;
    BareIcu& operator=(BareIcu const&) = delete;

    std::size_t sortKeyLength(std::string const& name) const
    {
        UErrorCode status = U_ZERO_ERROR;
        char16_t text[512];
        int32_t length = 0;
        u_strFromUTF8WithSub(text, 512, &length, name.data(), static_cast<int32_t>(name.size()), 0xFFFD, nullptr, &status);
        std::uint8_t key[1024];
        return static_cast<std::size_t>(ucol_getSortKey(m_collator, text, length, key, sizeof key));
    }

    std::size_t graphemes(std::string const& name) const
    {
        UErrorCode status = U_ZERO_ERROR;
        UText text = UTEXT_INITIALIZER;
        utext_openUTF8(&text, name.data(), static_cast<int64_t>(name.size()), &status);
        ubrk_setUText(m_breaks, &text, &status);
        std::size_t count = 0;
        while (ubrk_next(m_breaks) != UBRK_DONE)
            ++count;
        utext_close(&text);
        return count;
    }

    std::size_t lowerCasedLength(std::string const& name) const
    {
        UErrorCode status = U_ZERO_ERROR;
        char text[1024];
        return static_cast<std::size_t>(ucasemap_utf8ToLower(m_cases, text, sizeof text, name.data(), static_cast<int32_t>(name.size()), &status));
    }

    int compare(std::string const& a, std::string const& b) const
    {
        UErrorCode status = U_ZERO_ERROR;
        return ucol_strcollUTF8(m_collator, a.data(), static_cast<int32_t>(a.size()), b.data(), static_cast<int32_t>(b.size()), &status);
    }

private:
    UCollator* m_collator = nullptr;
    UBreakIterator* m_breaks = nullptr;
    UCaseMap* m_cases = nullptr;
};

template <class Work> auto forAll(std::vector<std::string> const& names, Work work)
{
    return [&names, work] {
        std::size_t sum = 0;
        for (auto const& name : names)
            sum += work(name);
        benchmark::DoNotOptimize(sum);
    };
}

} // namespace

int main()
{
    auto const names = fileNames();
    BareIcu const icu;
    auto const measure = [&](std::string const& name, auto ours, auto bare) { bench::ratio(name, nameCount, forAll(names, ours), forAll(names, bare)); };

    measure(
        "sort key, a name", [](auto const& name) { return sortKey(name).size(); }, [&](auto const& name) { return icu.sortKeyLength(name); });
    measure(
        "comparison, a name", [&](auto const& name) { return localizedStandardCompare(name, names[0]) < 0 ? 1 : 0; },
        [&](auto const& name) { return icu.compare(name, names[0]) < 0 ? 1 : 0; });
    measure(
        "characters, a name", [](auto const& name) { return graphemeCount(name); }, [&](auto const& name) { return icu.graphemes(name); });
    measure(
        "lower case, a name", [](auto const& name) { return lowerCased(name).size(); }, [&](auto const& name) { return icu.lowerCasedLength(name); });
    // A parse has to look at the characters of a name once.
    measure(
        "file name's parts against its characters, a name", [](auto const& name) { return FinderPopName(name).title.size(); },
        [&](auto const& name) { return icu.graphemes(name); });
}
