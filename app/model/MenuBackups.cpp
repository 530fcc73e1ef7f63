#include "app/model/MenuBackups.h"

#include "base/Log.h"
#include "base/MainThread.h"
#include "base/Translation.h"
#include "platform/text/PropertyListFormat.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <utility>

namespace zv {

namespace {

using Seconds = std::chrono::sys_seconds;

constexpr std::string_view readablePrefix = "Menu ";
constexpr std::string_view unreadablePrefix = "Unreadable Menu ";
constexpr std::string_view suffix = " UTC.plist";
constexpr std::size_t timeLength = 19; // "2026-01-31 23.59.59"

std::optional<WallTime> parseTime(std::string const& text)
{
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
    if (std::sscanf(text.c_str(), "%4d-%2u-%2u %2d.%2d.%2d", &year, &month, &day, &hours, &minutes, &seconds) != 6)
        return std::nullopt;
    std::chrono::year_month_day const date { std::chrono::year(year), std::chrono::month(month), std::chrono::day(day) };
    bool const isPlausible = date.ok() && year >= 1970 && year < 2200 && hours < 24 && minutes < 60 && seconds < 60;
    if (!isPlausible)
        return std::nullopt;
    return Seconds(std::chrono::sys_days(date)) + std::chrono::hours(hours) + std::chrono::minutes(minutes) + std::chrono::seconds(seconds);
}

/// Empty for a file that is no backup.
std::optional<MenuBackup> parseName(std::string_view name, Url const& folder)
{
    bool const isReadable = name.starts_with(readablePrefix);
    if ((!isReadable && !name.starts_with(unreadablePrefix)) || !name.ends_with(".plist"))
        return std::nullopt;
    auto const start = (isReadable ? readablePrefix : unreadablePrefix).size();
    auto const time = parseTime(std::string(name.substr(start, timeLength)));
    return time ? std::optional(MenuBackup { folder.appending(name), *time, isReadable }) : std::nullopt;
}

bool isNewer(MenuBackup const& a, MenuBackup const& b) { return a.time != b.time ? a.time > b.time : a.file > b.file; }

} // namespace

std::string fileTimeText(WallTime time)
{
    auto const seconds = std::chrono::floor<std::chrono::seconds>(time);
    auto const day = std::chrono::floor<std::chrono::days>(seconds);
    std::chrono::year_month_day const date(day);
    std::chrono::hh_mm_ss const clock(seconds - day);
    std::array<char, 64> text {};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d.%02d.%02d", static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
        static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
        static_cast<int>(clock.seconds().count()));
    return text.data();
}

MenuBackups::MenuBackups(Services services, Url folder)
    : m_services(services)
    , m_folder(std::move(folder))
{
}

std::vector<MenuBackup> MenuBackups::list() const
{
    assertMainThread();
    m_observers.access(0);
    auto const names = m_services.files.names(m_folder);
    std::vector<MenuBackup> backups;
    if (!names)
        return backups;
    for (auto const& name : *names) {
        if (auto backup = parseName(name, m_folder))
            backups.push_back(std::move(*backup));
    }
    std::sort(backups.begin(), backups.end(), isNewer);
    std::stable_partition(backups.begin(), backups.end(), [now = m_services.clock.now()](MenuBackup const& backup) { return backup.time <= now; });
    return backups;
}

bool MenuBackups::isDue() const
{
    if (!m_newest) {
        auto const backups = list();
        auto const newest = std::find_if(backups.begin(), backups.end(), [](MenuBackup const& backup) { return backup.isReadable; });
        m_newest = newest == backups.end() ? WallTime() : newest->time;
    }
    auto const now = m_services.clock.now();
    bool const clockWentBack = now < *m_newest;
    return clockWentBack || now >= *m_newest + minimumDistance;
}

Result<void> MenuBackups::menuWillBeOverwritten(PropertyList const& stored, bool isReadable)
{
    assertMainThread();
    auto const now = m_services.clock.now();
    if (auto const written = write(stored, freeName(now, isReadable)); !written)
        return Failure { tr("could not keep a copy of the menu in %1: %2", m_folder.path(), written.error()) };
    if (isReadable)
        m_newest = now;
    removeOldest(isReadable);
    m_observers.changed(0);
    return {};
}

Result<void> MenuBackups::write(PropertyList const& stored, Url const& file)
{
    auto const bytes = writePropertyList(stored);
    return bytes ? m_services.files.writePrivately(file, *bytes) : Failure { bytes.error() };
}

Url MenuBackups::freeName(WallTime time, bool isReadable) const
{
    auto const stem = std::string(isReadable ? readablePrefix : unreadablePrefix) + fileTimeText(time);
    auto file = m_folder.appending(stem + std::string(suffix));
    for (int i = 2; m_services.files.isTaken(file); ++i)
        file = m_folder.appending(stem + " (" + std::to_string(i) + ")" + std::string(suffix));
    return file;
}

void MenuBackups::removeOldest(bool isReadable)
{
    std::size_t count = 0;
    for (auto const& backup : list()) {
        if (backup.isReadable != isReadable || ++count <= maximumCount)
            continue;
        if (auto const removed = m_services.files.remove(backup.file); !removed)
            logLine("could not remove " + backup.file.path() + ": " + removed.error());
    }
}

} // namespace zv
