#include "platform/text/PropertyListFormat.h"
#include "tests/linux/TemporaryFolder.h"
#include "tests/linux/TextFiles.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <span>

namespace zv {
namespace {

/// A script that reads "in", checks its contents, and writes it again in both formats.
constexpr char const* readerAndWriter = R"(
import plistlib, sys
folder, = sys.argv[1:]
with open(folder + "/in", "rb") as file:
    value = plistlib.load(file)
assert list(value) == ["id", "kind", "big", "low", "real", "yes", "text", "data", "date", "list", ""], list(value)
assert value["big"] == 2**64 - 1 and value["low"] == -2**63 and type(value["yes"]) is bool and type(value["real"]) is float
assert value["text"] == "Grüße & <x>" and value["data"] == b"\x00\xff" and value["date"].isoformat() == "2020-07-01T12:00:00"
for name, kind in (("xml", plistlib.FMT_XML), ("binary", plistlib.FMT_BINARY)):
    with open(folder + "/" + name, "wb") as file:
        plistlib.dump(value, file, fmt=kind, sort_keys=False)
)";

TEST(PropertyListInterop, AnotherProgramReadsWhatWeWriteAndTheOtherWayRound)
{
    PropertyListDictionary const value { { "id", "1" }, { "kind", "sleep" }, { "big", UINT64_MAX }, { "low", INT64_MIN }, { "real", 5.0 }, { "yes", true },
        { "text", "Grüße & <x>" }, { "data", PropertyListData { std::byte { 0 }, std::byte { 255 } } }, { "date", PropertyListDate { 615'297'600 } },
        { "list", PropertyListArray { PropertyListDictionary {}, PropertyListArray {}, "" } }, { "", "empty key" } };
    tests::TemporaryFolder const folder;
    auto const script = folder.write("script.py", readerAndWriter);
    for (auto const encoding : { PropertyListEncoding::xml, PropertyListEncoding::binary }) {
        auto const bytes = *writePropertyList(value, encoding);
        folder.write("in", { reinterpret_cast<char const*>(bytes.data()), bytes.size() });
        ASSERT_EQ(std::system(("/usr/bin/python3 " + script + " " + folder.path()).c_str()), 0);
        for (auto const* name : { "xml", "binary" }) {
            auto const theirs = tests::readText(folder.path(name));
            auto const read = readPropertyList(std::as_bytes(std::span(theirs)));
            ASSERT_TRUE(read.ok()) << read.error();
            EXPECT_TRUE(std::equal(read->dictionary()->begin(), read->dictionary()->end(), value.begin(), value.end())) << name;
        }
    }
}

} // namespace
} // namespace zv
