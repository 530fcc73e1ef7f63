#include "app/settings/DesktopKeyRows.h"

#include "app/menu/DisplayText.h"
#include "app/model/KeyCombination.h"
#include "base/Translation.h"

namespace zv {

using Kind = SettingsRow::Kind;

void DesktopKeyRows::addTo(SettingsSection& section)
{
    auto const set = m_services.key.state().value;
    auto const value = set ? std::optional(specOf(*set)) : std::nullopt;
    section.rows.push_back(
        { .kind = Kind::shortcut, .id = "desktopKey", .title = tr("Open by a key of GNOME"), .shortcut = value, .record = [this](auto const& spec) {
             record(spec);
         } });
    section.rows.push_back({ .id = "desktopKeyNote", .title = note(value) });
}

std::string DesktopKeyRows::note(std::optional<KeyEquivalentSpec> const& value) const
{
    if (m_holder)
        return tr("%1 has this combination. Record a different one.", quoted(displayText(*m_holder)));
    if (!value)
        return tr("A key that you record here is added to GNOME’s own settings (Keyboard, Custom Shortcuts), and opens the menu whatever program is in front.");
    auto const warning = m_services.warning ? m_services.warning(*value) : std::string();
    return warning.empty() ? tr("GNOME’s own settings have this key for the menu. “Clear” takes it out again.") : warning;
}

void DesktopKeyRows::record(std::optional<KeyEquivalentSpec> const& spec)
{
    auto const wanted = spec ? std::optional(combinationOf(*spec)) : std::nullopt;
    m_holder = wanted ? m_services.key.holderOf(*wanted) : std::nullopt;
    if (!m_holder && !m_services.key.set(wanted))
        m_services.alerts.run({ AlertStyle::warning, tr("GNOME’s settings could not be changed."), {} });
    m_services.tellChanged();
}

} // namespace zv
