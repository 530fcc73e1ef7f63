#pragma once

#include "platform/linux/posix/SettingsKeys.h"
#include "platform/program/DesktopKey.h"

#include <string>

namespace zv {

/// Our entry among GNOME's custom shortcuts, which the desktop's own settings show, too. Others' entries stay as they are.
class GnomeKeyBinding : public DesktopKey {
public:
    struct Options {
        bool isGnome = false; ///< the running desktop
        std::string program; ///< the path that the key starts
        SettingsStore store;
    };

    explicit GnomeKeyBinding(Options options)
        : m_options(std::move(options))
    {
    }
    [[nodiscard]] State state() const override;
    [[nodiscard]] std::optional<std::string> holderOf(Combination const& combination) const override;
    bool set(std::optional<Combination> const& value) override;

private:
    [[nodiscard]] std::optional<SettingsKeys> list() const;
    [[nodiscard]] std::optional<SettingsKeys> entry(std::string const& path) const;

    Options m_options;
};

} // namespace zv
