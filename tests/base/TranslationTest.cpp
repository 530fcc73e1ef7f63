#include "base/Translation.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

/// A language that puts the second argument first, and lacks all else.
std::string turned(Sentence const& sentence, char const* many, unsigned long count)
{
    auto const key = std::string(sentence.context ? sentence.context : "") + "|" + (many && count != 1 ? many : sentence.english);
    return key == "|%1 is in %2" ? "%2: %1" : key == "|%1 items" ? "[%1]" : key == "a file|Open" ? "Auf" : key.ends_with("|, ") ? "، " : "";
}

TEST(Translation, PutsArgumentsWhereTheLanguageHasThem)
{
    EXPECT_EQ(tr("%1 is in %2", "A", "B"), "A is in B");
    translateBy(turned, [](std::int64_t value) { return "(" + std::to_string(value) + ")"; });
    EXPECT_EQ(tr("%1 is in %2", "A %2", "100 %"), "100 %: A %2") << "arguments are no patterns";
    EXPECT_EQ(trn("%1 item", "%1 items", 3), "[(3)]");
    EXPECT_EQ(trn("%1 item", "%1 items", 1), "(1) item") << "what is missing stays English";
    EXPECT_EQ(trc("a file", "Open") + tr("Open"), "AufOpen") << "a context is part of the key";
    {
        EnglishMeanwhile const english;
        EXPECT_EQ(trc("a file", "Open") + number(1000), "Open1000") << "for as long as it is wanted";
    }
    EXPECT_EQ(trc("a file", "Open"), "Auf");
    translateBy(nullptr);
    EXPECT_EQ(quoted("A") + inSequence("B.", "C.") + listed({ "D", "E" }), "“A”B. C.D, E");
}

} // namespace
} // namespace zv
