#pragma once

#include "base/Result.h"
#include "base/Url.h"
#include "platform/files/AliasFiles.h"
#include "platform/files/FileSystem.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The folder of the user's own items, and how files are added to it. A small value; its operations
/// block their caller, on any thread. The services outlive it.
class ItemsFolder {
public:
    struct Problem {
        std::string name; ///< the display name of the file that could not be added
        std::string reason;
        friend bool operator==(Problem const&, Problem const&) = default;
    };
    struct Failure {
        std::string noAvailableName; ///< the name whose thousand numbers are all taken
        [[nodiscard]] std::string description() const;
    };
    struct Outcome {
        std::vector<Url> added;
        std::vector<Problem> problems;
        std::optional<std::string> folderError; ///< set when the folder could not be made; nothing is added then
    };

    ItemsFolder(Url url, FileSystem& files, AliasFiles& aliases)
        : m_url(std::move(url))
        , m_files(files)
        , m_aliases(aliases)
    {
    }

    /// The default place: in the Library folder of `home`.
    [[nodiscard]] static Url defaultUrl(Url const& home) { return home.appending("Library").appending("Zanthe Vell Items"); }

    [[nodiscard]] Url const& url() const { return m_url; }
    /// Makes missing parents too; an existing folder is fine.
    [[nodiscard]] Result<void> ensureExists() const { return m_files.createDirectory(m_url); }
    /// Puts an alias of each file into the folder, under a name of its own.
    [[nodiscard]] Outcome add(std::vector<Url> const& urls) const;

private:
    [[nodiscard]] std::string fileNameFor(Url const& url) const;
    [[nodiscard]] Result<void> addOne(Url const& url, std::string const& name) const;

    Url m_url;
    FileSystem& m_files;
    AliasFiles& m_aliases;
};

} // namespace zv
