#pragma once

#include "app/hotkeys/FileHotkeys.h"
#include "app/hotkeys/HotkeyCenter.h"
#include "app/hotkeys/KeyboardLayout.h"
#include "app/menu/DynamicMenuProvider.h"
#include "app/menu/MenuBuilder.h"
#include "app/menubar/StatusItemNeighbours.h"
#include "base/Notifications.h"

/// Joins what the status item's controller asks for to the parts that do it.
namespace zv {

class BuilderJoint : public MenuFiller {
public:
    explicit BuilderJoint(MenuBuilder const& builder)
        : m_builder(builder)
    {
    }
    void fill(Menu& menu, std::vector<MenuItem> const& items, OptionKey option) override { m_builder.buildMenu(menu, items, option); }

private:
    MenuBuilder const& m_builder;
};

class ListsJoint : public ListsRefresher {
public:
    explicit ListsJoint(DynamicMenuProvider const& lists)
        : m_lists(lists)
    {
    }
    void refreshLists(std::vector<MenuItem> const& items) override { m_lists.refresh(items); }

private:
    DynamicMenuProvider const& m_lists;
};

class HotkeysJoint : public HotkeyPasses {
public:
    explicit HotkeysJoint(HotkeyCenter& center)
        : m_center(center)
    {
    }
    void setTriggerHandlers(std::function<void(Uuid const&)> item, std::function<void(Url const&)> file) override;
    void setMenuItems(std::vector<MenuItem> const& items) override { m_center.setMenuItems(items); }
    void reregister() override { m_center.reregister(); }

private:
    HotkeyCenter& m_center;
};

class LayoutJoint : public KeyboardLayoutChanges {
public:
    explicit LayoutJoint(Notifications& notifications)
        : m_notifications(notifications)
    {
    }
    std::shared_ptr<void> listen(std::function<void()> onChange) override
    {
        return std::make_shared<NotificationToken>(m_notifications.observe(KeyboardLayout::changedNotification, std::move(onChange)));
    }

private:
    Notifications& m_notifications;
};

class PrescanJoint : public FileHotkeyPrescan {
public:
    PrescanJoint(FileHotkeys& fileHotkeys, Url itemsFolder, LocationServices locations)
        : m_fileHotkeys(fileHotkeys)
        , m_itemsFolder(std::move(itemsFolder))
        , m_locations(locations)
    {
    }
    std::vector<Url> foldersToScan(std::vector<MenuItem> const& items) const override { return foldersToPrescan(items, m_itemsFolder, m_locations); }
    void scan(std::vector<Url> folders, std::int64_t depth, HiddenFiles hiddenFiles) override { m_fileHotkeys.prescan(std::move(folders), depth, hiddenFiles); }

private:
    FileHotkeys& m_fileHotkeys;
    Url m_itemsFolder;
    LocationServices m_locations;
};

} // namespace zv
