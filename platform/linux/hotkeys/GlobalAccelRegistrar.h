#pragma once

#include "platform/linux/hotkeys/BusChordRegistrar.h"

#include <functional>
#include <string>

namespace zv {

/// Hotkeys by KDE's own service, which needs no word of the user's and tells at once what
/// another program holds. Main thread only.
class GlobalAccelRegistrar : public BusChordRegistrar {
public:
    /// The text that a key types with Shift; empty for none.
    using ShiftedText = std::function<std::string(std::uint16_t keyCode)>;

    /// The layout outlives this.
    GlobalAccelRegistrar(QDBusConnection const& bus, KeyboardLayoutSource& layout, ShiftedText shifted);
    ~GlobalAccelRegistrar() override { releaseAll(); }

    /// Whether the service runs.
    [[nodiscard]] static bool isThere(QDBusConnection const& bus);

protected:
    QString nameOf(KeyChord chord) const override;
    bool claim(KeyChord chord, QString const& name) override;
    void release(KeyChord chord, QString const& name) override;
    void heard(QVariantList const& arguments) override;

private:
    [[nodiscard]] int keyOf(KeyChord chord) const;

    ShiftedText m_shifted;
};

} // namespace zv
