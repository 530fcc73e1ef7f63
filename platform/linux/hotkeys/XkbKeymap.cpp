#include "platform/linux/hotkeys/XkbKeymap.h"

#include "platform/linux/hotkeys/VirtualKeys.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <bitset>

namespace zv {

namespace {

struct ContextUnref {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
};
struct StateUnref {
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
};
using Context = std::unique_ptr<xkb_context, ContextUnref>;
using State = std::unique_ptr<xkb_state, StateUnref>;

/// Shift and Control, by their bits in the core protocol.
constexpr std::uint16_t chordModifiers = 1 | 4;

/// A dead key types nothing by itself; its shortcut is its accent.
struct DeadKey {
    xkb_keysym_t symbol;
    char const* text;
};
/// XK_dead_… of X11/keysymdef.h.
constexpr DeadKey deadKeys[] = {
    { XKB_KEY_dead_grave, "`" },
    { XKB_KEY_dead_acute, "´" },
    { XKB_KEY_dead_circumflex, "^" },
    { XKB_KEY_dead_tilde, "~" },
    { XKB_KEY_dead_macron, "¯" },
    { XKB_KEY_dead_breve, "˘" },
    { XKB_KEY_dead_abovedot, "˙" },
    { XKB_KEY_dead_diaeresis, "¨" },
    { XKB_KEY_dead_abovering, "˚" },
    { XKB_KEY_dead_doubleacute, "˝" },
    { XKB_KEY_dead_caron, "ˇ" },
    { XKB_KEY_dead_cedilla, "¸" },
    { XKB_KEY_dead_ogonek, "˛" },
};

bool isControlCharacter(std::string const& text) { return text.size() == 1 && (static_cast<unsigned char>(text.front()) < 0x20 || text.front() == 0x7F); }

std::string textOf(xkb_keysym_t symbol)
{
    for (auto const& dead : deadKeys) {
        if (dead.symbol == symbol)
            return dead.text;
    }
    std::array<char, 8> buffer {};
    if (xkb_keysym_to_utf8(symbol, buffer.data(), buffer.size()) <= 0)
        return {};
    std::string text = buffer.data();
    return isControlCharacter(text) ? std::string() : text;
}

/// Whether the layout types nearly the whole alphabet, as some have a letter or two on other levels.
bool isLatin(KeyTexts const& texts)
{
    std::bitset<26> letters;
    for (auto const& text : texts) {
        if (text.size() == 1 && text.front() >= 'a' && text.front() <= 'z')
            letters.set(static_cast<std::size_t>(text.front() - 'a'));
    }
    return letters.count() >= 20;
}

KeyTexts usTexts()
{
    KeyTexts texts;
    for (auto const& key : virtualKeys())
        texts[key.code] = key.usText;
    return texts;
}

} // namespace

void XkbKeymap::Unref::operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }

std::optional<XkbKeymap> XkbKeymap::current(xcb_connection_t* connection, std::int32_t deviceID)
{
    Context const context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    if (!context)
        return std::nullopt;
    auto* keymap = xkb_x11_keymap_new_from_device(context.get(), connection, deviceID, XKB_KEYMAP_COMPILE_NO_FLAGS);
    return keymap ? std::optional(XkbKeymap(keymap)) : std::nullopt;
}

std::optional<XkbKeymap> XkbKeymap::named(char const* layouts)
{
    Context const context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    xkb_rule_names const names { "evdev", "pc105", layouts, layouts ? "" : nullptr, layouts ? "" : nullptr };
    auto* keymap = context ? xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS) : nullptr;
    return keymap ? std::optional(XkbKeymap(keymap)) : std::nullopt;
}

std::optional<XkbKeymap> XkbKeymap::fromText(std::string const& text)
{
    Context const context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    auto* keymap = context ? xkb_keymap_new_from_string(context.get(), text.c_str(), XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS) : nullptr;
    return keymap ? std::optional(XkbKeymap(keymap)) : std::nullopt;
}

