#pragma once

#include "app/menu/Menu.h"
#include "platform/menubar/MenuHost.h"
#include "platform/menubar/StatusBar.h"

#include <string>
#include <utility>
#include <vector>

namespace zv::fakes {

/// Opens menus at once and keeps them open.
class FakeMenuHost : public MenuHost {
public:
    void popUp(std::shared_ptr<Menu> const& menu, Point at) override
    {
        menu->needsUpdate();
        shown.emplace_back(menu, at);
    }
    void popUpByKey(std::shared_ptr<Menu> const& menu) override
    {
        menu->needsUpdate();
        byKey.push_back(menu);
    }
    std::vector<std::pair<std::shared_ptr<Menu>, Point>> shown;
    std::vector<std::shared_ptr<Menu>> byKey;
};

class FakeStatusBar : public StatusBar {
public:
    std::unique_ptr<StatusItem> add(std::string const& name, std::shared_ptr<Menu> menu, FilesDropped dropped) override
    {
        drop = std::move(dropped);
        ++added;
        names.push_back(name);
        menus.push_back(menu);
        auto item = std::make_unique<Item>(present);
        latest = item.get();
        return item;
    }
    int added = 0; ///< ever
    int present = 0; ///< now
    FilesDropped drop; ///< on the icon added last
    StatusItem* latest = nullptr;
    std::vector<std::string> names;
    std::vector<std::shared_ptr<Menu>> menus;

private:
    struct Item : StatusItem {
        explicit Item(int& count)
            : present(count)
        {
            ++present;
        }
        ~Item() override { --present; }
        int& present;
    };
};

} // namespace zv::fakes
