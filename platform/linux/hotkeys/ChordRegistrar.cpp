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
    auto const before = std::exchange(m_held, {});
    for (auto const& [chord, id] : before) {
        if (!wanted.contains(chord))
            release(chord);
    }
    std::vector<bool> answers;
    answers.reserve(chords.size());
    for (auto const& chord : chords) {
        bool const succeeded = !m_held.contains(chord) && (before.contains(chord) || claim(chord));
        if (succeeded)
            m_held.emplace(chord, firstID++);
        answers.push_back(succeeded);
    }
    return answers;
}

void ChordRegistrar::releaseAll()
{
    for (auto const& [chord, id] : std::exchange(m_held, {}))
        release(chord);
}

void ChordRegistrar::pressed(KeyChord chord) const
{
    auto const held = m_held.find(chord);
    if (held != m_held.end() && onPressed)
        onPressed(held->second);
}

void ChordRegistrar::lost()
{
    m_held.clear();
    if (onInvalidated)
        onInvalidated();
}

} // namespace zv
