#pragma once

#include "base/Notifications.h"
#include "platform/desk/KeyPress.h"
#include "platform/menubar/KeyboardLayoutSource.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zv {

/// Finds the key that types a character without modifiers. The table is built on the first query
/// and dropped when the user selects another layout. Main thread only.
class KeyboardLayout {
public:
    /// Posted once for each change of the layout.
    static constexpr std::string_view changedNotification = "ZantheVell.keyboardLayoutChanged";

    /// Both outlive this.
    KeyboardLayout(KeyboardLayoutSource& source, Notifications& notifications);
    ~KeyboardLayout();
    KeyboardLayout(KeyboardLayout const&) = delete;
    KeyboardLayout& operator=(KeyboardLayout const&) = delete;

    /// Empty when no key types the character without modifiers.
    [[nodiscard]] std::optional<std::uint16_t> keyCode(std::string_view character);
    /// What the key stands for in shortcuts, as in MenuEntry::keyEquivalent: the inverse of keyCode(),
    /// and the named keys. Where the key's place is unknown, what it types.
    [[nodiscard]] std::vector<std::string> keyEquivalents(KeyPress const& press);
    /// Drops the table and posts the notification.
    void layoutChanged();

private:
    using Table = std::unordered_map<std::string, std::uint16_t>;

    [[nodiscard]] Table const& table();
    void observeSource();
    [[nodiscard]] Table buildTable() const;

    KeyboardLayoutSource& m_source;
    Notifications& m_notifications;
    std::optional<Table> m_table;
    bool m_observesSource = false;
};

} // namespace zv
