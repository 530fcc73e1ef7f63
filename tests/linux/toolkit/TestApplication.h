#pragma once

#include "platform/linux/windows/LinuxApplication.h"

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

} // namespace zv
