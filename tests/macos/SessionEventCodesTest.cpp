#include "platform/macos/session/SessionEventCodes.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(MacSessionEvents, AreThoseThatTheLoginWindowTakes)
{
    struct Row {
        SessionEvent event;
        std::uint32_t code;
    };
    Row const rows[] = {
        { SessionEvent::sleep, 0x736c6570 }, // slep
        { SessionEvent::askToRestart, 0x72727374 }, // rrst
        { SessionEvent::askToShutDown, 0x7273646e }, // rsdn
        { SessionEvent::askToLogOut, 0x6c6f676f }, // logo
        { SessionEvent::restart, 0x72657374 }, // rest
        { SessionEvent::shutDown, 0x73687574 }, // shut
        { SessionEvent::logOut, 0x726c676f }, // rlgo
    };
    for (auto const& row : rows)
        EXPECT_EQ(codeOf(row.event), row.code);
    EXPECT_EQ(sessionEventClass, 0x61657674u); // aevt
}

} // namespace
} // namespace zv
