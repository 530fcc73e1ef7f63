#include "app/hotkeys/KeyboardLayout.h"

#include "app/menu/MenuKeyEquivalent.h"
#include "base/MainThread.h"
#include "platform/text/Text.h"

#include <utility>

namespace zv {

namespace {

/// Empty for a key that types nothing or white space.
std::string_view typedCharacter(std::string const& text)
{
    auto const first = firstGraphemes(text, 1);
    return first.empty() || isWhiteSpace(first.front()) ? std::string_view() : first.front();
}

} // namespace

KeyboardLayout::KeyboardLayout(KeyboardLayoutSource& source, Notifications& notifications)
    : m_source(source)
    , m_notifications(notifications)
{
}

KeyboardLayout::~KeyboardLayout()
{
    if (m_observesSource)
        m_source.onChanged = nullptr;
}

std::optional<std::uint16_t> KeyboardLayout::keyCode(std::string_view character)
{
    assertMainThread();
    auto const wanted = lowerCased(character);
    if (wanted.empty())
        return std::nullopt;
    auto const found = table().find(wanted);
    return found == m_table->end() ? std::nullopt : std::optional(found->second);
}

std::vector<std::string> KeyboardLayout::keyEquivalents(KeyPress const& press)
{
    assertMainThread();
    if (auto const name = namedKeyWithCode(press.keyCode))
        return { keyEquivalentCharacter(*name).value_or(std::string()) };
    if (press.keyCode >= keyCodeCount)
        return { lowerCased(press.charactersIgnoringModifiers) };
    std::vector<std::string> characters;
    for (auto const& [character, code] : table()) {
        if (code == press.keyCode)
            characters.push_back(character);
    }
    return characters;
}

void KeyboardLayout::layoutChanged()
{
    assertMainThread();
    m_table.reset();
    m_notifications.post(changedNotification);
}

KeyboardLayout::Table const& KeyboardLayout::table()
{
    if (!m_table) {
        observeSource();
        m_table = buildTable();
    }
    return *m_table;
}

void KeyboardLayout::observeSource()
{
    if (std::exchange(m_observesSource, true))
        return;
    m_source.onChanged = [this] { layoutChanged(); };
}

/// Prefers the earlier layer, then the lowest key code, for each character.
KeyboardLayout::Table KeyboardLayout::buildTable() const
{
    Table table;
    for (auto const& texts : m_source.layers()) {
        for (std::size_t code = 0; code < texts.size(); ++code) {
            if (auto const character = typedCharacter(texts[code]); !character.empty())
                table.try_emplace(std::string(character), static_cast<std::uint16_t>(code));
        }
    }
    return table;
}

} // namespace zv
