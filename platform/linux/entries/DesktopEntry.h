#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zv {

/// The user and desktop that application entries are shown to.
struct DesktopAudience {
    std::vector<std::string> languages; ///< "de_AT", "de" …, the preferred first
    std::vector<std::string> desktops; ///< the names that the desktop answers to: "ubuntu", "GNOME"
};

/// The user's languages, the preferred first.
[[nodiscard]] std::vector<std::string> userLanguages();
/// The parts of XDG_CURRENT_DESKTOP ("ubuntu:GNOME").
[[nodiscard]] std::vector<std::string> desktopsNamed(std::string_view colonSeparated);

/// The main group of an application entry (.desktop):
/// https://specifications.freedesktop.org/desktop-entry-spec. Reads any bytes; malformed lines
/// are skipped. Views into the text, which outlives it.
class DesktopEntry {
public:
    explicit DesktopEntry(std::string_view text);

    /// Whether the text has a main group with any content.
    [[nodiscard]] bool isThere() const { return !m_lines.empty(); }
    /// Whether another group has begun after the main one: the rest of the text is not needed.
    [[nodiscard]] bool isEnded() const { return m_isEnded; }
    /// The unescaped value; empty without the key. The bytes are the file's, perhaps not UTF-8.
    [[nodiscard]] std::string text(std::string_view key) const;
    /// The value in the best available language.
    [[nodiscard]] std::string translated(std::string_view key, std::vector<std::string> const& languages) const;
    [[nodiscard]] bool flag(std::string_view key) const;
    [[nodiscard]] bool has(std::string_view key) const { return value(key).has_value(); }
    [[nodiscard]] std::vector<std::string> list(std::string_view key) const;

    /// Whether OnlyShowIn and NotShowIn admit the desktops; the first desktop that either names decides.
    [[nodiscard]] bool isMeantFor(std::vector<std::string> const& desktops) const;
    /// Whether it is neither hidden nor kept out of menus nor meant for another desktop.
    [[nodiscard]] bool isListed(std::vector<std::string> const& desktops) const;

private:
    [[nodiscard]] std::optional<std::string_view> value(std::string_view key) const;

    std::vector<std::pair<std::string_view, std::string_view>> m_lines;
    bool m_isEnded = false;
};

/// The entry's text up to the end of its main group; empty when it cannot be read. Never waits.
/// `name` is relative to the open folder.
[[nodiscard]] std::string readDesktopEntry(int folder, char const* name);

} // namespace zv
