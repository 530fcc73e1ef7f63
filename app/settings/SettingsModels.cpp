#include "app/settings/SettingsModels.h"

#include "app/doctor/HotkeyCheck.h"

namespace zv {

SettingsModels::SettingsModels(Services services)
    : m_services(std::move(services))
    , m_editor({ m_services.store, m_services.locations })
    , m_outline({ m_services.store, m_services.hotkeys })
    , m_palette(loadItemLibrary(m_services.resources, m_services.locations, LibraryMode::everything))
    , m_menuFile({ m_editor, m_services.backups, m_services.files, m_services.locations, m_services.panels, m_services.alerts })
    , m_general({ m_services.preferences, m_services.loginItem, m_services.updater, m_menuFile, m_services.alerts, m_services.wording,
          m_services.statusItemProblem, m_services.overlayProblem, [this] { return noteOf(hotkeyCheck(m_services.hotkeys.support())); }, m_services.permissions,
          m_services.openSettingsPane })
    , m_about(aboutText(m_services.resources))
{
    if (m_services.installedApplications)
        m_services.installedApplications(m_lifetime.guard([this](auto applications) { m_palette.setApplications(std::move(applications)); }));
}

void SettingsModels::reveal(MenuItem const& item)
{
    auto const url = item.location ? item.location->resolvedURL(m_services.locations) : std::nullopt;
    if (url)
        m_services.reveal(*url);
}

void SettingsModels::showReadMe() { m_services.showReadMe(); }

void SettingsModels::copyDiagnostics() { m_services.copyText(m_services.diagnostics()); }

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
