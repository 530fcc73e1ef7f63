#include "app/menubar/MenuFilter.h"

#include "app/menu/Menu.h"

#include <gtest/gtest.h>

#include <memory>

namespace zv {
namespace {

std::shared_ptr<Menu> menuWith(std::vector<std::string> const& titles)
{
    auto menu = std::make_shared<Menu>();
    for (auto const& title : titles)
        menu->entries.push_back(title == "-" ? MenuEntry::separator() : MenuEntry::disabled(title));
    return menu;
}

std::vector<std::string> left(MenuFilter& filter, Menu const& menu)
{
    std::vector<std::string> titles;
    auto const visible = filter.visibleEntries();
    for (std::size_t i = 0; i < visible.size(); ++i) {
        if (visible[i])
            titles.push_back(menu.entries[i].type == MenuEntry::Type::separator ? "-" : menu.entries[i].visibleTitle());
    }
    return titles;
}

TEST(MenuFilter, LeavesTheEntriesThatHoldWhatWasTyped)
{
    using Titles = std::vector<std::string>;
    auto const menu = menuWith({ "Über uns", "-", "Résumé.pdf", "ubuntu", "STRASSE" });
    struct Row {
        std::string typed;
        Titles left;
        std::string why;
    };
    Row const rows[] = {
        { "", { "Über uns", "-", "Résumé.pdf", "ubuntu", "STRASSE" }, "nothing typed" },
        { "u", { "Über uns", "Résumé.pdf", "ubuntu" }, "anywhere in the title, and no separators" },
        { "UB", { "Über uns", "ubuntu" }, "case and accents of both are ignored" },
        { "resume", { "Résumé.pdf" }, "accents need not be typed" },
        { "r u", { "Über uns" }, "a blank is a character like any other" },
        { "\xff", {}, "what is not text finds nothing" },
        { "\xCC\x81", { "Über uns", "Résumé.pdf", "ubuntu", "STRASSE" }, "an accent alone, and no separators" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.typed + ": " + row.why);
        MenuFilter filter;
        filter.setMenu(menu.get());
        filter.append(row.typed);
        EXPECT_EQ(left(filter, *menu), row.left);
    }
}

TEST(MenuFilter, ShowsWhatIsDrawnOfAnAttributedTitle)
{
    auto const menu = menuWith({ "stored" });
    menu->entries[0].attributedTitle = AttributedTitle { "drawn" };
    MenuFilter filter;
    filter.setMenu(menu.get());
    filter.append("dra");
    EXPECT_TRUE(filter.visibleEntries()[0]);
}

TEST(MenuFilter, TakesBackWholeCharacters)
{
    MenuFilter filter;
    filter.append("ae\xCC\x81"); // e with a combining accent
    filter.removeLast();
    EXPECT_EQ(filter.text(), "a");
    filter.removeLast();
    filter.removeLast();
    EXPECT_TRUE(filter.isEmpty());
}

TEST(MenuFilter, FollowsAMenuThatWasFilledAnew)
{
    auto const menu = menuWith({ "Loading…" });
    MenuFilter filter;
    filter.setMenu(menu.get());
    filter.append("b");
    EXPECT_TRUE(left(filter, *menu).empty());
    menu->entries = menuWith({ "a", "b" })->entries;
    filter.setMenu(menu.get());
    EXPECT_EQ(left(filter, *menu), std::vector<std::string> { "b" });
}

} // namespace
} // namespace zv
