#include "app/settings/SettingsModels.h"

#include "app/doctor/HotkeyCheck.h"
#include "app/model/Locations.h"

namespace zv {

SettingsModels::SettingsModels(Services services)
    : m_services(std::move(services))
    , m_editor({ m_services.store, locationsOf(m_services.system) })
    , m_outline({ m_services.store, m_services.hotkeys })
    , m_palette(loadItemLibrary(m_services.system.files.resources, locationsOf(m_services.system), LibraryMode::everything))
    , m_menuFile({ .editor = m_editor,
          .backups = m_services.backups,
          .files = *m_services.system.files.disk,
          .locations = locationsOf(m_services.system),
          .panels = m_services.surface.windows.filePanels,
          .alerts = m_services.surface.desk.alerts })
    , m_general({ .preferences = m_services.preferences,
          .loginItem = m_services.loginItem,
          .updater = m_services.updater,
          .menuFile = m_menuFile,
          .alerts = m_services.surface.desk.alerts,
          .wording = SettingsWording::of(m_services.system.kind),
          .statusItemProblem = [this] { return statusItemProblem(); },
          .overlayProblem = m_services.overlayProblem,
          .hotkeyProblem = [this] { return noteOf(hotkeyCheck(m_services.hotkeys.support())); },
          .permissions = m_services.surface.home.permissions,
          .openSettingsPane = m_services.openSettingsPane })
    , m_about(aboutText(m_services.system.files.resources))
{
    if (auto const& list = m_services.surface.home.installedApplications)
        list(m_lifetime.guard([this](auto applications) { m_palette.setApplications(std::move(applications)); }));
}

std::optional<std::string> SettingsModels::statusItemProblem() const
{
    if (m_services.surface.presence.showsStatusItems())
        return std::nullopt;
    return SettingsWording::of(m_services.system.kind).statusItemIsNotShown;
}

void SettingsModels::reveal(MenuItem const& item)
{
    auto const url = item.location ? item.location->resolvedURL(locationsOf(m_services.system)) : std::nullopt;
    if (url)
        m_services.system.session.workspace.reveal(*url);
}

void SettingsModels::showReadMe() { m_services.showReadMe(); }

void SettingsModels::copyDiagnostics() { m_services.surface.desk.clipboard.setText(m_services.surface.home.diagnostics()); }

void SettingsModels::beginRecording()
{
    if (!std::exchange(m_isRecording, true))
        m_services.hotkeys.pause();
}

void SettingsModels::endRecording()
{
    if (std::exchange(m_isRecording, false))
        m_services.hotkeys.resume();
}

} // namespace zv
