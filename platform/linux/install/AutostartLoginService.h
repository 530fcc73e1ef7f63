#pragma once

#include "base/Url.h"
#include "platform/program/LoginService.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

/// Opening at login by an entry in the user's autostart folder. An entry that the desktop
/// switched off (Hidden=true, or X-GNOME-Autostart-enabled=false) waits for approval: it stays as
/// the user set it. One that would not start the program, by Exec, TryExec or OnlyShowIn, counts as none.
class AutostartLoginService : public LoginService {
public:
    struct Options {
        std::string configHome; ///< $XDG_CONFIG_HOME
        std::string program; ///< path to start
        std::vector<std::string> desktops; ///< as the session names itself
        /// Starts the first of the desktop's own autostart settings that is installed; false when none is.
        std::function<bool()> openDesktopSettings;
        std::function<void(Url const&)> openFolder; ///< opens a folder, the fallback
    };

    explicit AutostartLoginService(Options options)
        : m_options(std::move(options))
    {
    }

    Status status() const override;
    Result<void, Error> registerService() override;
    Result<void, Error> unregisterService() override;
    void openSystemSettings() override;
    /// Writes an entry anew that was switched on, and whose program is no longer there: this one was moved.
    void mend();

private:
    enum class Start { absent, switchedOff, elsewhere, lost, sure };
    [[nodiscard]] Start start() const;
    [[nodiscard]] std::string folder() const;
    [[nodiscard]] std::string entryPath() const;

    Options m_options;
};

} // namespace zv
