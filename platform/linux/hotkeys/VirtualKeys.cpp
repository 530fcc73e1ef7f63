#include "platform/linux/hotkeys/VirtualKeys.h"

#include <algorithm>
#include <iterator>

namespace zv {

namespace {

/// The model's numbers are kVK_… of Apple's HIToolbox/Events.h; the names of places are those of
/// keycodes/evdev of https://gitlab.freedesktop.org/xkeyboard-config/xkeyboard-config.
// clang-format off
constexpr VirtualKey keys[] = {
    { 0, "AC01", "a" },
    { 1, "AC02", "s" },
    { 2, "AC03", "d" },
    { 3, "AC04", "f" },
    { 4, "AC06", "h" },
    { 5, "AC05", "g" },
    { 6, "AB01", "z" },
    { 7, "AB02", "x" },
    { 8, "AB03", "c" },
    { 9, "AB04", "v" },
    { 10, "LSGT", "" },
    { 11, "AB05", "b" },
    { 12, "AD01", "q" },
    { 13, "AD02", "w" },
    { 14, "AD03", "e" },
    { 15, "AD04", "r" },
    { 16, "AD06", "y" },
    { 17, "AD05", "t" },
    { 18, "AE01", "1" },
    { 19, "AE02", "2" },
    { 20, "AE03", "3" },
    { 21, "AE04", "4" },
    { 22, "AE06", "6" },
    { 23, "AE05", "5" },
    { 24, "AE12", "=" },
    { 25, "AE09", "9" },
    { 26, "AE07", "7" },
    { 27, "AE11", "-" },
    { 28, "AE08", "8" },
    { 29, "AE10", "0" },
    { 30, "AD12", "]" },
    { 31, "AD09", "o" },
    { 32, "AD07", "u" },
    { 33, "AD11", "[" },
    { 34, "AD08", "i" },
    { 35, "AD10", "p" },
    { 36, "RTRN", "" },
    { 37, "AC09", "l" },
    { 38, "AC07", "j" },
    { 39, "AC11", "'" },
    { 40, "AC08", "k" },
    { 41, "AC10", ";" },
    { 42, "BKSL", "\\" },
    { 43, "AB08", "," },
    { 44, "AB10", "/" },
    { 45, "AB06", "n" },
    { 46, "AB07", "m" },
    { 47, "AB09", "." },
    { 48, "TAB", "" },
    { 49, "SPCE", " " },
    { 50, "TLDE", "`" },
    { 51, "BKSP", "" },
    { 53, "ESC", "" },
    { 64, "FK17", "" },
    { 65, "KPDL", "" },
    { 67, "KPMU", "*" },
    { 69, "KPAD", "+" },
    { 71, "NMLK", "" },
    { 75, "KPDV", "/" },
    { 76, "KPEN", "" },
    { 78, "KPSU", "-" },
    { 79, "FK18", "" },
    { 80, "FK19", "" },
    { 81, "KPEQ", "=" },
    { 82, "KP0", "" },
    { 83, "KP1", "" },
    { 84, "KP2", "" },
    { 85, "KP3", "" },
    { 86, "KP4", "" },
    { 87, "KP5", "" },
    { 88, "KP6", "" },
    { 89, "KP7", "" },
    { 90, "FK20", "" },
    { 91, "KP8", "" },
    { 92, "KP9", "" },
    { 93, "AE13", "" },
    { 94, "AB11", "" },
    { 96, "FK05", "" },
    { 97, "FK06", "" },
    { 98, "FK07", "" },
    { 99, "FK03", "" },
    { 100, "FK08", "" },
    { 101, "FK09", "" },
    { 103, "FK11", "" },
    { 105, "FK13", "" },
    { 106, "FK16", "" },
    { 107, "FK14", "" },
    { 109, "FK10", "" },
    { 111, "FK12", "" },
    { 113, "FK15", "" },
    { 114, "HELP", "" },
    { 115, "HOME", "" },
    { 116, "PGUP", "" },
    { 117, "DELE", "" },
    { 118, "FK04", "" },
    { 119, "END", "" },
    { 120, "FK02", "" },
    { 121, "PGDN", "" },
    { 122, "FK01", "" },
    { 123, "LEFT", "" },
    { 124, "RGHT", "" },
    { 125, "DOWN", "" },
    { 126, "UP", "" },
};
// clang-format on

} // namespace

std::span<VirtualKey const> virtualKeys() { return keys; }

bool switchesTerminal(KeyChord chord)
{
    auto const isFunctionKey = [&](VirtualKey const& key) {
        std::string_view const name = key.xkbName;
        return key.code == chord.keyCode && name >= "FK01" && name <= "FK12";
    };
    return chord.modifiers == (controlKey | optionKey) && std::any_of(std::begin(keys), std::end(keys), isFunctionKey);
}

} // namespace zv
