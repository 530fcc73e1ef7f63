#pragma once

#include "platform/linux/hotkeys/BusChordRegistrar.h"

namespace zv {

/// Hotkeys by our extension of GNOME Shell (packaging/linux/gnome-extension), which grabs them
/// and tells at once what somebody has already. Main thread only.
class GnomeHotkeyRegistrar : public BusChordRegistrar {
public:
    /// The layout outlives this.
    GnomeHotkeyRegistrar(QDBusConnection const& bus, KeyboardLayoutSource& layout);
    ~GnomeHotkeyRegistrar() override { releaseAll(); }

    /// Whether the extension is switched on.
    [[nodiscard]] static bool isThere(QDBusConnection const& bus);

protected:
    QString nameOf(KeyChord chord) const override;
    bool claim(KeyChord chord, QString const& name) override;
    void release(KeyChord chord, QString const& name) override;
    void heard(QVariantList const& arguments) override;
};

} // namespace zv
