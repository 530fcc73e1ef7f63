#include "app/updates/KresUpdater.h"
#include "platform/text/PropertyListFormat.h"
#include "tests/SourceTree.h"
#include "tests/linux/TextFiles.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

std::optional<PropertyListDictionary> dictionaryIn(std::string const& name)
{
    auto const text = tests::readText(tests::inSourceTree("packaging/macos/" + name));
    auto const* bytes = reinterpret_cast<std::byte const*>(text.data());
    auto const list = readPropertyList({ bytes, text.size() });
    auto const* dictionary = list ? list->dictionary() : nullptr;
    return dictionary ? std::optional(*dictionary) : std::nullopt;
}

TEST(MacBundle, OurOwnReaderTakesItsPropertyLists)
{
    auto const information = dictionaryIn("Info.plist.in");
    auto const entitlements = dictionaryIn("ZantheVell.entitlements");
    ASSERT_TRUE(information && entitlements);
    EXPECT_EQ(*information->find("LSUIElement"), PropertyList(true));
    EXPECT_EQ(*entitlements->find("com.apple.security.automation.apple-events"), PropertyList(true));
}

TEST(MacBundle, WhatIsNotFilledInNeverPassesForAFeedOrAKey)
{
    auto information = dictionaryIn("Info.plist.in");
    ASSERT_TRUE(information);
    EXPECT_FALSE(feedURL(*information));
    EXPECT_FALSE(updateSigningKey(*information));
    information->set("SUFeedURL", "");
    information->set("SUPublicEDKey", "");
    EXPECT_FALSE(feedURL(*information));
    EXPECT_FALSE(updateSigningKey(*information));
}

} // namespace
} // namespace zv
