#pragma once

#include "platform/files/Bookmarks.h"
#include "platform/files/FileSystem.h"
#include "platform/files/Resources.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <string>

namespace zv::fakes {

inline std::vector<std::byte> bytesOf(std::string_view text)
{
    std::vector<std::byte> bytes(text.size());
    if (!text.empty())
        std::memcpy(bytes.data(), text.data(), text.size());
    return bytes;
}

inline std::string textOf(std::vector<std::byte> const& bytes) { return { reinterpret_cast<char const*>(bytes.data()), bytes.size() }; }

/// A small disk in memory. Paths are absolute; parents of what is added exist.
class FakeFileSystem : public FileSystem {
public:
    struct Node {
        enum class Type { file, folder, package, link };
        Type type = Type::file;
        std::string target; ///< of a link, absolute
        std::vector<std::byte> content {};
    };

    void addFile(std::string const& path, std::string_view content = {}) { put(path, { Node::Type::file, {}, bytesOf(content) }); }
    void addFolder(std::string const& path) { put(path, { Node::Type::folder, {}, {} }); }
    void addPackage(std::string const& path) { put(path, { Node::Type::package, {}, {} }); }
    void addLink(std::string const& path, std::string const& target) { put(path, { Node::Type::link, target, {} }); }
    void erase(std::string const& path) { nodes.erase(path); }

    bool exists(Url const& url) const override { return find(follow(url.path())) != nullptr; }
    bool isTaken(Url const& url) const override { return find(url.path()) != nullptr; }
    std::optional<FileTraits> traits(Url const& url) const override
    {
        if (!isTaken(url))
            return std::nullopt;
        auto const* node = find(follow(url.path()));
        if (!node)
            return FileTraits {};
        bool const isPackage = node->type == Node::Type::package;
        return FileTraits { isPackage || node->type == Node::Type::folder, isPackage };
    }
    Url resolvingSymlinks(Url const& url) const override { return Url::fromPath(follow(url.path())); }
    std::string localizedName(Url const& url) const override
    {
        auto const found = localizedNames.find(url.path());
        return found == localizedNames.end() ? url.lastPathComponent() : found->second;
    }
    std::optional<std::string> volumeName(Url const& url) const override
    {
        auto const found = volumes.find(url.path());
        return found == volumes.end() ? std::nullopt : std::optional(found->second);
    }
    bool isOnReadOnlyVolume(Url const& url) const override { return readOnly.count(url.path()) > 0; }

    Result<void> createDirectory(Url const& url) override
    {
        auto const* node = find(url.path());
        if (node && node->type != Node::Type::folder)
            return Failure { "File exists" };
        if (readOnly.count(url.parent().path()) > 0)
            return Failure { "Read-only file system" };
        addFolder(url.path());
        return {};
    }
    bool isWritableDirectory(Url const& url) const override { return exists(url) && readOnly.count(url.path()) == 0; }
    Result<std::vector<std::byte>> read(Url const& url) const override
    {
        auto const* node = find(follow(url.path()));
        if (!node)
            return Failure { std::string("No such file or directory") };
        return node->content;
    }
    Result<void> write(Url const& url, std::vector<std::byte> const& bytes) override
    {
        if (readOnly.count(url.parent().path()) > 0)
            return Failure { "Read-only file system" };
        put(follow(url.path()), { Node::Type::file, {}, bytes });
        return {};
    }
    Result<void> writePrivately(Url const& url, std::vector<std::byte> const& bytes) override
    {
        auto const made = createDirectory(url.parent());
        return made ? write(url, bytes) : made;
    }
    Result<void> makeStartable(Url const& url) override
    {
        startable.insert(url.path());
        return {};
    }
    Result<std::vector<std::string>> names(Url const& folder) const override
    {
        std::vector<std::string> found;
        for (auto const& [path, node] : nodes) {
            auto const url = Url::fromPath(path);
            if (path != "/" && url.parent() == folder)
                found.push_back(url.lastPathComponent());
        }
        std::reverse(found.begin(), found.end()); // a disk's order is none
        return found;
    }
    Result<void> remove(Url const& url) override
    {
        nodes.erase(url.path());
        return {};
    }

    Result<void> rename(Url const& from, Url const& to) override
    {
        if (isTaken(to) || !isTaken(from))
            return Failure { isTaken(to) ? "File exists" : "No such file or directory" };
        auto node = nodes.extract(from.path());
        node.key() = to.path();
        nodes.insert(std::move(node));
        return {};
    }

    std::map<std::string, Node> nodes { { "/", { Node::Type::folder, {}, {} } } };
    std::set<std::string> startable;
    std::set<std::string> readOnly; ///< folders that cannot be written
    std::map<std::string, std::string> volumes; ///< root path to name
    std::map<std::string, std::string> localizedNames; ///< where they differ from the file's name

private:
    void put(std::string const& path, Node node)
    {
        for (auto parent = Url::fromPath(path).parent(); !nodes.contains(parent.path()); parent = parent.parent())
            nodes[parent.path()] = { Node::Type::folder, {}, {} };
        nodes[path] = std::move(node);
    }
    Node const* find(std::string const& path) const
    {
        auto const found = nodes.find(path);
        return found == nodes.end() ? nullptr : &found->second;
    }
    /// Follows only the last component's links; forty steps stand for a loop.
    std::string follow(std::string path) const
    {
        for (int i = 0; i < 40; ++i) {
            auto const* node = find(path);
            if (!node || node->type != Node::Type::link)
                return path;
            path = node->target;
        }
        return {};
    }
};

/// Bookmarks that hold a file's identity: renaming through rename() keeps them valid.
class FakeBookmarks : public Bookmarks {
public:
    explicit FakeBookmarks(FakeFileSystem& files)
        : m_files(files)
    {
    }
    std::optional<BookmarkData> create(Url const& url) const override
    {
        if (!m_files.exists(url))
            return std::nullopt;
        return bytesOf("bookmark:" + url.path());
    }
    std::optional<ResolvedBookmark> resolve(BookmarkData const& data) const override
    {
        auto const text = textOf(data);
        if (!text.starts_with("bookmark:"))
            return std::nullopt;
        auto path = text.substr(9);
        bool const wasMoved = moved.contains(path);
        if (wasMoved)
            path = moved.at(path);
        auto const url = Url::fromPath(path);
        if (!m_files.exists(url))
            return std::nullopt;
        return ResolvedBookmark { url, wasMoved || stale.contains(path) };
    }

    bool isOnUnmountedServer(BookmarkData const& data) const override { return unmounted.contains(textOf(data)); }
    MountingWork mounting(BookmarkData const& data) const override
    {
        return [url = Url::fromPath(textOf(data).substr(9))] { return url; };
    }

    std::map<std::string, std::string> moved; ///< old path to new path
    std::set<std::string> stale;
    std::set<std::string> unmounted; ///< bookmarks of files that are away with their server

private:
    FakeFileSystem& m_files;
};

class FakeResources : public Resources {
public:
    std::optional<std::vector<std::byte>> load(std::string_view name, std::string_view extension) const override
    {
        auto const found = files.find(std::string(name) + "." + std::string(extension));
        return found == files.end() ? std::nullopt : std::optional(found->second);
    }
    PropertyListDictionary const& information() const override { return info; }

    std::map<std::string, std::vector<std::byte>> files; ///< "DockMenu.plist" to its bytes
    PropertyListDictionary info;
};

} // namespace zv::fakes
