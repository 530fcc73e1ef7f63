#include "platform/text/PropertyListFormat.h"

#include "platform/text/Text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

namespace zv {
namespace {

using enum PropertyListEncoding;

std::span<std::byte const> bytesOf(std::string_view text) { return std::as_bytes(std::span(text)); }

std::string textOf(std::vector<std::byte> const& bytes) { return { reinterpret_cast<char const*>(bytes.data()), bytes.size() }; }

std::string inPlist(std::string const& body) { return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + body + "</plist>\n"; }

std::string repeated(std::string const& text, int count)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

PropertyList inDictionary(PropertyList value)
{
    PropertyListDictionary dictionary;
    dictionary.append("k", std::move(value));
    return dictionary;
}

PropertyList inArray(PropertyList value)
{
    PropertyListArray array;
    array.push_back(std::move(value));
    return array;
}

/// A value nested `depth` levels deep, made without copies: they would take seconds.
PropertyList nested(int depth)
{
    PropertyList value = PropertyListArray {};
    for (int i = 1; i < depth; ++i)
        value = i % 2 ? inDictionary(std::move(value)) : inArray(std::move(value));
    return value;
}

/// A binary document of the given objects, each a string of bytes; the first is the root.
std::string binaryDocument(std::vector<std::string> const& objects)
{
    std::string document = "bplist00";
    std::string table;
    for (auto const& object : objects) {
        table += static_cast<char>(document.size());
        document += object;
    }
    auto const tableOffset = static_cast<char>(document.size());
    document += table + std::string(6, '\0') + "\x01\x01" + std::string(7, '\0') + static_cast<char>(objects.size()) + std::string(15, '\0') + tableOffset;
    return document;
}

TEST(PropertyListFormat, KeepsEveryValueInBothEncodings)
{
    PropertyList const values[] = { "", "Grüße & <tags> \"'", " blanks \n kept\t", 0, -1, INT64_MIN, INT64_MAX, std::uint64_t { 1 } << 63, UINT64_MAX, true,
        false, 0.0, 0.1, -2.5, 5.0, 1e300, 5e-324, std::numeric_limits<double>::infinity(), PropertyListDate { 0 }, PropertyListDate { -86400.0 * 365 * 100 },
        PropertyListDate { 63'113'904'000.0 }, PropertyListDate { -63'114'076'800.0 }, PropertyListDate { 252'423'993'599.0 }, PropertyListData {},
        PropertyListData { std::byte { 0 }, std::byte { 255 }, std::byte { '<' } }, PropertyListData(5000, std::byte { 7 }), PropertyListArray {},
        PropertyListArray { 1, true, "1", 1.0 }, PropertyListDictionary {}, PropertyListDictionary { { "", "empty key" }, { "é&<", PropertyListArray {} } },
        nested(40) };
    for (auto const encoding : { xml, binary }) {
        for (auto const& value : values) {
            SCOPED_TRACE(std::string(value.typeName()) + (encoding == xml ? " in XML" : " in binary"));
            auto const written = writePropertyList(value, encoding);
            ASSERT_TRUE(written.ok()) << written.error();
            auto const read = readPropertyList(*written);
            ASSERT_TRUE(read.ok()) << read.error();
            EXPECT_EQ(*read, value);
            EXPECT_EQ(read->value().index(), value.value().index());
        }
    }
}

TEST(PropertyListFormat, KeepsTheOrderOfKeys)
{
    std::vector<PropertyListDictionary::Entry> entries;
    for (int i = 0; i < 2000; ++i)
        entries.emplace_back("key" + std::to_string(i * 7919 % 2000), i);
    PropertyListDictionary const dictionary(entries);
    for (auto const encoding : { xml, binary }) {
        auto const read = readPropertyList(*writePropertyList(dictionary, encoding));
        ASSERT_TRUE(read.ok());
        EXPECT_TRUE(std::equal(read->dictionary()->begin(), read->dictionary()->end(), entries.begin(), entries.end()));
    }
}

TEST(PropertyListFormat, KeepsFractionsOfASecondInBinaryAndWholeSecondsInXml)
{
    PropertyList const date = PropertyListDate { -4.25 };
    EXPECT_EQ(*readPropertyList(*writePropertyList(date, binary)), date);
    EXPECT_EQ(*readPropertyList(*writePropertyList(date, xml)), PropertyList(PropertyListDate { -5 }));
    auto const early = textOf(*writePropertyList(PropertyListArray { PropertyListDate { -63'082'627'200.0 }, PropertyListDate { 0 } }, xml));
    EXPECT_NE(early.find("<date>0001-12-29T00:00:00Z</date>"), std::string::npos) << early;
    EXPECT_NE(early.find("<date>2001-01-01T00:00:00Z</date>"), std::string::npos) << early;
}

TEST(PropertyListFormat, ReadsWhatOthersWrite)
{
    struct Row {
        std::string document;
        PropertyList value;
        std::string why;
    };
    Row const rows[] = {
        { "\xEF\xBB\xBF" + inPlist("<true/>"), true, "a byte order mark" },
        { "<!DOCTYPE plist PUBLIC \"-//X//DTD\" \"http://x/y.dtd\">\n<plist version='1.0'><array>\n\t<string>a</string></array></plist>",
            PropertyListArray { "a" }, "a document type" },
        { inPlist("<!-- <array> --><string>&#233;&lt;<![CDATA[<array>]]></string>"), "é<<array>", "comments, references and character data" },
        { inPlist("<integer> +5 </integer>"), 5, "blanks and a sign" },
        { inPlist("<integer>0x1F</integer>"), 31, "hexadecimal" },
        { inPlist("<date>2001-01-01T00:00:10.5Z</date>"), PropertyListDate { 10 }, "a fraction" },
        { inPlist("<dict><key>a</key><integer>1</integer><key>b</key><true/><key>a</key><integer>2</integer></dict>"),
            PropertyListDictionary { { "a", 2 }, { "b", true } }, "a key that comes twice" },
        { inPlist("<data>\n\tAQ\n\tID\n</data>"), PropertyListData { std::byte { 1 }, std::byte { 2 }, std::byte { 3 } }, "broken lines" },
        { binaryDocument({ "\xA2\x01\x01", "\x51x" }), PropertyListArray { "x", "x" }, "a shared object" },
        { binaryDocument({ "\xD2\x01\x01\x02\x03", "\x51k", "\x10\x01", "\x10\x02" }), PropertyListDictionary { { "k", 2 } },
            "a key that comes twice, binary" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        auto const read = readPropertyList(bytesOf(row.document));
        ASSERT_TRUE(read.ok()) << read.error();
        EXPECT_EQ(*read, row.value);
    }
}

TEST(PropertyListFormat, SaysWhatIsWrongWithADocument)
{
    auto const laughs = [] {
        std::vector<std::string> objects;
        for (char i = 1; i < 40; ++i)
            objects.push_back(std::string("\xA2") + i + i);
        objects.emplace_back("\x51x");
        return binaryDocument(objects);
    }();
    struct Row {
        std::string document;
        std::string reason;
    };
    Row const rows[] = {
        { "", "empty" },
        { "Lorem ipsum", "not a property list" },
        { std::string(1000, '\0'), "not a property list" },
        { "\x7F"
          "ELF\xFF<\xFE>",
            "not a property list" },
        { "<html><body>x</body></html>", "not a property list" },
        { inPlist(""), "not a property list" },
        { "bplist15xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx", "not known" },
        { "bplist00", "damaged" },
        { inPlist("<array><string>a</array>"), "damaged" },
        { inPlist("<dict><string>a</string></dict>"), "damaged" },
        { inPlist("<integer>twelve</integer>"), "integer" },
        { inPlist("<integer/>"), "integer" },
        { inPlist("<integer>18446744073709551616</integer>"), "integer" },
        { inPlist("<integer>-9223372036854775809</integer>"), "integer" },
        { inPlist("<date>yesterday</date>"), "date" },
        { inPlist("<string>\xFF\xFE</string>"), "not UTF-8" },
        { inPlist("<dict><key>\xC3</key><true/></dict>"), "not UTF-8" },
        { inPlist("<string>a&#0;b</string>"), "damaged" },
        { binaryDocument({ std::string("\x61\0\0", 3) }), "null character" },
        { binaryDocument({ std::string("\x53"
                                       "a\0b",
              4) }),
            "null character" },
        { binaryDocument({ "\x33\x7F\xF8" + std::string(6, '\0') }), "date" },
        { binaryDocument({ "\x80\x05" }), "reference" },
        { binaryDocument({ std::string("\xA1\0", 2) }), "holds itself" },
        { binaryDocument({ "\xA1\x01", std::string("\xD1\x02\0", 3), "\x51k" }), "holds itself" },
        { binaryDocument({ "\xA1\x09" }), "damaged" },
        { binaryDocument({ "\xAF\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF" }), "damaged" },
        { binaryDocument({ "\xC1\x01", "\xD1\x02\x03", "\x51k", "\x09" }), "damaged" },
        { binaryDocument({ "\xD1\x01\x02", "\x10\x01", "\x09" }), "key that is no string" },
        { binaryDocument({ std::string("\xAF\x14") + std::string(15, '\0') + "\x01\x01", "\x09" }), "damaged" },
        { laughs, "more values" },
        { inPlist(repeated("<array>", 100'000) + repeated("</array>", 100'000)), "nested deeper" },
        { inPlist(repeated("<dict><key>a</key>", 10'000) + "<true/>" + repeated("</dict>", 10'000)), "nested deeper" },
        { inPlist(repeated("<array>", 100'000)), "nested deeper" },
        { inPlist(repeated("</array>", 1000) + repeated("<array>", 1000)), "damaged" },
        { inPlist(repeated("<array><plist a=\"</array></array></array>\">", 200'000)), "damaged" },
        { inPlist(repeated("<array><array></array a=\"</array></array>\">", 200'000)), "damaged" },
        { inPlist(repeated("<array><?x \"?></array>\" ?>", 200'000)), "damaged" },
        { inPlist(repeated("<array><?x </array>?>", 200'000)), "nested deeper" },
        { "<!DOCTYPE plist [ <!-- ]> " + repeated("<array>", 1000) + " -->", "document type" },
        { "<!DOCTYPE plist SYSTEM \"file:///etc/passwd\"><plist><string>&x;</string></plist>", "entity" },
        { inPlist("<array>" + repeated("<true/>", 2'000'001) + "</array>"), "more values" },
        { std::string((std::size_t { 64 } << 20) + 1, ' '), "64 MB" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.document.substr(0, 80));
        auto const read = readPropertyList(bytesOf(row.document));
        ASSERT_FALSE(read.ok());
        EXPECT_NE(read.error().find(row.reason), std::string::npos) << read.error();
    }
}

TEST(PropertyListFormat, RefusesADocumentThatWasCutOff)
{
    PropertyList const value
        = PropertyListDictionary { { "Menu", PropertyListArray { "é", 70000, PropertyListDate { 1 }, PropertyListData(20) } }, { "x", 1.5 } };
    for (auto const encoding : { xml, binary }) {
        auto const whole = textOf(*writePropertyList(value, encoding));
        auto const enough = encoding == xml ? whole.find("</plist>") : whole.size();
        for (std::size_t length = 0; length < enough; ++length) {
            auto const read = readPropertyList(bytesOf(whole.substr(0, length)));
            EXPECT_TRUE(!read.ok() || *read == value) << length;
        }
    }
}

TEST(PropertyListFormat, AllowsNestingUpToTheLimitOnly)
{
    for (auto const encoding : { xml, binary }) {
        auto const deepest = nested(maximumPropertyListDepth);
        auto const written = writePropertyList(deepest, encoding);
        ASSERT_TRUE(written.ok()) << written.error();
        auto const read = readPropertyList(*written);
        ASSERT_TRUE(read.ok()) << read.error();
        EXPECT_EQ(*read, deepest);
        EXPECT_FALSE(writePropertyList(nested(maximumPropertyListDepth + 1), encoding).ok());
    }
}

TEST(PropertyListFormat, RefusesToWriteWhatItCouldNotReadAgain)
{
    PropertyList const values[] = { "\xFF", std::string("a\0b", 3), PropertyListDictionary { { "\xC3", 1 } }, PropertyListArray { PropertyListDate { 1e300 } },
        PropertyListDate { std::numeric_limits<double>::quiet_NaN() } };
    for (auto const encoding : { xml, binary }) {
        for (auto const& value : values)
            EXPECT_FALSE(writePropertyList(value, encoding).ok()) << value.typeName();
    }
    EXPECT_FALSE(writePropertyList(std::string(std::size_t { 65 } << 20, 'x'), xml).ok());
}

} // namespace
} // namespace zv