XkbKeymap::XkbKeymap(xkb_keymap* keymap)
    : m_keymap(keymap)
    , m_keycodes(readKeycodes())
    , m_modifiers(readModifiers())
{
}

XKeycodes XkbKeymap::readKeycodes() const
{
    XKeycodes codes {};
    for (auto const& key : virtualKeys()) {
        auto const code = xkb_keymap_key_by_name(m_keymap.get(), key.xkbName);
        if (code <= 255) // excludes the invalid code, which is far above
            codes[key.code] = static_cast<std::uint8_t>(code);
    }
    return codes;
}

ModifierBits XkbKeymap::readModifiers() const
{
    ModifierBits bits { realModifiers("Super", XKB_MOD_NAME_LOGO), realModifiers("Alt", XKB_MOD_NAME_ALT), realModifiers("NumLock", XKB_MOD_NAME_NUM) };
    bits.scrollLock = modifiersOfKey(XKB_KEY_Scroll_Lock) & ~(bits.command | bits.option | chordModifiers);
    return bits;
}

/// The real modifiers that pressing the key sets; 0 on most keyboards for Scroll Lock, which has
/// no virtual modifier everywhere.
std::uint16_t XkbKeymap::modifiersOfKey(std::uint32_t symbol) const
{
    State const state(xkb_state_new(m_keymap.get()));
    for (auto code = xkb_keymap_min_keycode(m_keymap.get()); code <= xkb_keymap_max_keycode(m_keymap.get()); ++code) {
        if (xkb_state_key_get_one_sym(state.get(), code) != symbol)
            continue;
        xkb_state_update_key(state.get(), code, XKB_KEY_DOWN);
        return static_cast<std::uint16_t>(xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_EFFECTIVE) & 0xFF);
    }
    return 0;
}

/// The real modifier behind a virtual one; where the keymap maps none, the usual one.
std::uint16_t XkbKeymap::realModifiers(char const* name, char const* usual) const
{
    State const state(xkb_state_new(m_keymap.get()));
    for (auto const* candidate : { name, usual }) {
        auto const index = xkb_keymap_mod_get_index(m_keymap.get(), candidate);
        if (index == XKB_MOD_INVALID)
            continue;
        xkb_state_update_mask(state.get(), xkb_mod_mask_t { 1 } << index, 0, 0, 0, 0, 0);
        auto const real = xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_EFFECTIVE) & 0xFF;
        if (real != 0)
            return static_cast<std::uint16_t>(real);
    }
    return 0;
}

KeyTexts XkbKeymap::textsOfGroup(std::uint32_t group) const
{
    State const state(xkb_state_new(m_keymap.get()));
    xkb_state_update_mask(state.get(), 0, 0, 0, 0, 0, group);
    KeyTexts texts;
    for (std::size_t code = 0; code < texts.size(); ++code) {
        if (m_keycodes[code] != 0)
            texts[code] = textOf(xkb_state_key_get_one_sym(state.get(), m_keycodes[code]));
    }
    return texts;
}

std::string XkbKeymap::shiftedText(std::uint16_t virtualCode) const
{
    xkb_keysym_t const* symbols = nullptr;
    auto const code = virtualCode < m_keycodes.size() ? m_keycodes[virtualCode] : std::uint8_t { 0 };
    int const count = code == 0 ? 0 : xkb_keymap_key_get_syms_by_level(m_keymap.get(), code, 0, 1, &symbols);
    return count == 1 ? textOf(symbols[0]) : std::string();
}

std::vector<KeyTexts> XkbKeymap::layers(std::uint32_t group) const
{
    std::vector<KeyTexts> layers { textsOfGroup(group) };
    for (std::uint32_t each = 0; each < xkb_keymap_num_layouts(m_keymap.get()); ++each) {
        auto texts = each == group ? layers.front() : textsOfGroup(each);
        if (!isLatin(texts))
            continue;
        if (each != group)
            layers.push_back(std::move(texts));
        return layers;
    }
    layers.push_back(usTexts());
    return layers;
}

} // namespace zv
