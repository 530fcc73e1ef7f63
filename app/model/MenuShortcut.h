#pragma once

#include "app/model/KeyEquivalentSpec.h"
#include "base/Observation.h"
#include "platform/files/UserDefaults.h"

#include <optional>
#include <string_view>

namespace zv {

/// The shortcut that opens the menu, kept among the user's settings; none at first. Reading it
/// within withObservationTracking() observes it. Main thread only.
class MenuShortcut {
public:
    /// `defaults` outlives this.
    explicit MenuShortcut(UserDefaults& defaults);
    MenuShortcut(MenuShortcut const&) = delete;
    MenuShortcut& operator=(MenuShortcut const&) = delete;

    [[nodiscard]] std::optional<KeyEquivalentSpec> const& value() const;
    void set(std::optional<KeyEquivalentSpec> value);
    /// Reads it anew after another process changed the stored settings.
    void reload();

    static constexpr std::string_view defaultsKey = "MenuShortcut";

private:
    [[nodiscard]] std::optional<KeyEquivalentSpec> stored() const;

    UserDefaults& m_defaults;
    std::optional<KeyEquivalentSpec> m_value;
    ObservationRegistrar m_registrar;
};

} // namespace zv
