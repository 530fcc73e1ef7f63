#pragma once

#include "app/model/MenuItemKind.h"
#include "base/Url.h"
#include "platform/files/UserDefaults.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The entries that the user keeps at the top of the lists of recent things, each in the list where it was kept, in the
/// order of keeping. They are one more value among the preferences, which other versions leave as it is; records that
/// this version cannot read stay, too. Main thread only.
class KeptEntries {
public:
    static constexpr std::string_view defaultsKey = "KeptInMenu";
    static constexpr std::size_t capacity = 100; ///< shown of a list

    /// `defaults` outlives this.
    explicit KeptEntries(UserDefaults& defaults)
        : m_defaults(defaults)
    {
    }

    [[nodiscard]] std::vector<Url> of(MenuItemKind::Case list) const;
    [[nodiscard]] bool has(MenuItemKind::Case list, Url const& url) const;
    /// Keeps the entry, or lets it go.
    void toggle(MenuItemKind::Case list, Url const& url);
    /// The files in a stored value, and the value with each file's path as `path` gives it.
    [[nodiscard]] static std::vector<Url> files(PropertyList const& stored);
    [[nodiscard]] static PropertyList moved(PropertyList const& stored, std::function<std::string(std::string const&)> const& path);
    /// True where an administrator fixed what is kept.
    [[nodiscard]] bool isLocked() const { return m_defaults.isLocked(defaultsKey); }

private:
    [[nodiscard]] PropertyListArray records() const;

    UserDefaults& m_defaults;
};

} // namespace zv
