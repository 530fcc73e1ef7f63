#include "platform/linux/icons/FileIconNames.h"

#include "base/Url.h"
#include "platform/linux/entries/ApplicationEntry.h"
#include "platform/linux/entries/Startable.h"
#include "platform/linux/machine/DesktopVolumes.h"
#include "platform/linux/posix/GObjects.h"
#include "platform/text/Text.h"

#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace zv {

namespace {

struct UserFolder {
    GUserDirectory directory;
    char const* name;
};

/// Names of https://specifications.freedesktop.org/icon-naming-spec, and those that themes have besides.
constexpr std::array userFolders {
    UserFolder { G_USER_DIRECTORY_DESKTOP, "user-desktop" },
    UserFolder { G_USER_DIRECTORY_DOCUMENTS, "folder-documents" },
    UserFolder { G_USER_DIRECTORY_DOWNLOAD, "folder-download" },
    UserFolder { G_USER_DIRECTORY_MUSIC, "folder-music" },
    UserFolder { G_USER_DIRECTORY_PICTURES, "folder-pictures" },
    UserFolder { G_USER_DIRECTORY_PUBLIC_SHARE, "folder-publicshare" },
    UserFolder { G_USER_DIRECTORY_TEMPLATES, "folder-templates" },
    UserFolder { G_USER_DIRECTORY_VIDEOS, "folder-videos" },
};

/// A volume's root shows the medium's icon, not a folder's.
std::optional<FileIconNames> volumeIcon(std::string const& path, MountTable const& mounts)
{
    auto const* mount = mounts.mountOf(path);
    if (!mount || mount->path != path || !isUserVolume(*mount))
        return std::nullopt;
    if (isRemoteFileSystem(mount->type))
        return FileIconNames { { "folder-remote", "network-server" }, {}, IconShape::network };
    if (mount->type == "iso9660" || mount->type == "udf")
        return FileIconNames { { "media-optical", "drive-optical" }, {}, IconShape::drive };
    bool const isRemovable = path.starts_with("/media/") || path.starts_with("/run/media/");
    return FileIconNames { { isRemovable ? "drive-removable-media" : "drive-harddisk", "drive-harddisk" }, {}, IconShape::drive };
}

FileIconNames folderIcon(std::string const& path)
{
    FileIconNames icon { { "folder", "inode-directory" }, {}, IconShape::folder };
    if (path == g_get_home_dir()) {
        icon.names.insert(icon.names.begin(), "user-home");
        return icon;
    }
    for (auto const& folder : userFolders) {
        auto const* place = g_get_user_special_dir(folder.directory);
        if (place && path == place)
            icon.names.insert(icon.names.begin(), folder.name);
    }
    return icon;
}

std::vector<std::string> namesOfType(gchar const* contentType)
{
    std::vector<std::string> names;
    GObjectRef<GIcon> const icon(g_content_type_get_icon(contentType));
    if (G_IS_THEMED_ICON(icon.get())) {
        for (auto const* const* name = g_themed_icon_get_names(G_THEMED_ICON(icon.get())); *name; ++name) {
            if (!std::string_view(*name).ends_with("-symbolic"))
                names.emplace_back(*name);
        }
    }
    names.emplace_back("text-x-generic");
    return names;
}

FileIconNames iconByName(std::string const& path)
{
    auto const name = withValidUtf8(lastPathComponent(path));
    GString8 const type(g_content_type_guess(name.c_str(), nullptr, 0, nullptr));
    return { namesOfType(type.get()), {}, IconShape::document };
}

/// The icon's name without an extension, which some entries give it.
std::string themeName(std::string const& icon)
{
    for (std::string_view const extension : { ".png", ".svg", ".xpm" }) {
        if (icon.ends_with(extension))
            return icon.substr(0, icon.size() - extension.size());
    }
    return icon;
}

FileIconNames programIcon() { return { { "application-x-executable" }, {}, IconShape::application }; }

std::optional<FileIconNames> entryIcon(std::string const& path)
{
    auto const entry = readApplicationEntry(path, {}, { userLanguages(), {} });
    if (!entry)
        return std::nullopt;
    auto icon = programIcon();
    if (entry->icon.starts_with('/'))
        icon.imageFile = entry->icon;
    else if (!entry->icon.empty())
        icon.names.insert(icon.names.begin(), themeName(entry->icon));
    return icon;
}

FileIconNames iconOfRegularFile(std::string const& path, StartTrust const& trust)
{
    auto const startable = startableAt(path);
    if (!startable)
        return iconByName(path);
    if (!trust.trusts(startable->file))
        return { { "text-x-generic" }, {}, IconShape::document };
    if (startable->kind != Startable::Kind::entry)
        return programIcon();
    return entryIcon(path).value_or(iconByName(path));
}

/// The icon guessed from the name, for files that are missing or must not be touched.
FileIconNames guessedIcon(std::string const& path, char const* folderName)
{
    if (!pathExtension(lastPathComponent(path)).empty())
        return iconByName(path);
    return { { folderName, "folder" }, {}, IconShape::folder };
}

/// A missing file may be a folder still to be made; a broken link is a file.
FileIconNames iconOfMissingFile(std::string const& path, bool isLink) { return isLink ? iconByName(path) : guessedIcon(path, "folder"); }

} // namespace

FileIconNames iconNamesOfFile(std::string const& path, MountTable const& mounts, StartTrust const& trust)
{
    if (auto const icon = volumeIcon(path, mounts))
        return *icon;
    if (auto const* mount = mounts.mountOf(path); mount && mount->mayHang)
        return guessedIcon(path, "folder-remote");

    auto const fate = mounts.follow(path);
    auto icon = fate.kind == MountTable::Fate::Kind::remote ? guessedIcon(path, "folder-remote")
        : fate.kind == MountTable::Fate::Kind::missing      ? iconOfMissingFile(path, fate.isLink)
        : fate.isDirectory                                  ? folderIcon(path)
                                                            : iconOfRegularFile(path, trust);
    icon.isLink = fate.isLink;
    return icon;
}

} // namespace zv
