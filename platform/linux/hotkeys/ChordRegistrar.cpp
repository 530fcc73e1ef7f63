#include "platform/linux/hotkeys/ChordRegistrar.h"

#include "base/MainThread.h"

#include <algorithm>
#include <set>
#include <utility>

namespace zv {

std::vector<bool> ChordRegistrar::claimAll(HotkeyID firstID, std::span<KeyChord const> chords)
{
    assertMainThread();
    std::set<KeyChord> const wanted(chords.begin(), chords.end());
    auto before = std::exchange(m_held, {});
    std::erase_if(before, [&](auto const& each) {
        auto const& [chord, held] = each;
        bool const stays = wanted.contains(chord) && nameOf(chord) == held.name;
        if (!stays)
            release(chord, held.name);
        return !stays;
    });
    std::vector<bool> answers;
    answers.reserve(chords.size());
    for (auto const& chord : chords) {
        auto const name = nameOf(chord);
        bool const succeeded = !m_held.contains(chord) && !name.isEmpty() && (before.contains(chord) || claim(chord, name));
        if (succeeded)
            m_held.emplace(chord, Held { name, firstID++ });
        answers.push_back(succeeded);
    }
    return answers;
}

void ChordRegistrar::releaseAll()
{
    for (auto const& [chord, held] : std::exchange(m_held, {}))
        release(chord, held.name);
}

void ChordRegistrar::pressed(KeyChord chord) const
{
    auto const held = m_held.find(chord);
    if (held != m_held.end() && onPressed)
        onPressed(held->second.id);
}

void ChordRegistrar::lost()
{
    m_held.clear();
    if (onInvalidated)
        onInvalidated();
}

} // namespace zv
