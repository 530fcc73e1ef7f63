#include "platform/linux/posix/XdgDirectories.h"

#include "base/Split.h"

#include <algorithm>
#include <pwd.h>
#include <string_view>
#include <unistd.h>

namespace zv {

namespace {

std::string homeOfAccount()
{
    std::vector<char> buffer(16384);
    passwd entry {};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found && found->pw_dir && *found->pw_dir == '/')
        return found->pw_dir;
    return "/";
}

/// The path without redundant slashes, so that equal places are equal texts. Empty unless absolute.
std::string absolutePath(std::string_view value)
{
    if (!value.starts_with('/'))
        return {};
    std::string path;
    for (auto const component : split(value, '/'))
        path += "/" + std::string(component);
    return path.empty() ? "/" : path;
}

std::vector<std::string> absolutePaths(std::string_view list)
{
    std::vector<std::string> paths;
    for (auto const value : split(list, ':')) {
        auto path = absolutePath(value);
        if (!path.empty() && std::ranges::find(paths, path) == paths.end())
            paths.push_back(std::move(path));
    }
    return paths;
}

class Reader {
public:
    explicit Reader(Environment const& environment)
        : m_environment(environment)
        , m_home(path("HOME", homeOfAccount()))
    {
    }

    [[nodiscard]] std::string const& home() const { return m_home; }
    [[nodiscard]] std::string path(char const* variable, std::string const& otherwise) const
    {
        auto path = absolutePath(value(variable));
        return path.empty() ? otherwise : path;
    }
    [[nodiscard]] std::string inHome(char const* variable, std::string_view folder) const
    {
        return path(variable, (m_home == "/" ? std::string() : m_home) + "/" + std::string(folder));
    }
    [[nodiscard]] std::vector<std::string> paths(char const* variable, std::string_view otherwise) const
    {
        auto paths = absolutePaths(value(variable));
        return paths.empty() ? absolutePaths(otherwise) : paths;
    }

private:
    [[nodiscard]] std::string value(char const* variable) const { return valueOf(m_environment, variable); }

    Environment const& m_environment;
    std::string m_home;
};

} // namespace

XdgDirectories XdgDirectories::of(Environment const& environment)
{
    Reader const reader(environment);
    return {
        reader.home(),
        reader.inHome("XDG_CONFIG_HOME", ".config"),
        reader.inHome("XDG_DATA_HOME", ".local/share"),
        reader.inHome("XDG_CACHE_HOME", ".cache"),
        reader.inHome("XDG_STATE_HOME", ".local/state"),
        reader.path("XDG_RUNTIME_DIR", ""),
        reader.paths("XDG_DATA_DIRS", "/usr/local/share:/usr/share"),
        reader.paths("XDG_CONFIG_DIRS", "/etc/xdg"),
    };
}

std::vector<std::string> XdgDirectories::applicationFolders() const
{
    std::vector<std::string> folders { data + "/applications" };
    for (auto const& folder : dataDirs)
        folders.push_back(folder + "/applications");
    return folders;
}

} // namespace zv
