#include "platform/linux/session/PosixToolRunner.h"

#include "app/actions/ShortcutsProvider.h"
#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zv {
namespace {

using End = ToolResult::End;
using namespace std::chrono_literals;

struct PosixToolRunnerTest : testing::Test {
    ToolResult shell(std::string const& script, ToolOutput output = ToolOutput::captured, std::optional<std::chrono::milliseconds> timeout = {})
    {
        return runner.run({ "/bin/sh", { "-c", script }, output, timeout });
    }
    PosixToolRunner runner { { { "PATH", "/usr/bin:/bin" }, { "ZV_GIVEN", "two words" } } };
};

TEST_F(PosixToolRunnerTest, GivesTheToolTheEnvironmentThatItWasGiven)
{
    ::setenv("ZV_NOT_GIVEN", "x", 1);
    EXPECT_EQ(shell("echo \"$ZV_GIVEN$ZV_NOT_GIVEN\"").output, "two words\n");
}

TEST_F(PosixToolRunnerTest, KeepsTheTwoStreamsApartOrTogether)
{
    struct Row {
        ToolOutput output;
        std::string text, errors;
    };
    Row const rows[] = {
        { ToolOutput::captured, "out\n", "err\n" },
        { ToolOutput::discarded, "", "err\n" },
        { ToolOutput::capturedWithErrors, "out\nerr\n", "" },
    };
    for (auto const& row : rows) {
        auto const result = shell("echo out; echo err >&2; exit 3", row.output);
        EXPECT_EQ(result.end, End::exited);
        EXPECT_EQ(result.status, 3);
        EXPECT_EQ(result.output, row.text);
        EXPECT_EQ(result.errorOutput, row.errors);
    }
}

TEST_F(PosixToolRunnerTest, HandsArgumentsOnUntouched)
{
    auto const result = runner.run({ "/usr/bin/printf", { "%s|", "a b", "", "$HOME", "\"q\"", "-n", "\xff" } });
    EXPECT_EQ(result.output, "a b||$HOME|\"q\"|-n|\xff|");
}

TEST_F(PosixToolRunnerTest, ReadsMegabytesFromBothStreamsWithoutDeadlock)
{
    auto const result = shell("head -c 8000000 /dev/zero >&2; head -c 8000000 /dev/zero; head -c 8000000 /dev/zero >&2");
    EXPECT_EQ(result.end, End::exited);
    EXPECT_EQ(result.output.size(), 8'000'000u);
    EXPECT_EQ(result.errorOutput.size(), 16'000'000u);
}

TEST_F(PosixToolRunnerTest, GivesTheNullDeviceAsStandardInput) { EXPECT_EQ(shell("cat; readlink /proc/self/fd/0").output, "/dev/null\n"); }

TEST_F(PosixToolRunnerTest, HandsOnNeitherDescriptorsNorBlockedSignals)
{
    int const inheritable = ::open("/proc/self/status", O_RDONLY);
    sigset_t blocked;
    sigset_t before;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGUSR1);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
    EXPECT_EQ(shell("ls /proc/self/fd").output, "0\n1\n2\n3\n") << "3 is ls reading that folder";
    auto const mask = runner.run({ "/usr/bin/grep", { "SigBlk", "/proc/self/status" } }); // a shell would clear its own
    EXPECT_EQ(mask.output, "SigBlk:\t0000000000000000\n");
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    ::close(inheritable);
}

TEST_F(PosixToolRunnerTest, AHangingToolIsEndedWithAllItStarted)
{
    struct Row {
        std::string script, why;
    };
    Row const rows[] = {
        { "exec sleep 600", "hangs" },
        { "sleep 600 & sleep 600", "its child holds the pipes too" },
        { "exec >&- 2>&-; exec sleep 600", "closed its output and hangs" },
        { "trap 'exit 0' TERM; while :; do sleep 0.01; done", "answers the signal by exiting" },
        { "trap '' TERM; while :; do sleep 0.01; done", "ignores the request" },
        { "while :; do echo flood; done", "never stops writing" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(shell(row.script, ToolOutput::captured, 100ms).end, End::signalled);
    }
}

TEST_F(PosixToolRunnerTest, WhatALongGoneToolLeftBehindDoesNotHoldTheResult)
{
    auto const result = shell("sleep 600 & echo done; exit 7", ToolOutput::captured, 100ms);
    EXPECT_EQ(result.end, End::exited) << "the tool itself was not ended";
    EXPECT_EQ(result.status, 7);
    EXPECT_EQ(result.output, "done\n");
}

TEST_F(PosixToolRunnerTest, ASignalOfAnyOriginIsTold)
{
    auto const result = shell("kill -SEGV $$");
    EXPECT_EQ(result.end, End::signalled);
    EXPECT_EQ(result.status, SIGSEGV);
}

TEST_F(PosixToolRunnerTest, SaysWhatCannotBeStarted)
{
    tests::TemporaryFolder const folder;
    auto const make = [&](std::string const& name, std::string const& text, int mode) {
        std::filesystem::permissions(folder.write(name, text), std::filesystem::perms(mode));
        return folder.path(name);
    };
    struct Row {
        std::string path, why;
    };
    Row const rows[] = {
        { folder.path("none"), "not there" },
        { folder.path(), "a folder" },
        { make("plain", "#!/bin/sh\n", 0644), "not executable" },
        { make("garbage", "no program", 0755), "no program" },
        { make("lost", "#!/nowhere/interpreter\n", 0755), "its interpreter is missing" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(runner.run({ row.path }).end, End::notStarted);
        auto const ran = ShortcutsProvider(std::make_shared<PosixToolRunner>(Environment {}), row.path).run("x");
        EXPECT_EQ(ran.error().reason, ShortcutsProvider::Failure::Case::notInstalled);
    }
}

TEST_F(PosixToolRunnerTest, RepeatedRunsLeaveNothingOpen)
{
    auto const openFiles = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator()); };
    auto const before = openFiles();
    for (int i = 0; i < 20; ++i) {
        shell("exit 0");
        (void)runner.run({ "/nowhere" });
    }
    EXPECT_EQ(openFiles(), before);
}

} // namespace
} // namespace zv
