#include "platform/linux/apps/LaunchLog.h"
#include "platform/linux/apps/RecentlyUsedFile.h"
#include "platform/linux/entries/ApplicationEntry.h"
#include "platform/linux/files/MountTable.h"
#include "platform/linux/icons/XSettings.h"
#include "platform/text/Text.h"
#include "tests/fuzz/Model.h"

#include <fcntl.h>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

using namespace zv;

namespace {

/// The path of a file in memory with the text.
std::string fileWith(std::string_view text)
{
    static int const file = ::memfd_create("input", MFD_CLOEXEC);
    bool const isWritten = ::ftruncate(file, 0) == 0 && ::pwrite(file, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size());
    fuzz::require(isWritten, "no memory for a file");
    return "/proc/self/fd/" + std::to_string(file);
}

void readEntry(std::string_view text)
{
    auto const path = fileWith(text);
    auto const begun = readDesktopEntry(AT_FDCWD, path.c_str());
    for (auto const* key : { "Name", "Exec", "Hidden" })
        fuzz::require(DesktopEntry(begun).text(key) == DesktopEntry(text).text(key), "an entry's beginning says another thing than the whole");
    auto const entry = readApplicationEntry(path, "input.desktop", { { "de_AT", "de" }, { "GNOME" } });
    if (!entry)
        return;
    fuzz::require(!entry->name.empty() && isValidUtf8(entry->name), "an entry's name cannot be shown");
    (void)entry->program();
}

void readRecent(std::string_view text)
{
    auto const reading = readRecentlyUsed(fileWith(text), [](RecentlyUsed&& used) {
        fuzz::require(isValidUtf8(used.href + used.mimeType), "a bookmark is no UTF-8");
        fuzz::require(used.visited >= 0, "a visit before all time");
    });
    fuzz::require(reading == FileReading::complete, "a readable file is not read");
}

void readMounts(std::string_view text)
{
    MountTable const table(text);
    for (auto const& mount : table.mounts()) {
        auto const* found = table.mountOf(mount.path);
        fuzz::require(found && (found->path == mount.path || mount.path.ends_with('/')), "a mount does not hold its own path");
        fuzz::require(!isRemoteFileSystem(mount.type) || mount.mayHang, "a server always answers");
    }
}

void readLaunches(std::string_view text)
{
    for (auto const& launch : LaunchLog(fileWith(text)).read())
        fuzz::require(launch.path.starts_with('/') && launch.path.find('\n') == std::string::npos, "a launch of no program");
}

/// Of settings that were cut off, each is as it was, or missing.
void readXSettings(std::string_view text)
{
    auto const whole = xSetting(text, "Net/IconThemeName");
    auto const cut = xSetting(text.substr(0, text.size() - text.size() / 3), "Net/IconThemeName");
    fuzz::require(text.find(whole) != std::string_view::npos && (cut.empty() || cut == whole), "a setting comes from beyond the end");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    return fuzz::readBy({ readEntry, readRecent, readMounts, readLaunches, readXSettings }, fuzz::textAt(data, size));
}
