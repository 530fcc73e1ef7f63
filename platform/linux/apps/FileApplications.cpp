#include "platform/linux/apps/FileApplications.h"

#include "platform/linux/apps/Launching.h"
#include "platform/linux/posix/GObjects.h"
#include "platform/linux/posix/LaunchContext.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace zv {

namespace {

std::string contentTypeOf(GFile& file)
{
    GObjectRef<GFileInfo> const information(g_file_query_info(&file, G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE, G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
    auto const* const type = information ? g_file_info_get_content_type(information.get()) : nullptr;
    return type ? type : "";
}

void add(std::vector<InstalledApplication>& applications, GAppInfo* candidate)
{
    auto const* const path = G_IS_DESKTOP_APP_INFO(candidate) ? g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(candidate)) : nullptr;
    if (!path)
        return;
    auto entry = Url::fromPath(path);
    if (std::ranges::find(applications, entry, &InstalledApplication::file) == applications.end())
        applications.push_back({ g_app_info_get_display_name(candidate), std::move(entry) });
}

Result<void> resultOf(GErrorSlot& error)
{
    if (error)
        return Failure { error.get()->message };
    return {};
}

namespace fs = std::filesystem;

std::error_code copyAll(fs::path const& from, fs::path const& to)
{
    std::error_code error;
    fs::copy(from, to, fs::copy_options::recursive | fs::copy_options::copy_symlinks, error);
    if (error) {
        std::error_code ignored;
        fs::remove_all(to, ignored); // no half copies
    }
    return error;
}

std::error_code moveAll(fs::path const& from, fs::path const& to)
{
    std::error_code error;
    fs::rename(from, to, error);
    if (error != std::errc::cross_device_link)
        return error;
    if (error = copyAll(from, to); !error)
        fs::remove_all(from, error);
    return error;
}

} // namespace

std::vector<InstalledApplication> applicationsFor(Url const& file)
{
    GObjectRef<GFile> const located(g_file_new_for_path(file.path().c_str()));
    auto const type = contentTypeOf(*located);
    std::vector<InstalledApplication> applications;
    if (type.empty())
        return applications;
    GObjectRef<GAppInfo> const usual(g_app_info_get_default_for_type(type.c_str(), FALSE));
    add(applications, usual.get());
    auto* const all = g_app_info_get_all_for_type(type.c_str());
    for (auto* each = all; each; each = each->next)
        add(applications, G_APP_INFO(each->data));
    g_list_free_full(all, g_object_unref);
    return applications;
}

Result<void> openFileWith(Url const& file, Url const& application, std::string const& sessionBus)
{
    GObjectRef<GDesktopAppInfo> const entry(g_desktop_app_info_new_from_filename(application.path().c_str()));
    if (!entry)
        return Failure { "the application is no longer there" };
    GObjectRef<GFile> const located(g_file_new_for_path(file.path().c_str()));
    GList files { located.get(), nullptr, nullptr };
    GErrorSlot error;
    g_app_info_launch(G_APP_INFO(entry.get()), &files, launchContext().get(), error.out());
    flushSharedBus(sessionBus);
    return resultOf(error);
}

Result<void> moveToTrash(Url const& file)
{
    GObjectRef<GFile> const located(g_file_new_for_path(file.path().c_str()));
    GErrorSlot error;
    g_file_trash(located.get(), nullptr, error.out());
    return resultOf(error);
}

Result<void> transferFile(Url const& file, Url const& place, FileTransfer how)
{
    fs::path const from = file.path(), to = place.path();
    std::error_code error;
    if (fs::exists(fs::symlink_status(to, error)))
        return Failure { std::make_error_code(std::errc::file_exists).message() };
    if (how == FileTransfer::link)
        fs::create_symlink(from, to, error);
    else
        error = how == FileTransfer::copy ? copyAll(from, to) : moveAll(from, to);
    if (error)
        return Failure { error.message() };
    return {};
}

} // namespace zv
