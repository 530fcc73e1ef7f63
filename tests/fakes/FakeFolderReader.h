#pragma once

#include "platform/files/FolderReader.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace zv::fakes {

/// Folders in memory; counts how often each is read.
class FakeFolderReader : public FolderReader {
public:
    struct Child {
        std::string name;
        FileTraits traits {};
        std::string localizedName {};
        bool isLink = true; ///< or possibly a link
        std::int64_t measure = 0;
    };

    Result<FolderContents, FolderReadFailure> read(Url const& folder, HiddenFiles hiddenFiles) const override
    {
        ++readings[folder.path()];
        if (auto const failure = failures.find(folder.path()); failure != failures.end())
            return Failure { failure->second };
        auto const found = folders.find(folder.path());
        if (found == folders.end())
            return Failure { FolderReadFailure::notFound };
        FolderContents contents;
        for (auto const& child : found->second) {
            if (hiddenFiles == HiddenFiles::included || !child.name.starts_with('.'))
                contents.add({ child.name, child.localizedName, child.traits, child.isLink });
        }
        return contents;
    }
    std::vector<std::int64_t> measure(Url const& folder, FolderContents const& contents, FileMeasure what) const override
    {
        ++measured[what];
        std::vector<std::int64_t> found;
        for (std::size_t i = 0; i < contents.size(); ++i) {
            for (auto const& child : folders.at(folder.path())) {
                if (child.name == contents[i].name)
                    found.push_back(child.measure);
            }
        }
        return found;
    }
    bool isRemote(Url const& folder) const override { return remote.contains(folder.path()); }

    std::optional<NameDoubt> doubtAbout(Url const& file) const override
    {
        auto const found = doubts.find(file.path());
        return found == doubts.end() ? std::nullopt : std::optional(found->second);
    }

    static Child folder(std::string name) { return { std::move(name), { true, false } }; }
    static Child package(std::string name) { return { std::move(name), { true, true } }; }

    std::map<std::string, std::vector<Child>> folders;
    std::map<std::string, FolderReadFailure> failures;
    std::set<std::string> remote;
    std::map<std::string, NameDoubt> doubts; ///< by the file's path
    mutable std::map<std::string, int> readings;
    mutable std::map<FileMeasure, int> measured;
};

} // namespace zv::fakes
