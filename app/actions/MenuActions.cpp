#include "app/actions/MenuActions.h"

#include "app/actions/ActionAlerts.h"
#include "app/actions/SystemPlaces.h"
#include "app/menu/EntryIdentity.h"
#include "app/model/Locations.h"
#include "base/Log.h"
#include "base/MainThread.h"
#include "base/Translation.h"

#include <optional>
#include <utility>

namespace zv {

MenuActions::MenuActions(Services services)
    : m_services(std::move(services))
    , m_shortcuts(m_services.system.session.tools)
    , m_networkLocations(m_services.system.session.tools)
    , m_ownItems(m_services.system.kind, m_services.system.places.itemsFolder, *m_services.system.files.disk)
{
    m_services.system.session.workspace.onUntrusted = [this](UntrustedStart const& start) { askToStart(start); };
}

MenuActions::~MenuActions() { m_services.system.session.workspace.onUntrusted = nullptr; }

void MenuActions::byShortcut(std::function<void()> const& requests)
{
    bool const wasByShortcut = std::exchange(m_isByShortcut, true);
    requests();
    m_isByShortcut = wasByShortcut;
}

bool MenuActions::perform(MenuItem const& item)
{
    assertMainThread();
    if (item.kind == MenuItemKind::fsObject)
        return openLocation(item);
    chosen(identityOf(item));
    return performInProgram(item) || openPlace(item) || sendSessionEvent(item) || runScript(item);
}

bool MenuActions::openLocation(MenuItem const& item)
{
    auto const found = item.location ? item.location->resolve(locationsOf(m_services.system)) : ItemLocation::Resolution {};
    if (found.kind == ItemLocation::Resolution::Kind::onUnmountedServer)
        mountAndOpen(*item.location->bookmark);
    else if (found.url)
        open(*found.url);
    else
        return false;
    return true;
}

void MenuActions::chosen(std::string identity)
{
    if (m_services.shell.chosen)
        m_services.shell.chosen(std::move(identity));
}

/// Whether Command is held counts when the item is chosen, not when the server has answered.
void MenuActions::mountAndOpen(BookmarkData const& bookmark)
{
    auto mounted = m_lifetime.guard([this, how = howToOpen()](std::optional<Url> const& url) {
        if (url)
            open(*url, how);
        else
            logLine("the server of a chosen item could not be mounted");
    });
    m_services.system.time.tasks.runDetached([find = m_services.system.files.bookmarks.mounting(bookmark), mounted] {
        return std::function<void()>([mounted, url = find()]() mutable { mounted(url); });
    });
}

bool MenuActions::performInProgram(MenuItem const& item)
{
    if (item.kind == MenuItemKind::revealZantheVellItems)
        revealItemsFolder();
    else if (item.kind == MenuItemKind::customizeZantheVell)
        openSettingsWindow();
    else if (item.kind == MenuItemKind::quitZantheVell)
        terminate();
    else
        return false;
    return true;
}

/// Creates the folder first: it does not exist before the first file is added.
void MenuActions::revealItemsFolder()
{
    auto const& folder = m_services.system.places.itemsFolder;
    (void)m_services.system.files.disk->createDirectory(folder);
    m_services.system.session.workspace.reveal(folder);
}

bool MenuActions::sendSessionEvent(MenuItem const& item)
{
    auto const event = SessionControl::eventFor(item.kind);
    if (!event)
        return false;
    m_services.session.send(*event, m_lifetime.guard([this, item](Result<void, SessionControl::Failure> const& sent) {
        if (!sent)
            presentSessionFailure(sent.error(), item);
    }));
    return true;
}

bool MenuActions::runScript(MenuItem const& item)
{
    auto const script = SystemEventsBridge::scriptFor(item.kind);
    if (!script)
        return false;
    m_services.scripts.run(*script, m_lifetime.guard([this, item](Result<void, SystemEventsBridge::Failure> const& ran) {
        if (!ran)
            presentScriptFailure(ran.error(), item);
    }));
    return true;
}

bool MenuActions::openPlace(MenuItem const& item)
{
    auto const* const target = systemPlaceFor(item.kind);
    if (!target)
        return false;
    m_services.system.session.desktop.open(target->place, m_lifetime.guard([this, target, item](PlaceOutcome outcome) {
        using Form = SystemPlaceTarget::Form;
        if (outcome == PlaceOutcome::opened)
            return;
        if (outcome == PlaceOutcome::notFound)
            placeWasNotFound(target->place, item);
        else if (target->form == Form::settingsPane)
            openSettingsPane(target->target);
        else if (target->form == Form::application)
            m_services.system.session.workspace.open(Url::fromPath(target->target));
        else
            openWebPage(target->target);
    }));
    return true;
}

/// Shows our own alert about the computer where the desktop has none.
void MenuActions::placeWasNotFound(SystemPlace place, MenuItem const& item)
{
    if (place != SystemPlace::aboutComputer)
        return presentScriptFailure(SystemEventsBridge::Failure::scriptError(tr("this desktop has no program for it")), item);
    m_services.system.session.computer.gather(m_lifetime.guard([this](ComputerFacts const& facts) { present(aboutComputerAlert(facts)); }));
}

void MenuActions::open(Url const& url)
{
    assertMainThread();
    chosen(identityOf(url));
    open(url, howToOpen());
}

void MenuActions::open(Url const& url, HowToOpen how)
{
    if (how == HowToOpen::revealed)
        m_services.system.session.workspace.reveal(url);
    else if (m_ownItems.isQuietScript(url))
        runQuietly(url);
    else
        m_services.system.session.workspace.open(url);
}

void MenuActions::runQuietly(Url const& script)
{
    m_services.system.time.tasks.runDetached([tools = m_services.system.session.tools, path = script.path()]() -> std::function<void()> {
        (void)tools->run({ "/bin/sh", { path }, ToolOutput::discarded });
        return [] {};
    });
}

void MenuActions::open(DynamicEntry const& entry)
{
    assertMainThread();
    chosen(identityOf(entry));
    if (isCommandHeld()) {
        if (entry.fileURL)
            m_services.system.session.workspace.reveal(*entry.fileURL);
    } else if (entry.action == DynamicEntryAction::activateApplication) {
        m_services.system.lists.runningApplications.activate(entry.id);
    } else if (entry.action == DynamicEntryAction::copyText) {
        m_services.desk.clipboard.setText(entry.id);
    } else if (entry.url) {
        m_services.system.session.workspace.open(*entry.url);
    }
}

void MenuActions::openSettingsWindow()
{
    m_services.desk.application.activate();
    if (m_services.shell.openSettingsWindow)
        m_services.shell.openSettingsWindow();
}

void MenuActions::terminate() { m_services.desk.application.terminate(); }

bool MenuActions::canCheckForUpdates() const { return m_services.shell.canCheckForUpdates && m_services.shell.canCheckForUpdates(); }

void MenuActions::checkForUpdates()
{
    if (m_services.shell.checkForUpdates)
        m_services.shell.checkForUpdates();
}

void MenuActions::runShortcut(std::string const& id, std::string const& name)
{
    assertMainThread();
    if (isCommandHeld()) {
        if (auto const url = Url::parse("shortcuts://open-shortcut?id=" + id))
            m_services.system.session.workspace.open(*url);
        return;
    }
    auto report = m_lifetime.guard([this, name](Result<void, ShortcutsProvider::Failure> const& ran) {
        if (!ran)
            present(shortcutAlert(name, ran.error()));
    });
    m_services.system.time.tasks.runDetached(
        [shortcuts = m_shortcuts, id, report] { return std::function<void()>([report, ran = shortcuts.run(id)]() mutable { report(ran); }); });
}

void MenuActions::selectLocation(std::string const& id, std::string const& name)
{
    assertMainThread();
    if (!m_networkLocations.select(id))
        present(locationAlert(name));
}

void MenuActions::openSettingsPane(std::string_view anchor)
{
    if (auto const url = Url::parse("x-apple.systempreferences:" + std::string(anchor)))
        m_services.system.session.workspace.open(*url);
}

void MenuActions::openWebPage(std::string_view text)
{
    if (auto const url = Url::parse(text))
        m_services.system.session.workspace.open(*url);
}

void MenuActions::presentSessionFailure(SessionControl::Failure const& failure, MenuItem const& item)
{
    if (failure.reason == SessionControl::Failure::Case::notPermitted)
        return presentPermissionAlert(item);
    present(notCompletedAlert(item.displayTitle(), failure.description()));
}

void MenuActions::presentScriptFailure(SystemEventsBridge::Failure const& failure, MenuItem const& item)
{
    if (failure.reason == SystemEventsBridge::Failure::Case::notPermitted)
        return presentPermissionAlert(item);
    present(notCompletedAlert(item.displayTitle(), failure.description()));
}

void MenuActions::presentPermissionAlert(MenuItem const& item)
{
    m_services.desk.application.activate();
    if (m_services.desk.alerts.run(permissionAlert(item.displayTitle())) == 0)
        openSettingsPane(automationPane);
}

void MenuActions::askToStart(UntrustedStart const& start)
{
    m_services.desk.application.activate();
    if (auto const consent = consentOf(m_services.desk.alerts.run(untrustedStartAlert(start))))
        m_services.system.session.workspace.startUntrusted(start, *consent);
}

void MenuActions::present(Alert const& alert)
{
    m_services.desk.application.activate();
    m_services.desk.alerts.run(alert);
}

MenuActions::HowToOpen MenuActions::howToOpen() const { return isCommandHeld() ? HowToOpen::revealed : HowToOpen::opened; }

bool MenuActions::isCommandHeld() const { return !m_isByShortcut && contains(m_services.desk.modifierKeys.ofCurrentEvent(), ModifierMask::command); }

} // namespace zv
