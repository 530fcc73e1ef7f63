#pragma once

#include "base/Result.h"
#include "base/Url.h"
#include "platform/files/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The immediate children of one folder, in no order. Names lie end to end in one block,
/// so that a folder of 100,000 files costs little more than its names.
class FolderContents {
public:
    struct Item {
        std::string_view name; ///< the bytes of the file system; neither is ever as long as 64 KB
        std::string_view localizedName; ///< valid UTF-8; empty where the name itself is what a file manager shows
        FileTraits traits; ///< of the target of a link or alias; a plain file where there is none
        bool isLink = true; ///< a link or alias, or possibly one
    };

    void add(Item const& item)
    {
        m_records.push_back({ m_text.size(), static_cast<std::uint16_t>(item.name.size()), static_cast<std::uint16_t>(item.localizedName.size()),
            item.traits.isDirectory, item.traits.isPackage, item.isLink, item.traits.fault });
        m_text.append(item.name).append(item.localizedName);
    }

    /// Leaves out items by their names.
    template <class Predicate> void removeNamed(Predicate isMeant)
    {
        std::erase_if(m_records, [&](Record const& record) { return isMeant(std::string_view(m_text).substr(record.offset, record.nameLength)); });
    }

    [[nodiscard]] std::size_t size() const { return m_records.size(); }
    [[nodiscard]] bool empty() const { return m_records.empty(); }
    /// The item, whose views hold until the contents change.
    [[nodiscard]] Item operator[](std::size_t index) const
    {
        auto const& record = m_records[index];
        auto const text = std::string_view(m_text).substr(record.offset);
        return { text.substr(0, record.nameLength), text.substr(record.nameLength, record.localizedLength),
            { record.isDirectory, record.isPackage, record.fault }, record.isLink };
    }

private:
    struct Record {
        std::size_t offset;
        std::uint16_t nameLength;
        std::uint16_t localizedLength;
        bool isDirectory;
        bool isPackage;
        bool isLink;
        FileFault fault;
    };

    std::string m_text;
    std::vector<Record> m_records;
};

enum class HiddenFiles { skipped, included };

enum class FolderReadFailure { notPermitted, notFound, notAFolder, failed };

/// The reason not to give a file the combination that its name asks for.
enum class NameDoubt {
    ofAnotherUser,
    onForeignVolume, ///< remote or removable
    downloaded, ///< the file carries the mark of a download
    amongDownloads, ///< it lies below the folder of downloads
    notInstalled, ///< it would be started, though nobody installed it
};

/// What files can be ordered by, beside their names.
enum class FileMeasure { dateChanged, dateAdded, size };

/// Reads a folder in one pass, asking about single files only where their directory entry
/// does not tell what they are. Any thread. Shared, because a reading that hangs may
/// outlive everything else.
class FolderReader {
public:
    virtual ~FolderReader() = default;
    /// Files never to be listed (such as application entries meant for another desktop)
    /// are left out here. A link to a remote file system is not followed: it counts as a
    /// folder unless its name has an extension.
    [[nodiscard]] virtual Result<FolderContents, FolderReadFailure> read(Url const& folder, HiddenFiles hiddenFiles) const = 0;
    /// A number for each of the folder's items, in their order: nanoseconds of a time, or bytes; zero where the disk
    /// does not tell. Of a link itself.
    [[nodiscard]] virtual std::vector<std::int64_t> measure(Url const& folder, FolderContents const& contents, FileMeasure what) const = 0;
    /// True when looking into the folder may block: another machine or program answers for
    /// its file system. Finds out without touching that file system.
    [[nodiscard]] virtual bool isRemote(Url const& folder) const = 0;
    /// Of the file itself, not of a link's target. Nothing where the name may be trusted.
    [[nodiscard]] virtual std::optional<NameDoubt> doubtAbout(Url const& file) const = 0;
};

} // namespace zv
