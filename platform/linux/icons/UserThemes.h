#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace zv {

/// Where the toolkit looks for themes, and for icons outside of them. Main thread only.
[[nodiscard]] std::vector<std::string> iconSearchPaths();

/// The folders of icon themes that do not belong to the system: anybody's pictures may lie there, and
/// the toolkit opens them without a look. Main thread only.
class UserThemes {
public:
    explicit UserThemes(uid_t system = 0)
        : m_system(system)
    {
    }

    /// The files that the toolkit may take for the name, under each name that it falls back to.
    [[nodiscard]] std::vector<std::string> filesOf(std::string_view name);

private:
    void find(std::vector<std::string> const& searchPaths);

    uid_t m_system;
    std::vector<std::string> m_searched;
    std::vector<std::string> m_folders; ///< those that hold pictures
};

} // namespace zv
