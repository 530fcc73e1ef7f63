#include "platform/linux/store/SettingsFile.h"

#include "platform/text/PropertyListFormat.h"
#include "tests/linux/TemporaryFolder.h"
#include "tests/linux/TextFiles.h"

#include <gtest/gtest.h>

#include <functional>

namespace zv {
namespace {

TEST(SettingsFile, CountsAsChangedOnlyWhenAnotherTouchedIt)
{
    tests::TemporaryFolder const folder;
    auto const path = folder.path("settings.plist");
    auto const content = *writePropertyList(PropertyListDictionary { { "ScanDepth", 3 } }, PropertyListEncoding::xml);
    SettingsFile file(path);
    ASSERT_TRUE(file.read());
    EXPECT_FALSE(file.hasChanged()) << "missing, as before";
    ASSERT_TRUE(file.write(content));
    EXPECT_FALSE(file.hasChanged()) << "its own writing";

    struct Row {
        std::function<void()> change;
        std::string why;
    };
    Row const rows[] = {
        { [&] { std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() + std::chrono::seconds(5)); }, "written in place" },
        { [&] { std::filesystem::copy_file(path, path + "2"), std::filesystem::rename(path + "2", path); }, "replaced" },
        { [&] { std::filesystem::remove(path); }, "removed" },
        { [&] { ASSERT_TRUE(SettingsFile(path).write(content)); }, "made by another" },
    };
    for (auto const& row : rows) {
        row.change();
        EXPECT_TRUE(file.hasChanged()) << row.why;
        ASSERT_TRUE(file.read());
        EXPECT_FALSE(file.hasChanged()) << row.why << " and read";
    }
    tests::writeText(path, "garbage");
    EXPECT_FALSE(file.read());
    EXPECT_TRUE(file.hasChanged()) << "what was not understood stays new";
}

} // namespace
} // namespace zv
