#pragma once

#include <QApplication>

namespace zv {

/// One application a program, which shows nothing; tests that run in any order share it.
inline void ensureApplication()
{
    static int argc = 1;
    static char name[] = "zv_qt_tests";
    static char* argv[] = { name, nullptr };
    if (QCoreApplication::instance())
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QApplication(argc, argv); // lives as long as the program
}

} // namespace zv
