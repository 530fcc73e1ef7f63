#include "platform/linux/apps/GioWorkspace.h"

#include "base/Log.h"
#include "base/MainThread.h"
#include "platform/linux/apps/FileApplications.h"
#include "platform/linux/apps/Launching.h"
#include "platform/linux/entries/PackageName.h"
#include "platform/linux/files/MountTable.h"
#include "platform/linux/posix/GObjects.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <ctime>
#include <utility>
#include <vector>

namespace zv {

namespace {

/// Applications that other systems know by another identifier, with their entries here.
struct KnownApplication {
    std::string_view identifier;
    std::vector<char const*> entries;
};
KnownApplication const knownApplications[] = {
    { "com.apple.SystemProfiler",
        { "org.kde.kinfocenter.desktop", "hardinfo2.desktop", "hardinfo.desktop", "org.gnome.SystemMonitor.desktop", "gnome-system-monitor.desktop",
            "gnome-system-monitor-kde.desktop" } },
};

std::optional<Url> entryUrl(char const* entry)
{
    GObjectRef<GDesktopAppInfo> const found(g_desktop_app_info_new(entry));
    auto const* const path = found ? g_desktop_app_info_get_filename(found.get()) : nullptr;
    return path ? std::optional(Url::fromPath(path)) : std::nullopt;
}

void logFailure(std::string const& what, Url const& url, std::string const& reason) { logLine(what + " " + withValidUtf8(url.toString()) + ": " + reason); }

/// Runs `work` off the main thread; its failure is logged.
template <class Work> void runLogged(Tasks& tasks, std::string what, Url const& url, Work work)
{
    tasks.runDetached([what = std::move(what), url, work = std::move(work)] {
        return std::function<void()>([what, url, done = work()] {
            if (!done)
                logFailure(what, url, done.error());
        });
    });
}

} // namespace

void GioWorkspace::open(Url const& url)
{
    assertMainThread();
    auto const file = url.isFile() ? MountTable::current().follow(url.path()) : MountTable::Fate {};
    if (file.kind == MountTable::Fate::Kind::found && isApplicationEntryName(file.path))
        openApplication(url, file.path);
    else
        openInBackground(url);
}

/// Brings the application to the front where it runs. `entryFile` is its entry, after links.
void GioWorkspace::openApplication(Url const& url, std::string const& entryFile)
{
    m_services.runningApplications.list(m_lifetime.guard([this, url, entryFile](RunningApplications::List const& list) {
        m_services.applications.withIndex(m_lifetime.guard([this, url, entryFile, list](ApplicationCatalog::Index const& index) {
            auto const* entry = index->findByFile(entryFile);
            auto const running = list.value_or(std::vector<RunningApplication> {});
            if (entry && std::ranges::find(running, entry->id, &RunningApplication::id) != running.end())
                m_services.runningApplications.activate(entry->id);
            else
                openInBackground(url);
        }));
    }));
}

void GioWorkspace::startUntrusted(UntrustedStart const& start, StartConsent consent)
{
    assertMainThread();
    openInBackground(start.file, start, consent);
}

void GioWorkspace::openInBackground(Url const& url, std::optional<UntrustedStart> agreed, std::optional<StartConsent> consent)
{
    auto done = m_lifetime.guard([this, url](Outcome const& outcome) { opened(url, outcome); });
    m_services.tasks.runDetached([url, agreed = std::move(agreed), consent, bus = m_sessionBus, launches = m_launches, trust = m_trust, done] {
        auto outcome = openUrl(url, bus, trust, agreed);
        if (outcome && isApplication(url))
            launches.add({ std::time(nullptr), url.path() });
        if (outcome && consent == StartConsent::always)
            makeExecutable(url.path());
        return std::function<void()>([outcome = std::move(outcome), done]() mutable { done(outcome); });
    });
}

void GioWorkspace::opened(Url const& url, Outcome const& outcome)
{
    if (outcome)
        return;
    auto const& failure = outcome.error();
    if (failure.untrusted && onUntrusted)
        onUntrusted(*failure.untrusted);
    else
        logFailure("could not open", url, failure.reason);
}

void GioWorkspace::reveal(Url const& fileURL)
{
    assertMainThread();
    runLogged(m_services.tasks, "could not reveal", fileURL, [fileURL, bus = m_sessionBus] { return revealFile(fileURL, bus); });
}

void GioWorkspace::findApplicationsFor(Url const& file, std::function<void(std::vector<InstalledApplication>)> done)
{
    assertMainThread();
    m_services.tasks.runDetached([file, done = std::move(done)] {
        return std::function<void()>([done, found = isApplication(file) ? std::vector<InstalledApplication> {} : applicationsFor(file)] { done(found); });
    });
}

void GioWorkspace::openWith(Url const& file, Url const& application)
{
    assertMainThread();
    runLogged(m_services.tasks, "could not open", file, [file, application, bus = m_sessionBus] { return openFileWith(file, application, bus); });
}

void GioWorkspace::moveToTrash(Url const& file, std::function<void(Result<void>)> done)
{
    assertMainThread();
    m_services.tasks.runDetached([file, done = std::move(done)] { return std::function<void()>([done, moved = zv::moveToTrash(file)] { done(moved); }); });
}

void GioWorkspace::transfer(Url const& file, Url const& place, FileTransfer how, std::function<void(Result<void>)> done)
{
    assertMainThread();
    m_services.tasks.runDetached(
        [file, place, how, done = std::move(done)] { return std::function<void()>([done, result = transferFile(file, place, how)] { done(result); }); });
}

std::optional<Url> GioWorkspace::applicationWithIdentifier(std::string_view identifier) const
{
    auto const* const known = std::ranges::find(knownApplications, identifier, &KnownApplication::identifier);
    if (known == std::end(knownApplications))
        return entryUrl((std::string(identifier) + ".desktop").c_str());
    for (auto const* entry : known->entries) {
        if (auto url = entryUrl(entry))
            return url;
    }
    return std::nullopt;
}

void GioWorkspace::openNewInstance(Url const& application, std::function<void(Result<void>)> done)
{
    assertMainThread();
    m_services.tasks.runDetached([application, bus = m_sessionBus, done = std::move(done)] {
        return std::function<void()>([done, started = launchApplication(application, bus)] { done(started); });
    });
}

} // namespace zv
