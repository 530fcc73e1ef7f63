#include "app/menu/DisplayText.h"
#include "platform/text/Text.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(DisplayText, ShowsAnyNameSafelyOnOneLine)
{
    struct Row {
        std::string name, shown, why;
    };
    Row const rows[] = {
        { "plain name.txt", "plain name.txt", "" },
        { "Zürich 日本 😀", "Zürich 日本 😀", "other scripts are left alone" },
        { "two\nlines", "two␊lines", "a line break" },
        { "tab\there", "tab␉here", "a control character" },
        { "rubbed\x7F out", "rubbed␡ out", "the last of them" },
        { "csi\u009B31m", "csi\uFFFD31m", "a control character beyond ASCII" },
        { "next\u2028line\u2029", "next\uFFFDline\uFFFD", "Unicode's own line breaks" },
        { "photo\u202Egpj.exe", "photo\uFFFDgpj.exe", "an override poses as another extension" },
        { "a\u2067b\u2069c", "a\u2067b\u2069c", "an isolate turns nothing around it" },
        { "a\u2066\u2068b\u2069", "a\u2066\u2068b\u2069\u2069", "unless it stays open" },
        { "a\u2069\u2066", "a\uFFFD\u2066\u2069", "or ends one around it" },
        { "שלום\u200F.txt", "שלום\u200F.txt", "a mark that Hebrew needs" },
        { "bad\xFF\xC3(byte", "bad\uFFFD\uFFFD(byte", "bytes that are not UTF-8" },
        { "", "", "" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(displayText(row.name), row.shown);
        EXPECT_TRUE(isValidUtf8(displayText(row.name)));
    }
}

TEST(DisplayText, TakesAnyTwoBytes)
{
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            std::string const name { static_cast<char>(first), static_cast<char>(second) };
            auto const shown = displayText(name);
            ASSERT_TRUE(isValidUtf8(shown)) << first << " " << second;
            ASSERT_FALSE(shown.empty());
        }
    }
}

} // namespace
} // namespace zv
