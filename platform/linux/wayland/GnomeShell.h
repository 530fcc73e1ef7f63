#pragma once

#include "platform/linux/apps/ClientWindows.h"

#include <QDBusConnection>
#include <QPoint>

#include <memory>
#include <optional>

namespace zv {

/// What our extension of GNOME Shell (packaging/linux/gnome-extension) tells: nothing of it where
/// the extension is not switched on.
class GnomeShell {
public:
    /// Null without the extension.
    [[nodiscard]] static std::unique_ptr<ClientWindows> windowsOn(QDBusConnection const& bus);
    /// The pointer's place in the work area; waits briefly for the answer.
    [[nodiscard]] static std::optional<QPoint> pointerOn(QDBusConnection const& bus);
};

/// The windows where only the desktop's own programs know them: KWin, or GNOME Shell with our
/// extension. Null elsewhere.
[[nodiscard]] std::unique_ptr<ClientWindows> windowsOnBus(QDBusConnection const& bus);

} // namespace zv
