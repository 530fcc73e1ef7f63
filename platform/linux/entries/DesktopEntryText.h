#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// Whom application entries are shown to.
struct DesktopAudience {
    std::vector<std::string> languages; ///< "de_AT", "de" …, the best first
    std::vector<std::string> desktops; ///< "ubuntu", "GNOME": the names that the desktop answers to

    /// The user's languages and desktop, from the environment.
    [[nodiscard]] static DesktopAudience current();
};

/// The little of an application entry (.desktop) that a listing needs. Reads any bytes.
struct DesktopEntryText {
    std::string name; ///< in the best language there is; valid UTF-8; empty when the file is no application entry
    bool isListed = true; ///< false when it is hidden, or meant for other desktops

    [[nodiscard]] static DesktopEntryText parse(std::string_view text, DesktopAudience const& audience);
    /// Reads no further than the main group, and never waits. `name` is relative to the open folder.
    [[nodiscard]] static DesktopEntryText read(int folder, char const* name, DesktopAudience const& audience);
};

} // namespace zv
