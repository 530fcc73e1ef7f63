// The cost of the idle overlay, and its lag behind a sliding bar.

#include "app/menubar/AppleMenuOverlayController.h"
#include "base/MainThread.h"
#include "platform/linux/machine/SystemClock.h"
#include "platform/linux/overlay/OverlayFrontEnd.h"
#include "platform/linux/toolkit/QtTasks.h"
#include "platform/linux/toolkit/QtTimers.h"
#include "tests/desktop/DockWindow.h"
#include "tests/desktop/PrivateX.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <optional>
#include <poll.h>
#include <sys/resource.h>
#include <vector>

using namespace zv;

namespace {

int waits = 0; ///< calls that waited for a descriptor: one for each round trip

} // namespace

/// Replaces the C library's, which it calls.
extern "C" int poll(pollfd* descriptors, nfds_t count, int timeout)
{
    static auto const original = reinterpret_cast<int (*)(pollfd*, nfds_t, int)>(dlsym(RTLD_NEXT, "poll"));
    ++waits;
    return original(descriptors, count, timeout);
}

namespace {

/// Forwards to the real panels and notes when one is moved.
class WatchedPanels : public OverlayPanels {
public:
    explicit WatchedPanels(OverlayPanels& panels)
        : m_panels(panels)
    {
    }
    std::unique_ptr<OverlayPanel> create(Rect const& frame, OverlayPanelContent& content) override
    {
        struct Panel : OverlayPanel {
            Panel(std::unique_ptr<OverlayPanel> real, WatchedPanels& owner)
                : m_real(std::move(real))
                , m_owner(owner)
            {
            }
            Rect frame() const override { return m_real->frame(); }
            void setFrame(Rect const& wanted) override
            {
                m_real->setFrame(wanted);
                m_owner.lastFrame = wanted;
            }
            void show() override { m_real->show(); }
            void hide() override { m_real->hide(); }
            void redraw() override { m_real->redraw(); }
            std::unique_ptr<OverlayPanel> m_real;
            WatchedPanels& m_owner;
        };
        lastFrame = frame;
        return std::make_unique<Panel>(m_panels.create(frame, content), *this);
    }

    Rect lastFrame;

private:
    OverlayPanels& m_panels;
};

/// The overlay on a bare X server with one bar.
class Desktop {
public:
    Desktop()
        : controller(watched(), preferences, [](Point) {})
    {
        turn(3000); // the looks at the panel's corner and the first fast period
    }
    static void turn(int milliseconds)
    {
        QEventLoop events;
        QTimer::singleShot(milliseconds, Qt::PreciseTimer, &events, &QEventLoop::quit);
        events.exec();
    }

    desktop::DockWindow bar { 0, 0, 640, 26 };
    QtTimers timers;
    SystemClock clock;
    fakes::FakeUserDefaults defaults;
    Preferences preferences { defaults };
    std::unique_ptr<OverlayFrontEnd> frontEnd = OverlayFrontEnd::make(SessionKind::x11);
    std::optional<WatchedPanels> panels;
    AppleMenuOverlayController controller;

private:
    AppleMenuOverlayServices watched()
    {
        auto const real = frontEnd->seams();
        panels.emplace(real.panels);
        return { real.menuBars, real.screens, real.workspaceEvents, real.pointerMonitor, *panels, timers, clock };
    }
};

Desktop* shared = nullptr;

double processSeconds()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    auto const seconds = [](timeval time) { return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// An idle tick: below 0.2 ms and two round trips.
void tickWithoutChange(benchmark::State& state)
{
    waits = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(shared->controller.sync());
    state.counters["round_trips"] = benchmark::Counter(waits, benchmark::Counter::kAvgIterations);
}
BENCHMARK(tickWithoutChange);

/// The yardstick: one question to the X server.
void oneRoundTrip(benchmark::State& state)
{
    desktop::XClient const client;
    for (auto _ : state)
        client.sync();
}
BENCHMARK(oneRoundTrip);

/// Idle: below 0.3 % of a core.
void idleWithTheSlowHeartbeat(benchmark::State& state)
{
    for (auto _ : state) {
        double const before = processSeconds();
        Desktop::turn(3000);
        state.counters["percent_of_a_core"] = (processSeconds() - before) / 3 * 100;
    }
}
BENCHMARK(idleWithTheSlowHeartbeat)->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);

/// The lag of the overlay's frame behind each step of a slide, 25 ms apart as panels do it.
/// Below 16 ms at the median.
void lagBehindASlidingBar(benchmark::State& state)
{
    std::vector<double> lags;
    int y = 0, step = -1;
    for (auto _ : state) {
        y += step;
        if (y == -20 || y == 0)
            step = -step;
        auto const expected = 480.0 - 26 - y;
        QElapsedTimer clock;
        clock.start();
        shared->bar.moveTo(0, y);
        while (shared->panels->lastFrame.y != expected && clock.elapsed() < 1000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        lags.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
        state.SetIterationTime(lags.back() / 1e3);
        Desktop::turn(25);
    }
    std::sort(lags.begin(), lags.end());
    state.counters["median_ms"] = lags[lags.size() / 2];
    state.counters["worst_ms"] = lags.back();
}
BENCHMARK(lagBehindASlidingBar)->Iterations(120)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    desktop::PrivateX const server;
    QApplication application(argc, argv);
    markMainThread();
    Desktop desktop;
    shared = &desktop;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
