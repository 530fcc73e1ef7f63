#pragma once

#include "platform/files/UserDefaults.h"

#include <cstdint>
#include <optional>

namespace zv {

/// The settings window's last size and tab, kept among the user's settings. Main thread only.
class SettingsPlace {
public:
    /// The content's size in points.
    struct Size {
        std::int64_t width = 0;
        std::int64_t height = 0;
        friend bool operator==(Size const&, Size const&) = default;
    };

    explicit SettingsPlace(UserDefaults& defaults)
        : m_defaults(defaults)
    {
    }

    /// Empty if none is stored, or the stored one is below `smallest`.
    [[nodiscard]] std::optional<Size> size(Size smallest) const;
    void keepSize(Size size);

    /// The stored tab; the first if that is not below `count`.
    [[nodiscard]] std::int64_t tab(std::int64_t count) const;
    void keepTab(std::int64_t tab);

private:
    void keep(char const* key, std::int64_t value);

    UserDefaults& m_defaults;
};

} // namespace zv
