#pragma once

#include "platform/program/DesktopExtension.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

/// Our extension of GNOME Shell (packaging/linux/gnome-extension). There is one for each kind of Shell; all are switched
/// together, as a Shell loads its own alone, and is exchanged for a newer one some day.
class GnomeExtension : public DesktopExtension {
public:
    struct Options {
        std::vector<std::string> dataFolders; ///< with "gnome-shell/extensions" in them
        std::function<bool()> isRunning; ///< whether it answers on the session's bus
    };

    explicit GnomeExtension(Options options)
        : m_options(std::move(options))
    {
    }
    [[nodiscard]] State state() const override;
    bool switchTo(bool on) override;

private:
    [[nodiscard]] std::vector<std::string> installed() const;

    Options m_options;
};

} // namespace zv
