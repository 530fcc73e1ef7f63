#pragma once

#include "platform/program/Environment.h"

#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The installed programs. Any thread; starting one blocks for a moment.
class Programs {
public:
    virtual ~Programs() = default;
    [[nodiscard]] virtual bool has(std::string_view name) const = 0;
    /// `command` is the program's name, looked up as by a shell, and its arguments. False when
    /// the program is missing, or fails at once.
    [[nodiscard]] virtual bool start(std::vector<std::string> const& command) = 0;
    /// Whether an application entry of that file name ("org.gnome.Terminal.desktop") is installed.
    [[nodiscard]] virtual bool hasEntry(std::string_view fileName) const = 0;
};

/// Programs in the folders of PATH.
class PathPrograms : public Programs {
public:
    /// `environment` is passed to started programs.
    PathPrograms(Environment environment, std::vector<std::string> applicationFolders);

    bool has(std::string_view name) const override;
    bool start(std::vector<std::string> const& command) override;
    bool hasEntry(std::string_view fileName) const override;

private:
    [[nodiscard]] std::string find(std::string_view name) const;

    Environment m_environment;
    std::vector<std::string> m_applicationFolders;
};

} // namespace zv
