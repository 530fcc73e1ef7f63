#pragma once

#include "platform/time/Clock.h"
#include "platform/time/Tasks.h"
#include "platform/time/Timers.h"

namespace zv {

struct Time {
    Clock& clock;
    Timers& timers;
    Tasks& tasks;
};

} // namespace zv
