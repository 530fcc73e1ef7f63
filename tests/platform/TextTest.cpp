#include "platform/text/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace zv {
namespace {

std::string const invalid = "a\xFF\xC3(b\xE2\x82";

TEST(Text, TellsWellFormedUtf8FromOtherBytes)
{
    struct Row {
        std::string text;
        bool valid;
        std::string repaired;
    };
    Row const rows[] = {
        { "", true, "" },
        { "plain", true, "plain" },
        { "grün €😀", true, "grün €😀" },
        { std::string("a\0b", 3), true, std::string("a\0b", 3) },
        { "a\xFF", false, "a\uFFFD" },
        { "\xE2\x82", false, "\uFFFD" },
        { "\xC0\xAF", false, "\uFFFD\uFFFD" },
        { "\xED\xA0\x80", false, "\uFFFD\uFFFD\uFFFD" },
        { invalid, false, "a\uFFFD\uFFFD(b\uFFFD" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.repaired);
        EXPECT_EQ(isValidUtf8(row.text), row.valid);
        EXPECT_EQ(withValidUtf8(row.text), row.repaired);
    }
}

TEST(Text, CountsWhatAReaderTakesForOneCharacter)
{
    struct Row {
        std::string text;
        std::size_t count;
        std::string why;
    };
    Row const rows[] = {
        { "", 0, "empty" },
        { "abc", 3, "one byte each" },
        { "\r\n", 1, "a line break pair" },
        { "a\r\nb", 3, "a line break pair between letters" },
        { "e\u0301", 1, "an accent after an ASCII letter joins it" },
        { "ae\u0301b", 3, "also in the middle of ASCII" },
        { "👩‍👩‍👧‍👦", 1, "a family joined by joiners" },
        { "🇩🇪🇫🇷", 2, "two flags" },
        { "한국", 2, "syllables" },
        { "x\xFFy", 3, "a byte that is not UTF-8 counts as one" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(graphemeCount(row.text), row.count);
        EXPECT_EQ(singleGrapheme(row.text).has_value(), row.count == 1);
    }
}

TEST(Text, GivesLeadingCharactersAsViews)
{
    EXPECT_EQ(firstGraphemes("01)Mail", 3), (std::vector<std::string_view> { "0", "1", ")" }));
    EXPECT_EQ(firstGraphemes("e\u0301a", 2), (std::vector<std::string_view> { "e\u0301", "a" }));
    EXPECT_EQ(firstGraphemes("ab", 4).size(), 2u);
    EXPECT_TRUE(firstGraphemes("ab", 0).empty());
}

TEST(Text, MapsCaseByTheFullTablesWhateverTheLocale)
{
    EXPECT_EQ(lowerCased("ABC-xyz"), "abc-xyz");
    EXPECT_EQ(upperCased("abc-XYZ"), "ABC-XYZ");
    EXPECT_EQ(upperCased("straße"), "STRASSE");
    EXPECT_EQ(lowerCased("ÄÖÜ ΣΑΣ"), "äöü σας");
    EXPECT_EQ(lowerCased("I"), "i");
    EXPECT_EQ(lowerCased("A\xFFÄ"), "a\xFFä") << "bytes that are not UTF-8 stay as they are";
}

TEST(Text, TrimsUnicodeWhiteSpaceAtBothEnds)
{
    EXPECT_EQ(trimmed(" \t\r\n a b \u00A0\u2003\u3000"), "a b");
    EXPECT_EQ(trimmed("\u2028x\u0085"), "x");
    EXPECT_EQ(trimmed(" \u2003 "), "");
    EXPECT_EQ(trimmed(" \xFF "), "\xFF");
    EXPECT_EQ(trimmed("\u200Bx"), "\u200Bx") << "a zero-width space is not white space";
}

TEST(Text, ClassifiesCharacters)
{
    for (auto const* yes : { "a", "é", "e\u0301", "7", "½", "!", "€", "😀", "漢" })
        EXPECT_TRUE(isLetterNumberPunctuationOrSymbol(yes)) << yes;
    for (auto const* no : { "", " ", "\n", "\x1B", "\u00A0", "ab", "\xFF" })
        EXPECT_FALSE(isLetterNumberPunctuationOrSymbol(no)) << no;
    EXPECT_TRUE(isWhiteSpace("\u2003"));
    EXPECT_TRUE(isWhiteSpace("\r\n"));
    EXPECT_FALSE(isWhiteSpace("x"));
    EXPECT_FALSE(isWhiteSpace(""));
}

TEST(Text, FoldsForSearchingAsPeopleType)
{
    struct Row {
        char const *text, *folded;
    };
    Row const rows[] = { { "Größe", "grosse" }, { "É", "e" }, { "e\u0301COLE", "ecole" }, { "İzmir", "izmir" }, { "Ёлка", "елка" }, { "ΆΣ", "ας" },
        { "ｶﾞｲﾄﾞ", "ガイド" }, { "ＡＢ１", "ab1" }, { "한글", "한글" }, { "が", "が" } }; // voicing is another letter, not an accent
    for (auto const& [text, folded] : rows)
        EXPECT_EQ(foldedForSearch(text), foldedForSearch(folded)) << text;
    EXPECT_EQ(foldedForSearch("Größe"), "grosse");
    EXPECT_NE(foldedForSearch("が"), foldedForSearch("か"));
}

TEST(Text, OrdersNamesAsAFileManagerDoes)
{
    std::vector<std::string> const ordered { "", "1", "a", "a 2", "a 10", "B", "b 1", "file2.txt", "file10.txt", "file0100.txt", "Zebra", "zebra 2", "日本" };
    for (std::size_t i = 0; i + 1 < ordered.size(); ++i) {
        SCOPED_TRACE(ordered[i] + " < " + ordered[i + 1]);
        EXPECT_LT(localizedStandardCompare(ordered[i], ordered[i + 1]), 0);
        EXPECT_GT(localizedStandardCompare(ordered[i + 1], ordered[i]), 0);
    }
    EXPECT_EQ(localizedStandardCompare("README", "readme"), 0);
    EXPECT_NE(localizedStandardCompare("resume", "résumé"), 0);
    EXPECT_EQ(localizedStandardCompare("file007", "file7"), 0);
}

TEST(Text, SortKeysOrderAsTheComparisonDoes)
{
    std::string const longName(2000, 'q');
    std::vector<std::string> const names { "", "a", "A", "a 2", "a 10", "résumé", "Resume", "e\u0301", "é", "10", "9", "0009", longName, longName + "1",
        invalid, "a\xFF", std::string(300, '7'), "😀", "日本", " x", "_x", "-x" };
    auto const sign = [](int value) { return (value > 0) - (value < 0); };
    for (auto const& a : names) {
        for (auto const& b : names) {
            SCOPED_TRACE(a.substr(0, 20) + " | " + b.substr(0, 20));
            EXPECT_EQ(sign(compareSortKeys(sortKey(a), sortKey(b))), sign(localizedStandardCompare(a, b)));
            int const starts = sortKey(a).substr(0, 8).compare(sortKey(b).substr(0, 8));
            EXPECT_TRUE(starts == 0 || sign(starts) == sign(localizedStandardCompare(a, b)));
        }
    }
}

} // namespace
} // namespace zv
