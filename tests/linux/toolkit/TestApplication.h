#pragma once

#include "platform/linux/windows/LinuxApplication.h"

#include <chrono>
#include <thread>

namespace zv {

/// Makes the real application, which shows nothing here, once a program; tests in any order share it.
inline void ensureApplication()
{
    static int argc = 1;
    static char name[] = "zv_qt_tests";
    static char* argv[] = { name, nullptr };
    if (QCoreApplication::instance())
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new LinuxApplication(argc, argv); // lives as long as the program
}

namespace tests {

/// Turns the event loop until the condition holds, at most ten seconds; tells whether it does.
template <class Condition> bool turnUntil(Condition isSo, std::chrono::milliseconds patience = std::chrono::seconds(10))
{
    auto const end = std::chrono::steady_clock::now() + patience;
    while (!isSo() && std::chrono::steady_clock::now() < end) {
        QCoreApplication::processEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return isSo();
}

} // namespace tests

} // namespace zv
