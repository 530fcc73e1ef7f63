#include "base/MainThread.h"
#include "platform/linux/toolkit/QtTasks.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdio>

/// Ends tasks while work of all kinds runs, again and again. Built with the thread sanitizer, which knows our own
/// locks but not the toolkit's queue; what passes through that is left out by name.
// NOLINTNEXTLINE(misc-use-internal-linkage)
extern "C" char const* __tsan_default_suppressions() { return "race:QtPrivate::QFunctorSlotObject\nrace:libQt6Core.so\n"; }

int main(int argc, char** argv)
{
    zv::markMainThread();
    QCoreApplication const application(argc, argv);
    int arrived = 0;
    for (int round = 0; round < 40; ++round) {
        zv::QtTasks tasks;
        for (int i = 0; i < 20; ++i) {
            tasks.runDetached([&arrived] { return [&arrived] { ++arrived; }; });
            tasks.runInBackground(i % 2 == 0 ? zv::TaskPriority::user : zv::TaskPriority::utility, [&] { tasks.runOnMain([&arrived] { ++arrived; }); });
        }
        auto const end = std::chrono::steady_clock::now() + std::chrono::milliseconds(round % 8);
        while (std::chrono::steady_clock::now() < end)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    }
    std::printf("%d answers\n", arrived);
    return arrived > 0 ? 0 : 1;
}
