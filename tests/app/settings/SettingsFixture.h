#pragma once

#include "app/settings/MenuEditor.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace zv {

/// A store whose menu is written as text: "a b[c d] e", a letter for an item, brackets for the
/// children of a submenu.
struct SettingsFixture : testing::Test {
    SettingsFixture()
    {
        defaults.stored.set("Menu", PropertyListArray {});
        store.emplace(MenuStore::Services { defaults, resources, locations });
        editor.emplace(MenuEditor::Services { *store, locations });
        editor->onEdit = [this](MenuEdit const& edit) { edits.push_back(edit); };
    }

    static MenuItem itemNamed(char name)
    {
        auto item = MenuItem::ofKind(MenuItemKind::sleep);
        item.id = *Uuid::parse("00000000-0000-0000-0000-0000000000" + std::string(1, "0123456789ABCDEF"[name >> 4]) + "0123456789ABCDEF"[name & 15]);
        item.title = std::string(1, name);
        return item;
    }
    static Uuid id(char name) { return itemNamed(name).id; }

    static std::vector<MenuItem> parse(char const*& text)
    {
        std::vector<MenuItem> items;
        for (; *text != '\0' && *text != ']'; ++text) {
            if (*text == '[') {
                items.back().kind = MenuItemKind::submenu;
                items.back().children = parse(++text);
            } else if (*text != ' ') {
                items.push_back(itemNamed(*text));
            }
        }
        return items;
    }
    void setMenu(char const* text)
    {
        store->replaceAll(parse(text));
        edits.clear();
    }

    static std::string print(std::vector<MenuItem> const& items)
    {
        std::string text;
        for (auto const& item : items) {
            text += (text.empty() ? "" : " ") + item.displayTitle();
            if (item.kind == MenuItemKind::submenu)
                text += "[" + print(item.children) + "]";
        }
        return text;
    }
    [[nodiscard]] std::string menu() const { return print(store->items()); }

    fakes::FakeFileSystem files;
    fakes::FakeBookmarks bookmarks { files };
    LocationServices locations { files, bookmarks };
    fakes::FakeUserDefaults defaults;
    fakes::FakeResources resources;
    std::optional<MenuStore> store;
    std::optional<MenuEditor> editor;
    std::vector<MenuEdit> edits;
};

} // namespace zv
