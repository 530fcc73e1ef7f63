#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zv::tests {

/// Runs `work` in a process of its own, which ends with the number that it returns.
inline pid_t inChild(std::function<int()> const& work)
{
    auto const child = ::fork();
    if (child == 0)
        ::_exit(work());
    return child;
}

/// The status that the process ended with; -1 when it was killed.
inline int exitStatusOf(pid_t child)
{
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Drops root's rights while it lives: they would override the permissions that a test is
/// about.
class WithoutRoot {
public:
    WithoutRoot() { EXPECT_TRUE(m_user != 0 || ::seteuid(65534) == 0); }
    ~WithoutRoot() { EXPECT_TRUE(m_user != 0 || ::seteuid(m_user) == 0); }
    WithoutRoot(WithoutRoot const&) = delete;
    WithoutRoot& operator=(WithoutRoot const&) = delete;

private:
    uid_t m_user = ::geteuid();
};

} // namespace zv::tests
