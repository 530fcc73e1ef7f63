#pragma once

#include "base/PropertyList.h"
#include "base/Result.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <chrono>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace zv {

/// The file that holds the user's settings: one property-list dictionary. Readers always see
/// a whole file; writers take turns by a lock file beside it.
class SettingsFile {
public:
    struct ReadFailure {
        enum class Cause { system, content };
        Cause cause = Cause::system; ///< whether the file could not be had, or what it holds is no dictionary
        std::string reason;
    };

    /// How long to wait for other writers: longer than a busy machine takes for the largest
    /// menu, but a program that was stopped in the wrong moment must not stop this one.
    static constexpr std::chrono::milliseconds usualPatience { 5000 };

    explicit SettingsFile(std::string path, std::chrono::milliseconds patience = usualPatience);

    [[nodiscard]] std::string const& path() const { return m_path; }

    /// True when the file is another one than was last read or written here.
    [[nodiscard]] bool hasChanged() const;
    /// A missing file is an empty dictionary.
    [[nodiscard]] Result<PropertyListDictionary, ReadFailure> read();

    /// Keeps other writers out until it is destroyed. Fails when they let it wait too long.
    [[nodiscard]] Result<FileDescriptor> lock() const;
    /// Under the lock only: the old content or the new one, whatever happens meanwhile.
    [[nodiscard]] Result<void> write(std::vector<std::byte> const& bytes);
    /// Under the lock only: gives the file a dated name; returns that.
    [[nodiscard]] Result<std::string> setAside();

private:
    void remember();
    [[nodiscard]] Result<PropertyListDictionary, ReadFailure> readDictionary() const;

    std::string m_path;
    std::chrono::milliseconds m_patience;
    FileDescriptor m_known; ///< held open, so that the file system cannot give its identity to another file
    struct stat m_knownStatus { };
};

} // namespace zv
