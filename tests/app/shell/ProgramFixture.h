#pragma once

#include "app/shell/ZantheVellApp.h"
#include "tests/fakes/FakeSystem.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The whole program over a machine in memory, whose keyboard types "e", "f" and "x".
struct ProgramFixture : testing::Test {
    using Lines = std::vector<std::string>;

    ProgramFixture();
    ~ProgramFixture() override;

    static MenuItem item(MenuItemKind::Case kind, char shortcut = 0)
    {
        auto made = MenuItem::ofKind(kind);
        if (shortcut != 0)
            made.keyEquivalent = KeyEquivalentSpec { .trigger = KeyEquivalentSpec::Trigger::character(std::string(1, shortcut)), .option = true };
        return made;
    }
    static MenuItem fileItem(std::string const& path, char shortcut = 0)
    {
        auto made = item(MenuItemKind::fsObject, shortcut);
        made.location = ItemLocation { .path = path };
        return made;
    }
    void launchWith(std::vector<MenuItem> const& items)
    {
        (void)machine.defaults.setObject(MenuStore::defaultsKey, toPropertyList(items));
        launch();
    }
    void launch();

    /// The menu of the status icon, opened now.
    Menu& menu()
    {
        auto& opened = *front.statusBar.menus.back();
        opened.needsUpdate();
        return opened;
    }
    MenuEntry const* entry(std::string const& title) { return entryIn(menu(), title); }
    static MenuEntry const* entryIn(Menu const& menu, std::string const& title)
    {
        auto const found = std::find_if(menu.entries.begin(), menu.entries.end(), [&](auto const& each) { return each.title == title; });
        return found == menu.entries.end() ? nullptr : &*found;
    }
    /// The titles in the submenu of the first entry, after all answers have arrived.
    Lines firstList()
    {
        auto const submenu = menu().entries.at(0).submenu;
        submenu->needsUpdate();
        machine.time.runTasks();
        Lines lines;
        for (auto const& each : submenu->entries)
            lines.push_back(each.title);
        return lines;
    }
    bool choose(std::string const& title)
    {
        auto const* found = entry(title);
        return found && found->target && (found->target->invoke(), machine.time.runTasks(), true);
    }
    /// Presses Option, Command and that key; false when the program does not hold them.
    bool press(std::uint16_t keyCode)
    {
        for (auto const& [id, chord] : std::map(front.hotkeys.held)) {
            if (chord != KeyChord { keyCode, commandKey | optionKey })
                continue;
            front.hotkeys.onPressed(id);
            machine.time.runTasks();
            return true;
        }
        return false;
    }

    fakes::FakeSystem machine;
    fakes::FakeSurface front;
    std::optional<ZantheVellApp> app;
    AppDelegate::Launch outcome = AppDelegate::Launch::running;
};

} // namespace zv
