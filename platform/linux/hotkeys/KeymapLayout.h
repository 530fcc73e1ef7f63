#pragma once

#include "platform/linux/hotkeys/XkbKeymap.h"
#include "platform/menubar/KeyboardLayoutSource.h"

#include <optional>
#include <utility>
#include <vector>

namespace zv {

/// The layout where no X server tells it: that of the environment, until a compositor tells its own.
class KeymapLayout : public KeyboardLayoutSource {
public:
    std::vector<KeyTexts> layers() override { return m_layers; }
    [[nodiscard]] std::optional<XkbKeymap> const& keymap() const { return m_keymap; }

    void use(XkbKeymap keymap)
    {
        m_keymap = std::move(keymap);
        read();
    }
    void useGroup(std::uint32_t group)
    {
        if (std::exchange(m_group, group) != group)
            read();
    }

private:
    [[nodiscard]] std::vector<KeyTexts> layersNow() const { return m_keymap ? m_keymap->layers(m_group) : std::vector<KeyTexts>(); }
    void read()
    {
        auto layers = layersNow();
        if (std::exchange(m_layers, layers) != layers && onChanged)
            onChanged();
    }

    std::optional<XkbKeymap> m_keymap = XkbKeymap::named(nullptr);
    std::uint32_t m_group = 0;
    std::vector<KeyTexts> m_layers = layersNow();
};

} // namespace zv
