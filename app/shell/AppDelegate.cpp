#include "app/shell/AppDelegate.h"

#include "app/model/Locations.h"
#include "app/shell/Relocation.h"
#include "base/MainThread.h"
#include "base/Translation.h"

#include <algorithm>
#include <utility>

namespace zv {

AppDelegate::AppDelegate(System system, Surface surface)
    : m_system(std::move(system))
    , m_surface(std::move(surface))
    , m_preferences(m_system.files.defaults)
    , m_menuShortcut(m_system.files.defaults)
    , m_backups({ *m_system.files.disk, m_system.time.clock }, m_system.places.backupsFolder)
    , m_store({ m_system.files.defaults, m_system.files.resources, locationsOf(m_system) })
    , m_begging({ .defaults = m_system.files.defaults,
          .resources = m_system.files.resources,
          .windows = m_surface.windows.notes,
          .application = m_surface.desk.application,
          .tasks = m_system.time.tasks })
    , m_settings(m_surface.desk.application, m_surface.windows.settings)
{
    m_store.setBackupSink(&m_backups);
    m_system.files.defaults.onExternalChange = [this](auto const& keys) { settingsChangedElsewhere(keys); };
}

AppDelegate::~AppDelegate()
{
    m_system.files.defaults.onExternalChange = nullptr;
    m_store.setBackupSink(nullptr);
}

AppDelegate::Launch AppDelegate::applicationDidFinishLaunching()
{
    assertMainThread();
    if (relocateIfNeeded())
        return Launch::relocated;
    m_statusItem = parts().makeStatusItem();
    m_dockIcon = std::make_unique<DockIconController>(
        DockIconController::Services { .application = m_surface.desk.application, .preferences = m_preferences, .tasks = m_system.time.tasks });
    setServicesProvider();
    parts().updater().start();
    m_begging.showIfDue(m_system.places.environment, m_system.files.disk->isOnReadOnlyVolume(m_system.places.bundle));
    if (m_begging.isFirstLaunch() && m_store.isNew())
        m_settings.openGallery();
    return Launch::running;
}

bool AppDelegate::applicationShouldHandleReopen(bool)
{
    assertMainThread();
    // Before that, only the question whether to move can be open.
    if (m_statusItem)
        openSettings();
    else
        m_surface.desk.application.activate();
    return true;
}

bool AppDelegate::relocateIfNeeded()
{
    Relocation relocation({ .installation = m_surface.home.installation,
        .application = m_surface.desk.application,
        .alerts = m_surface.desk.alerts,
        .workspace = m_system.session.workspace });
    return relocation.relocateIfNeeded(m_system.places.bundle, m_system.places.environment);
}

void AppDelegate::setServicesProvider()
{
    m_takesFiles = true;
    if (m_surface.home.provideServices)
        m_surface.home.provideServices();
}

Result<void> AppDelegate::addFiles(std::vector<Url> files)
{
    if (!m_takesFiles)
        return Failure { tr("Zanthe Vell is still starting.") };
    return parts().addToItems().addToZantheVellItems(std::move(files));
}

ProgramParts& AppDelegate::parts()
{
    if (!m_parts)
        m_parts = std::make_unique<ProgramParts>(ProgramParts::Over { .system = m_system,
            .surface = m_surface,
            .preferences = m_preferences,
            .menuShortcut = m_menuShortcut,
            .store = m_store,
            .backups = m_backups,
            .begging = m_begging,
            .settings = m_settings });
    return *m_parts;
}

void AppDelegate::settingsChangedElsewhere(std::vector<std::string> const& keys)
{
    m_preferences.reload();
    m_menuShortcut.reload();
    if (std::find(keys.begin(), keys.end(), MenuStore::defaultsKey) != keys.end())
        m_store.reload();
}

} // namespace zv
