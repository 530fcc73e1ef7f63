#pragma once

#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/menubar/KeyboardLayoutSource.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace zv::fakes {

/// Combinations in memory, some of which another program may hold.
class FakeHotkeyRegistrar : public HotkeyRegistrar {
public:
    std::vector<bool> claimAll(HotkeyID firstID, std::span<KeyChord const> chords) override
    {
        ++passes;
        held.clear();
        std::vector<bool> answers;
        for (auto const& chord : chords) {
            bool const isFree = !taken.contains(chord) && !holds(chord);
            if (isFree)
                held.emplace(firstID++, chord);
            answers.push_back(isFree);
        }
        return answers;
    }
    void releaseAll() override { held.clear(); }
    HotkeySupport support() const override { return supported; }
    bool isKeptBySystem(KeyChord chord) const override { return kept.contains(chord); }

    std::optional<KeyBindingLine> bindingLine(KeyChord chord, std::string const& command) const override
    {
        return supported == HotkeySupport::none ? std::optional(KeyBindingLine { "~/keys", std::to_string(chord.keyCode) + " " + command }) : std::nullopt;
    }

    bool holds(KeyChord chord) const
    {
        return std::ranges::any_of(held, [&](auto const& entry) { return entry.second == chord; });
    }

    std::map<HotkeyID, KeyChord> held;
    std::set<KeyChord> taken; ///< by another program
    std::set<KeyChord> kept; ///< by the system
    HotkeySupport supported = HotkeySupport::everywhere;
    int passes = 0;
};

/// A keyboard whose layouts a test lays down as code-to-text tables.
class FakeKeyboardLayoutSource : public KeyboardLayoutSource {
public:
    std::vector<KeyTexts> layers() override
    {
        ++readings;
        return layouts;
    }
    void set(std::vector<std::map<std::size_t, std::string>> const& tables)
    {
        layouts.clear();
        for (auto const& table : tables) {
            auto& texts = layouts.emplace_back();
            for (auto const& [code, text] : table)
                texts.at(code) = text;
        }
    }

    std::vector<KeyTexts> layouts;
    int readings = 0;
};

} // namespace zv::fakes
