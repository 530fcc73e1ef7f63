#pragma once

#include "app/model/KeyEquivalentSpec.h"
#include "app/settings/SettingsPage.h"
#include "platform/desk/Alerts.h"
#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/program/DesktopKey.h"

#include <functional>
#include <optional>
#include <string>

namespace zv {

/// The rows for the key that the desktop's own settings have for the menu: always the same two, so that the page
/// keeps them, and the recorder its key. Main thread only.
class DesktopKeyRows {
public:
    struct Services {
        DesktopKey& key;
        Alerts& alerts;
        std::function<std::string(KeyEquivalentSpec const&)> warning; ///< what the key takes from other programs; empty for nothing
        std::function<void()> tellChanged;
    };
    explicit DesktopKeyRows(Services services)
        : m_services(std::move(services))
    {
    }

    void addTo(SettingsSection& section);

private:
    void record(std::optional<KeyEquivalentSpec> const& spec);
    [[nodiscard]] std::string note(std::optional<KeyEquivalentSpec> const& value) const;

    Services m_services;
    std::optional<std::string> m_holder; ///< of the combination that was recorded last, where it was refused
};

} // namespace zv
