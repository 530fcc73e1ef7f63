#include "platform/linux/hotkeys/GnomeKeyBinding.h"

#include "platform/linux/hotkeys/Accelerators.h"

#include <algorithm>

namespace zv {

namespace {

// org.gnome.settings-daemon.plugins.media-keys.gschema.xml of gnome-settings-daemon
constexpr char const* listSchema = "org.gnome.settings-daemon.plugins.media-keys";
constexpr char const* entrySchema = "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
constexpr char const* listKey = "custom-keybindings";
constexpr char const* ourPath = "/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/zanthe-vell/";

/// What else the Shell does at keys: lists of combinations, by what they are for.
constexpr char const* ownBindings[]
    = { "org.gnome.shell.keybindings", "org.gnome.desktop.wm.keybindings", "org.gnome.mutter.keybindings", "org.gnome.mutter.wayland.keybindings", listSchema };

std::optional<std::string> holderIn(SettingsKeys const& bindings, DesktopKey::Combination const& combination)
{
    for (auto const& key : bindings.listKeys()) {
        auto const texts = bindings.texts(key.c_str());
        if (std::ranges::any_of(texts, [&](auto const& text) { return combinationIn(text) == combination; }))
            return bindings.summaryOf(key.c_str());
    }
    return std::nullopt;
}

std::string commandOf(std::string const& program) { return taken(g_shell_quote(program.c_str())) + " show"; }

} // namespace

std::optional<SettingsKeys> GnomeKeyBinding::list() const
{
    return m_options.isGnome ? SettingsKeys::open(listSchema, nullptr, m_options.store) : std::nullopt;
}

std::optional<SettingsKeys> GnomeKeyBinding::entry(std::string const& path) const { return SettingsKeys::open(entrySchema, path.c_str(), m_options.store); }

DesktopKey::State GnomeKeyBinding::state() const
{
    auto const paths = list();
    auto const ours = paths ? entry(ourPath) : std::nullopt;
    if (!ours)
        return {};
    bool const isListed = std::ranges::count(paths->texts(listKey), std::string(ourPath)) != 0;
    return { .isOffered = true, .value = isListed ? combinationIn(ours->text("binding")) : std::nullopt };
}

std::optional<std::string> GnomeKeyBinding::holderOf(Combination const& combination) const
{
    auto const custom = list();
    for (auto const& path : custom ? custom->texts(listKey) : std::vector<std::string>()) {
        auto const other = path == ourPath ? std::nullopt : entry(path);
        if (other && combinationIn(other->text("binding")) == combination)
            return other->text("name");
    }
    for (auto const* schema : ownBindings) {
        auto const bindings = SettingsKeys::open(schema, nullptr, m_options.store);
        if (auto holder = bindings ? holderIn(*bindings, combination) : std::nullopt)
            return holder;
    }
    return std::nullopt;
}

bool GnomeKeyBinding::set(std::optional<Combination> const& value)
{
    auto const paths = list();
    auto const ours = paths ? entry(ourPath) : std::nullopt;
    auto const binding = value ? acceleratorFor(*value) : std::string();
    if (!ours || (value && binding.empty()))
        return false;
    auto listed = paths->texts(listKey);
    std::erase(listed, ourPath);
    if (!value) {
        bool const isOut = paths->setTexts(listKey, listed);
        for (auto const* key : { "name", "command", "binding" })
            ours->reset(key);
        return isOut;
    }
    listed.emplace_back(ourPath);
    return ours->setText("name", "Zanthe Vell") && ours->setText("command", commandOf(m_options.program)) && ours->setText("binding", binding)
        && paths->setTexts(listKey, listed);
}

} // namespace zv
