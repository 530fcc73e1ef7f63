#include "platform/linux/install/LinuxInstallation.h"

#include "platform/linux/entries/ExecLine.h"
#include "platform/linux/files/MountTable.h"
#include "platform/linux/posix/WholeFiles.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace zv {

namespace fs = std::filesystem;

namespace {

bool isImage(Mount const& mount)
{
    static constexpr std::array<std::string_view, 4> imageTypes { "iso9660", "udf", "squashfs", "erofs" };
    return std::find(imageTypes.begin(), imageTypes.end(), mount.type) != imageTypes.end() || mount.source.starts_with("/dev/loop");
}

/// Whether the path belongs to a package manager, which keeps it read-only by design.
bool isManaged(std::string const& path)
{
    static constexpr std::array<std::string_view, 7> managed { "/usr", "/opt", "/nix", "/gnu", "/snap", "/app", "/bin" };
    return std::any_of(managed.begin(), managed.end(), [&](auto folder) { return isAtOrBelow(path, folder); });
}

/// Whether the program lies in its build tree, where it is not installed.
bool isBuildTree(std::string const& path) { return fs::exists(fs::path(path).parent_path() / "CMakeCache.txt"); }

std::string sentence(std::error_code code) { return code.message() + "."; }

Result<void> resultOf(std::error_code code)
{
    if (code)
        return Failure { sentence(code) };
    return {};
}

bool isWritableFolder(std::string const& path)
{
    std::error_code code;
    return fs::is_directory(path, code) && access(path.c_str(), W_OK) == 0;
}

} // namespace

Url LinuxInstallation::runningBundle(Environment const& environment)
{
    if (auto const appImage = environment.find("APPIMAGE"); appImage != environment.end() && !appImage->second.empty())
        return Url::fromPath(appImage->second);
    std::error_code code;
    auto const executable = fs::read_symlink("/proc/self/exe", code);
    for (auto folder = executable.parent_path(); folder.has_relative_path(); folder = folder.parent_path()) {
        if (folder.extension() == ".AppDir")
            return Url::fromPath(folder.string());
    }
    return Url::fromPath(executable.string());
}

RelocationSource LinuxInstallation::source(Url const& bundle) const
{
    auto const path = bundle.path();
    bool const isInPlace = isAtOrBelow(path, m_options.systemFolder) || isAtOrBelow(path, m_options.userFolder);
    if (isInPlace || isManaged(path) || isBuildTree(path))
        return RelocationSource::none;
    if (m_options.isMountedAppImage)
        return RelocationSource::diskImage;
    MountTable const mounts(readTextFile(m_options.mountInfo).value_or(""));
    auto const* const mount = mounts.mountOf(path);
    if (mount && isImage(*mount))
        return RelocationSource::diskImage;
    bool const isTemporary = isAtOrBelow(path, m_options.temporaryFolder) || isAtOrBelow(path, "/var/tmp") || isAtOrBelow(path, "/run");
    return isTemporary || (mount && mount->isReadOnly) ? RelocationSource::temporaryPlace : RelocationSource::none;
}

std::optional<Url> LinuxInstallation::applicationsFolder()
{
    if (isWritableFolder(m_options.systemFolder))
        return Url::fromPath(m_options.systemFolder);
    std::error_code code;
    fs::create_directories(m_options.userFolder, code);
    return code ? std::nullopt : std::optional(Url::fromPath(m_options.userFolder));
}

Result<Url> LinuxInstallation::makeReplacementFolder(Url const& destination)
{
    auto pattern = destination.path() + "/.zanthe-vell-XXXXXX";
    if (!mkdtemp(pattern.data()))
        return Failure { sentence({ errno, std::generic_category() }) };
    return Url::fromPath(pattern);
}

Result<void> LinuxInstallation::copy(Url const& from, Url const& to)
{
    std::error_code code;
    fs::copy(from.path(), to.path(), fs::copy_options::recursive | fs::copy_options::copy_symlinks, code);
    return resultOf(code);
}

Result<void> LinuxInstallation::put(Url const& from, Url const& to)
{
    // The two folders are exchanged, as rename cannot replace a folder that is not empty.
    if (renameat2(AT_FDCWD, from.path().c_str(), AT_FDCWD, to.path().c_str(), RENAME_EXCHANGE) == 0) {
        std::error_code ignored;
        fs::remove_all(from.path(), ignored);
        return {};
    }
    std::error_code code;
    fs::rename(from.path(), to.path(), code);
    return resultOf(code);
}

void LinuxInstallation::removeFolder(Url const& folder)
{
    std::error_code ignored;
    fs::remove_all(folder.path(), ignored);
}

Result<void> LinuxInstallation::announce(Url const& installed)
{
    auto const copied = copyResources(installed);
    return copied ? writeEntry(installed) : copied;
}

/// Copies to "share" beside the folder of programs, where an installed program looks. An image or
/// an application's folder contains its resources.
Result<void> LinuxInstallation::copyResources(Url const& installed) const
{
    if (m_options.isMountedAppImage || m_options.resources.empty() || fs::is_directory(installed.path()))
        return {};
    auto const folder = fs::path(installed.path()).parent_path().parent_path() / "share/zanthe-vell";
    std::error_code code;
    fs::create_directories(folder, code);
    if (!code)
        fs::copy(m_options.resources, folder, fs::copy_options::recursive | fs::copy_options::overwrite_existing, code);
    return resultOf(code);
}

Result<void> LinuxInstallation::writeEntry(Url const& installed) const
{
    bool const forAll = isAtOrBelow(installed.path(), m_options.systemFolder);
    fs::path const folder = forAll ? m_options.systemApplications : m_options.userApplications;
    std::error_code code;
    fs::create_directories(folder, code);
    if (code)
        return resultOf(code);
    auto const program = fs::is_directory(installed.path()) ? installed.path() + "/AppRun" : installed.path();
    std::ofstream stream(folder / "org.zanthevell.ZantheVell.desktop", std::ios::trunc);
    stream << "[Desktop Entry]\nType=Application\nName=Zanthe Vell\nComment=A menu of your own making\nExec=" << quotedForExec(program)
           << "\nIcon=org.zanthevell.ZantheVell\nCategories=Utility;\n";
    stream.close();
    if (!stream)
        return Failure { m_options.entryNotWritten };
    return {};
}

void LinuxInstallation::giveWay()
{
    if (m_options.giveWay)
        m_options.giveWay();
}

} // namespace zv
