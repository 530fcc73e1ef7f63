#pragma once

#include "app/actions/SessionControl.h"
#include "app/actions/ShortcutsProvider.h"
#include "app/actions/SystemEventsBridge.h"
#include "platform/desk/Alerts.h"
#include "platform/desk/Application.h"
#include "platform/session/ComputerInfo.h"

#include <optional>
#include <string>

/// The alerts of chosen commands, as values.
namespace zv {

/// Its first button leads to the settings of Automation.
[[nodiscard]] Alert permissionAlert(std::string const& title);
/// `failure` is the failure's own textual form, shown raw.
[[nodiscard]] Alert notCompletedAlert(std::string const& title, std::string const& failure);
[[nodiscard]] Alert shortcutAlert(std::string const& name, ShortcutsProvider::Failure const& failure);
[[nodiscard]] Alert locationAlert(std::string const& name);
/// Nothing for a kind that ends no session.
[[nodiscard]] std::optional<Alert> confirmationAlert(MenuItemKind const& kind);
[[nodiscard]] Alert forceQuitNote();
[[nodiscard]] Alert aboutComputerAlert(ComputerFacts const& facts);

/// The question of our own before a session ends, for desktops that do not ask.
class AlertConfirmation : public SessionConfirmation {
public:
    AlertConfirmation(Application& application, Alerts& alerts)
        : m_application(application)
        , m_alerts(alerts)
    {
    }
    bool confirms(MenuItemKind const& kind) override;
    /// Says that the next click ends an application; false when the user would rather not.
    [[nodiscard]] bool confirmsForceQuit();

private:
    [[nodiscard]] bool ask(Alert const& alert);

    Application& m_application;
    Alerts& m_alerts;
};

} // namespace zv
