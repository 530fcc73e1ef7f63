#pragma once

#include "platform/program/Installation.h"

#include <functional>
#include <string>

namespace zv {

/// The program's place on a Linux machine, and its move to where programs belong. The "bundle" is
/// an AppImage file, an AppDir folder or the program's own file.
class LinuxInstallation : public Installation {
public:
    struct Options {
        std::string mountInfo = "/proc/self/mountinfo";
        std::string systemFolder = "/usr/local/bin"; ///< for all users
        std::string userFolder; ///< ~/.local/bin
        std::string systemApplications = "/usr/local/share/applications"; ///< application entries
        std::string userApplications; ///< $XDG_DATA_HOME/applications
        std::string temporaryFolder = "/tmp";
        std::string resources; ///< the running program's; move with a program that is a single file
        std::string entryNotWritten; ///< the message for an application entry that could not be written
        bool isMountedAppImage = false; ///< $APPIMAGE is set
        std::function<void()> giveWay; ///< releases this process's claim to be the running program
    };

    explicit LinuxInstallation(Options options)
        : m_options(std::move(options))
    {
    }

    /// The file or folder that the process was started from: $APPIMAGE, the enclosing AppDir, or
    /// the executable itself.
    [[nodiscard]] static Url runningBundle(Environment const& environment);

    RelocationSource source(Url const& bundle) const override;
    std::optional<Url> applicationsFolder() override;
    Result<Url> makeReplacementFolder(Url const& destination) override;
    Result<void> copy(Url const& from, Url const& to) override;
    Result<void> put(Url const& from, Url const& to) override;
    void removeFolder(Url const& folder) override;
    Result<void> announce(Url const& installed) override;
    void giveWay() override;

private:
    [[nodiscard]] Result<void> copyResources(Url const& installed) const;
    [[nodiscard]] Result<void> writeEntry(Url const& installed) const;

    Options m_options;
};

} // namespace zv
