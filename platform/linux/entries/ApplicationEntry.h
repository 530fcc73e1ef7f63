#pragma once

#include "platform/linux/entries/DesktopEntry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// An application entry (a .desktop file), as far as lists need it.
struct ApplicationEntry {
    std::string id; ///< "org.gnome.Nautilus.desktop"; folders below the search path become "folder-"
    std::string path;
    std::string name; ///< in the user's language; valid UTF-8
    std::string icon; ///< a theme icon's name or a path
    std::string exec;
    std::string tryExec;
    std::string startupWMClass;
    std::vector<std::string> categories;
    bool isForThisDesktop = true;
    bool noDisplay = false;
    bool isHidden = false; ///< the user deleted the entry
    bool isDBusActivatable = false;

    /// Whether it is neither hidden nor kept out of menus nor meant for another desktop.
    [[nodiscard]] bool isListed() const { return !isHidden && !noDisplay && isForThisDesktop; }
    [[nodiscard]] bool hasCategory(std::string_view category) const;
    /// The program of `exec`, "env" and its variables skipped; nothing when it cannot be parsed.
    [[nodiscard]] std::optional<std::string> program() const;
    /// The program that is missing for the entry to start; empty when none is.
    [[nodiscard]] std::string missingProgram() const;
};

/// Nothing when the file is no application entry, or too damaged. Any thread.
[[nodiscard]] std::optional<ApplicationEntry> readApplicationEntry(std::string const& path, std::string const& id, DesktopAudience const& audience);

/// The program of a command line, without a leading "env A=b"; nothing when its quotes are wrong.
[[nodiscard]] std::optional<std::string> programOfCommandLine(std::string const& commandLine);
/// Whether it is an executable file, given as an absolute path or as a name found in PATH.
[[nodiscard]] bool isInstalled(std::string const& program);

} // namespace zv
