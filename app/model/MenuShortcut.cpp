#include "app/model/MenuShortcut.h"

#include "base/Log.h"
#include "base/MainThread.h"

#include <utility>

namespace zv {

namespace {

constexpr int valueProperty = 0;

} // namespace

MenuShortcut::MenuShortcut(UserDefaults& defaults)
    : m_defaults(defaults)
    , m_value(stored())
{
    assertMainThread();
}

std::optional<KeyEquivalentSpec> const& MenuShortcut::value() const
{
    m_registrar.access(valueProperty);
    return m_value;
}

void MenuShortcut::set(std::optional<KeyEquivalentSpec> value)
{
    assertMainThread();
    if (value == m_value || m_defaults.isLocked(defaultsKey))
        return;
    m_value = std::move(value);
    if (m_value)
        m_defaults.keep(defaultsKey, m_value->toPropertyList());
    else if (auto const removed = m_defaults.removeObject(defaultsKey); !removed)
        logLine("could not forget the menu's shortcut: " + removed.error());
    m_registrar.changed(valueProperty);
}

void MenuShortcut::reload()
{
    auto value = stored();
    if (std::exchange(m_value, std::move(value)) != m_value)
        m_registrar.changed(valueProperty);
}

std::optional<KeyEquivalentSpec> MenuShortcut::stored() const
{
    auto const kept = m_defaults.object(defaultsKey);
    if (!kept)
        return std::nullopt;
    auto const spec = KeyEquivalentSpec::fromPropertyList(*kept);
    return spec ? std::optional(*spec) : std::nullopt;
}

} // namespace zv
