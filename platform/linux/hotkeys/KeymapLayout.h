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
    std::vector<KeyTexts> layers() override
    {
        ensureRead();
        return m_layers;
    }
    [[nodiscard]] std::optional<XkbKeymap> const& keymap()
    {
        ensureRead();
        return m_keymap;
    }

    void use(XkbKeymap keymap)
    {
        m_keymap = std::move(keymap);
        readAgain();
    }
    void useGroup(std::uint32_t group)
    {
        if (std::exchange(m_group, group) != group)
            readAgain();
    }

private:
    /// Compiling the environment's keymap takes milliseconds, and where a server tells its own nobody asks for it.
    void ensureRead()
    {
        if (std::exchange(m_isRead, true))
            return;
        if (!m_keymap)
            m_keymap = XkbKeymap::named(nullptr);
        m_layers = layersNow();
    }
    void readAgain()
    {
        if (!m_isRead)
            return;
        auto layers = layersNow();
        if (std::exchange(m_layers, layers) != layers && onChanged)
            onChanged();
    }
    [[nodiscard]] std::vector<KeyTexts> layersNow() const { return m_keymap ? m_keymap->layers(m_group) : std::vector<KeyTexts>(); }

    std::optional<XkbKeymap> m_keymap;
    std::uint32_t m_group = 0;
    std::vector<KeyTexts> m_layers;
    bool m_isRead = false;
};

} // namespace zv
