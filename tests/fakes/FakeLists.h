#pragma once

#include "platform/desk/Clipboard.h"
#include "platform/desk/IconSource.h"
#include "platform/lists/MetadataQuery.h"
#include "platform/lists/NetworkInterfaces.h"
#include "platform/lists/RecentServers.h"
#include "platform/lists/RunningApplications.h"
#include "platform/lists/SettingsPanes.h"
#include "platform/lists/Volumes.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace zv::fakes {

class FakeClipboard : public Clipboard {
public:
    void setText(std::string const& text) override { texts.push_back(text); }
    std::vector<std::string> texts;
};

class FakeRunningApplications : public RunningApplications {
public:
    void list(std::function<void(List)> done) override { done(applications); }
    void activate(std::string const& id) override { activated.push_back(id); }
    List applications = std::vector<RunningApplication> {};
    std::vector<std::string> activated;
};

class FakeVolumes : public Volumes {
public:
    void list(std::function<void(std::vector<Volume>)> done) override { done(volumes); }
    std::vector<Volume> volumes;
};

class FakeRecentServers : public RecentServers {
public:
    void list(std::function<void(List)> done) override { done(servers); }
    List servers = std::vector<RecentServer> {};
};

class FakeNetworkInterfaces : public NetworkInterfaces {
public:
    void list(std::function<void(std::vector<InterfaceAddress>)> done) override { done(addresses); }
    std::vector<InterfaceAddress> addresses;
};

class FakeSettingsPanes : public SettingsPanes {
public:
    void list(std::function<void(std::vector<SettingsPane>)> done) override { done(panes); }
    std::vector<SettingsPane> panes;
};

/// An index of files that a test fills; each query answers when the test says so.
class FakeMetadataQueries : public MetadataQueries {
public:
    struct Running {
        MetadataSearch search;
        MetadataQuery* query = nullptr;
        bool isGone = false;
        int starts = 0;
        int stops = 0;
        int resultsRead = 0;
    };

    std::unique_ptr<MetadataQuery> make(MetadataSearch const& search) override
    {
        auto record = std::make_shared<Running>(Running { search });
        made.push_back(record);
        auto query = std::make_unique<Query>(*this, record);
        record->query = query.get();
        return query;
    }
    /// The index has answered the query that was made as number `index`.
    void finish(std::size_t index = 0)
    {
        auto const& record = made.at(index);
        if (record->isGone)
            return;
        auto const told = record->query->onDidFinishGathering; // outlives the query it may destroy
        told();
    }

    std::vector<MetadataItem> items; ///< what every query finds, in order
    std::vector<std::shared_ptr<Running>> made;

private:
    struct Query : MetadataQuery {
        Query(FakeMetadataQueries& owner, std::shared_ptr<Running> r)
            : queries(owner)
            , record(std::move(r))
        {
        }
        ~Query() override { record->isGone = true; }
        void start() override { ++record->starts; }
        void stop() override { ++record->stops; }
        std::size_t resultCount() const override { return queries.items.size(); }
        MetadataItem result(std::size_t index) const override
        {
            ++record->resultsRead;
            return queries.items.at(index);
        }
        FakeMetadataQueries& queries;
        std::shared_ptr<Running> record;
    };
};

/// Pictures that are nothing but a name; counts how often each was asked for.
class FakeIconSource : public IconSource {
public:
    struct NamedImage : Image {
        explicit NamedImage(std::string n)
            : text(std::move(n))
        {
        }
        std::string name() const override { return text; }
        std::string text;
    };

    ImageRef fileIcon(Url const& file) override { return make("file:" + file.path()); }
    ImageRef systemIcon(SystemIcon icon) override { return make(nameOf(icon)); }
    static std::string nameOf(SystemIcon icon)
    {
        static constexpr char const* names[] { "application", "appStore", "computer", "dock", "folder", "network", "networkLocation", "shortcuts",
            "softwareUpdate", "systemSettings" };
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
        return std::make_shared<NamedImage>(name);
    }
};

} // namespace zv::fakes
