#pragma once

#include "platform/desk/NotesWindow.h"
#include "platform/desk/SettingsWindow.h"
#include "platform/program/Installation.h"
#include "platform/program/LoginService.h"

#include <set>
#include <string>
#include <vector>

namespace zv::fakes {

class FakeLoginService : public LoginService {
public:
    Status status() const override { return current; }
    Result<void, Error> registerService() override
    {
        ++registrations;
        if (outcome && current != Status::requiresApproval)
            current = Status::enabled;
        return outcome;
    }
    Result<void, Error> unregisterService() override
    {
        ++unregistrations;
        if (outcome)
            current = Status::notRegistered;
        return outcome;
    }
    void openSystemSettings() override { ++settingsOpened; }

    Status current = Status::notRegistered;
    Result<void, Error> outcome; ///< of every change
    int registrations = 0;
    int unregistrations = 0;
    int settingsOpened = 0;
};

/// An installation over names in a set; a copy can be made to fail.
class FakeInstallation : public Installation {
public:
    RelocationSource source(Url const&) const override { return from; }
    std::optional<Url> applicationsFolder() override { return folder; }
    Result<Url> makeReplacementFolder(Url const& destination) override { return destination.appending("temporary"); }
    Result<void> copy(Url const&, Url const& to) override
    {
        files.insert(to.path());
        return copying;
    }
    Result<void> put(Url const& source, Url const& to) override
    {
        files.erase(source.path());
        files.insert(to.path());
        return {};
    }
    void removeFolder(Url const& removed) override
    {
        std::erase_if(files, [&](auto const& path) { return path.starts_with(removed.path() + "/"); });
    }
    Result<void> announce(Url const& installed) override
    {
        announced.push_back(installed.path());
        return {};
    }

    void giveWay() override { hasGivenWay = true; }

    bool hasGivenWay = false;
    RelocationSource from = RelocationSource::none;
    std::optional<Url> folder = Url::fromPath("/Applications");
    Result<void> copying;
    std::set<std::string> files;
    std::vector<std::string> announced;
};

class FakeNotesWindows : public NotesWindows {
public:
    struct Text : RichText {
        explicit Text(double h)
            : textHeight(h)
        {
        }
        double height(double width) const override { return width == 440 ? textHeight : -1; }
        double textHeight;
    };
    struct Window : NotesWindow {
        explicit Window(int& count)
            : raised(count)
        {
        }
        void bringToFront() override { ++raised; }
        int& raised;
    };

    std::shared_ptr<RichText> read(std::vector<std::byte> const&) override { return std::make_shared<Text>(textHeight); }
    std::unique_ptr<NotesWindow> make(NotesWindowLayout const& layout, std::shared_ptr<RichText> const& text) override
    {
        layouts.push_back(layout);
        hadText = text != nullptr;
        return std::make_unique<Window>(raised);
    }

    double textHeight = 300.2;
    std::vector<NotesWindowLayout> layouts;
    bool hadText = false;
    int raised = 0;
};

class FakeSettingsWindow : public SettingsWindow {
public:
    void openOrRaise() override { ++opened; }
    void openAt(Uuid const& item) override { shownItem = item; }
    void openGallery() override { ++galleries; }
    int opened = 0;
    int galleries = 0;
    std::optional<Uuid> shownItem;
};

} // namespace zv::fakes
