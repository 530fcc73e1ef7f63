#include "base/MainThread.h"

#include <cstdio>
#include <cstdlib>
#include <thread>

namespace zv {

namespace {
std::thread::id& mainThread()
{
    static std::thread::id id = std::this_thread::get_id();
    return id;
}
} // namespace

void markMainThread() { mainThread() = std::this_thread::get_id(); }

bool isMainThread() { return mainThread() == std::this_thread::get_id(); }

void assertMainThread()
{
    if (isMainThread())
        return;
    std::fputs("Zanthe Vell: called off the main thread\n", stderr);
    std::abort();
}

} // namespace zv
