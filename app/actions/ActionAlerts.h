#pragma once

#include "app/actions/SessionControl.h"
#include "app/actions/ShortcutsProvider.h"
#include "app/actions/SystemEventsBridge.h"
#include "platform/desk/Alerts.h"
#include "platform/desk/Application.h"
#include "platform/session/ComputerInfo.h"
#include "platform/session/Workspace.h"

#include <optional>
#include <string>

/// The alerts of chosen commands, as values.
namespace zv {

/// The alert whose first button leads to the settings of Automation.
[[nodiscard]] Alert permissionAlert(std::string const& title);
/// `failure` is the failure's own textual form, shown raw.
[[nodiscard]] Alert notCompletedAlert(std::string const& title, std::string const& failure);
[[nodiscard]] Alert shortcutAlert(std::string const& name, ShortcutsProvider::Failure const& failure);
/// Asks whether to move the file to the Trash; the first button does.
[[nodiscard]] Alert trashQuestion(std::string const& name);
[[nodiscard]] Alert trashAlert(std::string const& name, std::string const& reason);
[[nodiscard]] Alert noTerminalAlert();
/// Asks whether a dropped file replaces the one of its name; the first button does.
[[nodiscard]] Alert replaceQuestion(std::string const& name, std::string const& folder);
/// A line for each file that could not be put into the folder.
[[nodiscard]] std::string problemLine(std::string const& name, std::string const& reason);
[[nodiscard]] Alert dropAlert(std::string const& folder, std::string const& problems);
[[nodiscard]] Alert locationAlert(std::string const& name);
/// Empty for a kind that ends no session.
[[nodiscard]] std::optional<Alert> confirmationAlert(MenuItemKind const& kind);
[[nodiscard]] Alert forceQuitNote();
[[nodiscard]] Alert aboutComputerAlert(ComputerFacts const& facts);
/// Asks before something starts that nobody installed.
[[nodiscard]] Alert untrustedStartAlert(UntrustedStart const& start);
/// The consent that the alert's button gives; nothing for "Cancel".
[[nodiscard]] std::optional<StartConsent> consentOf(std::size_t button);

/// Asks before a session ends, for desktops that do not ask.
class AlertConfirmation : public SessionConfirmation {
public:
    AlertConfirmation(Application& application, Alerts& alerts)
        : m_application(application)
        , m_alerts(alerts)
    {
    }
    bool confirms(MenuItemKind const& kind) override;
    /// Explains that the next click ends an application; false when the user declines.
    [[nodiscard]] bool confirmsForceQuit();

private:
    [[nodiscard]] bool ask(Alert const& alert);

    Application& m_application;
    Alerts& m_alerts;
};

} // namespace zv
