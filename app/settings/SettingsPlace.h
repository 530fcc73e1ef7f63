#pragma once

#include "platform/files/UserDefaults.h"

#include <cstdint>
#include <optional>

namespace zv {

/// How the settings window was left, among the user's settings: its size and its tab. Main
/// thread only.
class SettingsPlace {
public:
    /// In points, of the content.
    struct Size {
        std::int64_t width = 0;
        std::int64_t height = 0;
        friend bool operator==(Size const&, Size const&) = default;
    };

    explicit SettingsPlace(UserDefaults& defaults)
        : m_defaults(defaults)
    {
    }

    /// Nothing where none was kept, or one below the smallest that the window can have.
    [[nodiscard]] std::optional<Size> size(Size smallest) const;
    void keepSize(Size size);

    /// The first where the one that was kept is not among as many.
    [[nodiscard]] std::int64_t tab(std::int64_t count) const;
    void keepTab(std::int64_t tab);

private:
    void keep(char const* key, std::int64_t value);

    UserDefaults& m_defaults;
};

} // namespace zv
