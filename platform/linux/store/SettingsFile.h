#pragma once

#include "base/PropertyList.h"
#include "base/Result.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <chrono>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace zv {

/// The settings file: one property-list dictionary. Readers always see a whole file; writers take
/// turns through a lock file beside it.
class SettingsFile {
public:
    struct ReadFailure {
        enum class Cause { system, content };
        Cause cause = Cause::system; ///< whether the system failed, or the content is no dictionary
        std::string reason;
    };

    /// The time to wait for other writers: longer than a busy machine takes for the largest menu,
    /// but not endless, as a writer may have been stopped.
    static constexpr std::chrono::milliseconds usualPatience { 5000 };

    explicit SettingsFile(std::string path, std::chrono::milliseconds patience = usualPatience);

    [[nodiscard]] std::string const& path() const { return m_path; }

    /// Whether the file differs from the one last read or written here.
    [[nodiscard]] bool hasChanged() const;
    /// Reads the file; a missing one counts as an empty dictionary.
    [[nodiscard]] Result<PropertyListDictionary, ReadFailure> read();

    /// Keeps other writers out until the result is destroyed. Fails when they take too long.
    [[nodiscard]] Result<FileDescriptor> lock() const;
    /// Replaces the content atomically. Under the lock only.
    [[nodiscard]] Result<void> write(std::vector<std::byte> const& bytes);
    /// Waits a moment where the file was written this very second: its writer may not have ended.
    void awaitWriter() const;
    /// Renames the file to a dated name and returns that. Under the lock only.
    [[nodiscard]] Result<std::string> setAside();

private:
    void remember();
    [[nodiscard]] Result<PropertyListDictionary, ReadFailure> readDictionary() const;

    std::string m_path;
    std::chrono::milliseconds m_patience;
    FileDescriptor m_known; ///< held open, so that its identity is not reused for another file
    struct stat m_knownStatus { };
};

} // namespace zv
