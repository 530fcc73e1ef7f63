#pragma once

#include "app/menu/DynamicMenuProvider.h"
#include "app/menu/EntryMenus.h"
#include "app/menu/ListedFolderSink.h"
#include "app/menu/MenuCommands.h"
#include "app/menu/MenuIcon.h"
#include "platform/desk/TextMeasure.h"
#include "tests/fakes/FakeLists.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zv::fakes {

/// Records the requests of a menu's entries.
class FakeMenuCommands : public MenuCommands {
public:
    void byShortcut(std::function<void()> const& requests) override { requests(); }
    bool perform(MenuItem const& item) override
    {
        log.push_back("perform " + std::string(item.kind.rawValue()));
        return true;
    }
    void open(Url const& url) override { log.push_back("open " + url.toString()); }
    void open(DynamicEntry const& entry) override { log.push_back("open entry " + entry.url->toString()); }
    void openSettingsWindow() override { log.emplace_back("settings"); }
    void terminate() override { log.emplace_back("terminate"); }
    bool canCheckForUpdates() const override { return canCheck; }
    void checkForUpdates() override { log.emplace_back("check for updates"); }

    bool canCheck = true;
    std::vector<std::string> log;
};

/// Entries without menus of their own; the head of a submenu is one line.
class FakeEntryMenus : public EntryMenus {
public:
    MenuEntry menuOf(MenuEntry const&) const override { return {}; }
    std::shared_ptr<MenuActionTarget> openingOf(EntrySubject const&) const override { return nullptr; }
    std::optional<Url> fileOf(EntrySubject const&) const override { return std::nullopt; }
    std::optional<Url> folderOf(EntrySubject const&) const override { return std::nullopt; }
    void drop(std::vector<Url> const&, Url const&, FileTransfer) const override { }
    void addHead(Menu& submenu, EntrySubject const&) const override { submenu.entries.insert(submenu.entries.begin(), MenuEntry::disabled("Head")); }
};

/// Pictures named after what they stand for.
class FakeMenuIcons : public MenuIcons {
public:
    ImageRef iconForKind(MenuItemKind const& kind) override
    {
        return withoutIcon.contains(kind.value()) ? nullptr : std::make_shared<FakeImage>("kind:" + std::string(kind.rawValue()));
    }
    ImageRef iconForFile(Url const& url) override { return std::make_shared<FakeImage>("file:" + url.path()); }
    ImageRef networkIcon() override { return std::make_shared<FakeImage>("network"); }
    ImageRef iconForCategory(ApplicationCategory category) override
    {
        return std::make_shared<FakeImage>("category:" + std::to_string(static_cast<int>(category)));
    }
    ImageRef iconForPicture(ItemPicture const& picture, ImageRef const&) override { return std::make_shared<FakeImage>("picture:" + picture.name); }
    void emptyCache() override { ++emptied; }

    std::map<MenuItemKind::Case, bool> withoutIcon;
    int emptied = 0;
};

/// Measures every byte as equally wide.
class FakeTextMeasure : public TextMeasure {
public:
    double menuFontWidth(std::string_view text) const override { return pointsPerByte * static_cast<double>(text.size()); }
    double pointsPerByte = 10;
};

/// Answers at once, or keeps the question until the test answers it.
class FakeList : public DynamicList {
public:
    explicit FakeList(MenuItemKind::Case kind)
        : m_kind(kind)
    {
    }
    MenuItemKind::Case kind() const override { return m_kind; }
    std::string emptyTitle() const override { return "Empty List"; }
    std::string noResponseTitle() const override { return whenSilent; }
    void fill(Done done) override
    {
        questions.push_back(done);
        if (answersAtOnce)
            done(answer);
    }

    std::string whenSilent;
    bool answersAtOnce = true;
    ListContent answer;
    std::vector<Done> questions;

private:
    MenuItemKind::Case m_kind;
};

class FakeListedFolders : public ListedFolderSink {
public:
    void folderListed(Url const& folder, std::vector<DynamicEntry> const& withHotkeys) override
    {
        auto& names = told[folder.path()];
        names.clear();
        for (auto const& entry : withHotkeys)
            names.push_back(entry.fileURL->lastPathComponent());
    }

    std::map<std::string, std::vector<std::string>> told; ///< the last word about each folder
};

} // namespace zv::fakes
