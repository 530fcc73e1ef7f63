#pragma once

#include "platform/desk/Clipboard.h"
#include "platform/desk/IconSource.h"
#include "platform/lists/NetworkInterfaces.h"
#include "platform/lists/RecentFiles.h"
#include "platform/lists/RecentServers.h"
#include "platform/lists/RunningApplications.h"
#include "platform/lists/SettingsPanes.h"
#include "platform/lists/Volumes.h"
#include "tests/fakes/FakeTime.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zv::fakes {

class FakeClipboard : public Clipboard {
public:
    void setText(std::string const& text) override { texts.push_back(text); }
    void setFiles(std::vector<Url> const& files) override { texts.push_back("file " + files.at(0).path()); }
    std::vector<std::string> texts;
};

class FakeRunningApplications : public RunningApplications, AnswersLater {
public:
    using AnswersLater::AnswersLater;
    void list(std::function<void(List)> done) override { answer(std::move(done), applications); }
    void activate(std::string const& id) override { activated.push_back(id); }
    void quit(std::string const& id) override { activated.push_back("quit " + id); }
    List applications = std::vector<RunningApplication> {};
    std::vector<std::string> activated;
};

class FakeVolumes : public Volumes, AnswersLater {
public:
    using AnswersLater::AnswersLater;
    void list(std::function<void(std::vector<Volume>)> done) override { answer(std::move(done), volumes); }
    std::vector<Volume> volumes;
};

class FakeRecentServers : public RecentServers, AnswersLater {
public:
    using AnswersLater::AnswersLater;
    void list(std::function<void(List)> done) override { answer(std::move(done), servers); }
    List servers = std::vector<RecentServer> {};
};

class FakeNetworkInterfaces : public NetworkInterfaces, AnswersLater {
public:
    using AnswersLater::AnswersLater;
    void list(std::function<void(std::vector<InterfaceAddress>)> done) override { answer(std::move(done), addresses); }
    std::vector<InterfaceAddress> addresses;
};

class FakeSettingsPanes : public SettingsPanes, AnswersLater {
public:
    using AnswersLater::AnswersLater;
    void list(std::function<void(std::vector<SettingsPane>)> done) override { answer(std::move(done), panes); }
    std::vector<SettingsPane> panes;
};

/// Records the searches; each ends when the test answers it.
class FakeRecentFiles : public RecentFiles {
public:
    struct Asked {
        RecentFilesQuestion question;
        Done done; ///< empty once the search has ended
    };

    std::unique_ptr<RecentFilesSearch> find(RecentFilesQuestion const& question, Done done) override
    {
        searches.push_back(std::make_shared<Asked>(Asked { question, std::move(done) }));
        return std::make_unique<Search>(searches.back());
    }
    /// Answers a search; false when it has ended.
    bool answer(std::size_t index, std::vector<RecentFile> files)
    {
        auto const done = searches.at(index)->done; // outlives the search, which it may destroy
        if (done)
            done(std::move(files));
        return done != nullptr;
    }

    std::vector<std::shared_ptr<Asked>> searches; ///< all so far

private:
    struct Search : RecentFilesSearch {
        explicit Search(std::shared_ptr<Asked> a)
            : asked(std::move(a))
        {
        }
        ~Search() override { asked->done = nullptr; }
        std::shared_ptr<Asked> asked;
    };
};

class FakeImage : public Image {
public:
    explicit FakeImage(std::string name)
        : m_name(std::move(name))
    {
    }
    std::string name() const override { return m_name; }

private:
    std::string m_name;
};

/// Pictures that are only a name; counts how often each was asked for.
class FakeIconSource : public IconSource {
public:
    ImageRef fileIcon(Url const& file) override { return make("file:" + file.path()); }
    ImageRef systemIcon(SystemIcon icon) override { return make(nameOf(icon)); }
    ImageRef namedIcon(std::string const& name, ImageRef const& otherwise) override { return missing.contains(name) ? otherwise : make(name); }
    ImageRef imageIn(Url const& file, ImageRef const& otherwise) override { return missing.contains(file.path()) ? otherwise : make(file.path()); }
    static std::string nameOf(SystemIcon icon)
    {
        static constexpr char const* names[] { "application", "appStore", "computer", "dock", "folder", "forceQuit", "lockScreen", "logOut", "network",
            "networkLocation", "recentItems", "restart", "runningApplications", "shortcuts", "shutDown", "sleep", "softwareUpdate", "systemSettings",
            "volumes" };
        return names[static_cast<std::size_t>(icon)];
    }

    std::set<std::string> missing; ///< by name
    std::map<std::string, int> asked;

private:
    ImageRef make(std::string const& name)
    {
        if (missing.contains(name))
            return nullptr;
        ++asked[name];
        return std::make_shared<FakeImage>(name);
    }
};

} // namespace zv::fakes
