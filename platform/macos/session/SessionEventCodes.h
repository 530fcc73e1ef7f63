#pragma once

#include "platform/session/SessionEvents.h"

#include <cstdint>
#include <string_view>

namespace zv {

/// The code of four ASCII characters, the first in the highest byte, that names an Apple event.
[[nodiscard]] constexpr std::uint32_t fourCharCode(std::string_view text)
{
    std::uint32_t code = 0;
    for (char const c : text)
        code = code << 8 | static_cast<unsigned char>(c);
    return code;
}

inline constexpr std::uint32_t sessionEventClass = fourCharCode("aevt");

[[nodiscard]] constexpr std::uint32_t codeOf(SessionEvent event)
{
    switch (event) {
    case SessionEvent::sleep:
        return fourCharCode("slep");
    case SessionEvent::askToRestart:
        return fourCharCode("rrst");
    case SessionEvent::askToShutDown:
        return fourCharCode("rsdn");
    case SessionEvent::askToLogOut:
        return fourCharCode("logo");
    case SessionEvent::restart:
        return fourCharCode("rest");
    case SessionEvent::shutDown:
        return fourCharCode("shut");
    case SessionEvent::logOut:
        return fourCharCode("rlgo");
    }
    return 0;
}

} // namespace zv
