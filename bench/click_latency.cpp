// click_latency X Y [--runs N] [--button N] [--key NAME] [--signal PROCESS] [--quiet MS] [--timeout MS]
// Presses a button at a place, or a key, which opens a submenu, or signals a program that
// shows its menu on SIGUSR1. Measures, a run, the milliseconds from there to the map of a new
// pop-up window, to its first paint, and to its last one before a while without any. Escape
// closes the menu between runs. A line each: "mapped M first F settled S".
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>
#include <X11/keysym.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <poll.h>
#include <string>
#include <string_view>
#include <thread>

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;
using SteadyTime = std::chrono::steady_clock::time_point;

constexpr int smallestMenu = 20; // pixels; a smaller window is no menu
constexpr auto settle = std::chrono::milliseconds(250);

struct Options {
    int x = 0;
    int y = 0;
    int runs = 15;
    int button = 1;
    std::string key; ///< pressed instead of the button; empty for none
    int signalled = 0; ///< the process that gets a signal instead; 0 for none
    Milliseconds quiet { 80 };
    Milliseconds timeout { 5000 };
};

struct Times {
    double mapped = 0;
    double firstPaint = 0;
    double settled = 0;
};

std::optional<Options> parse(int count, char** arguments)
{
    if (count < 3)
        return std::nullopt;
    Options options;
    options.x = std::atoi(arguments[1]);
    options.y = std::atoi(arguments[2]);
    for (int i = 3; i < count; ++i) {
        std::string_view const name = arguments[i];
        if (i + 1 == count)
            return std::nullopt;
        else if (name == "--runs")
            options.runs = std::atoi(arguments[++i]);
        else if (name == "--button")
            options.button = std::atoi(arguments[++i]);
        else if (name == "--key")
            options.key = arguments[++i];
        else if (name == "--signal")
            options.signalled = std::atoi(arguments[++i]);
        else if (name == "--quiet")
            options.quiet = Milliseconds(std::atof(arguments[++i]));
        else if (name == "--timeout")
            options.timeout = Milliseconds(std::atof(arguments[++i]));
        else
            return std::nullopt;
    }
    return options;
}

/// A display, watched for pop-up windows and their painting.
class Probe {
public:
    explicit Probe(Options options)
        : m_options(options)
        , m_display(XOpenDisplay(nullptr))
    {
        int errorBase = 0;
        if (!m_display || !XDamageQueryExtension(m_display, &m_damageEvent, &errorBase))
            return;
        XSetErrorHandler([](Display*, XErrorEvent*) { return 0; }); // windows go away while we look at them
        XSelectInput(m_display, DefaultRootWindow(m_display), SubstructureNotifyMask);
        m_works = true;
    }
    [[nodiscard]] bool works() const { return m_works; }

    std::optional<Times> run()
    {
        preparePointer();
        m_damages.clear();
        m_menu = 0;
        m_times = {};
        m_start = std::chrono::steady_clock::now();
        m_end = m_start + std::chrono::duration_cast<std::chrono::nanoseconds>(m_options.timeout);
        inject();
        watch();
        for (auto const& [window, damage] : m_damages)
            XDamageDestroy(m_display, damage);
        close();
        return m_menu && m_times.settled > 0 ? std::optional(m_times) : std::nullopt;
    }

private:
    void preparePointer()
    {
        if (m_options.key.empty()) {
            XTestFakeMotionEvent(m_display, -1, m_options.x, m_options.y, 0);
            XSync(m_display, False);
            std::this_thread::sleep_for(std::chrono::milliseconds(150));
        }
        XSync(m_display, True);
    }

    void inject()
    {
        if (m_options.signalled > 0) {
            kill(m_options.signalled, SIGUSR1);
        } else if (!m_options.key.empty()) {
            press(XStringToKeysym(m_options.key.c_str()));
        } else {
            XTestFakeButtonEvent(m_display, static_cast<unsigned>(m_options.button), True, 0);
            XTestFakeButtonEvent(m_display, static_cast<unsigned>(m_options.button), False, 0);
        }
        XFlush(m_display);
    }

    [[nodiscard]] double elapsed() const { return Milliseconds(std::chrono::steady_clock::now() - m_start).count(); }
    void waitOnlyUntil(Milliseconds fromNow) { m_end = std::chrono::steady_clock::now() + std::chrono::duration_cast<std::chrono::nanoseconds>(fromNow); }

    bool next(XEvent& event)
    {
        while (!XPending(m_display)) {
            auto const left = std::chrono::duration_cast<std::chrono::milliseconds>(m_end - std::chrono::steady_clock::now()).count();
            if (left <= 0)
                return false;
            pollfd descriptor { ConnectionNumber(m_display), POLLIN, 0 };
            poll(&descriptor, 1, static_cast<int>(left) + 1);
        }
        XNextEvent(m_display, &event);
        return true;
    }

    void watch()
    {
        for (XEvent event; next(event);) {
            if (event.type == CreateNotify && event.xcreatewindow.override_redirect)
                follow(event.xcreatewindow.window);
            else if (event.type == MapNotify && event.xmap.override_redirect && !m_menu)
                noteMap(event.xmap.window);
            else if (event.type == m_damageEvent + XDamageNotify)
                notePaint(reinterpret_cast<XDamageNotifyEvent const&>(event).drawable);
        }
    }

    void follow(Window window)
    {
        if (m_damages.contains(window))
            return;
        m_damages[window] = XDamageCreate(m_display, window, XDamageReportRawRectangles);
        XFlush(m_display);
    }

    void noteMap(Window window)
    {
        auto const now = elapsed();
        XWindowAttributes attributes {};
        if (!XGetWindowAttributes(m_display, window, &attributes) || attributes.width <= smallestMenu || attributes.c_class != InputOutput)
            return;
        m_menu = window;
        m_times.mapped = now;
        follow(window);
        waitOnlyUntil(m_options.quiet * 10);
    }

    void notePaint(Drawable drawable)
    {
        if (!m_menu || drawable != m_menu)
            return;
        m_times.settled = elapsed();
        if (m_times.firstPaint == 0)
            m_times.firstPaint = m_times.settled;
        waitOnlyUntil(m_options.quiet);
    }

    void press(KeySym symbol)
    {
        auto const key = XKeysymToKeycode(m_display, symbol);
        XTestFakeKeyEvent(m_display, key, True, 0);
        XTestFakeKeyEvent(m_display, key, False, 0);
    }

    void close()
    {
        for (int i = 0; i < (m_options.key.empty() ? 3 : 1); ++i) {
            press(XK_Escape);
            XSync(m_display, False);
            std::this_thread::sleep_for(std::chrono::milliseconds(60));
        }
        std::this_thread::sleep_for(settle);
        XSync(m_display, True);
    }

    Options m_options;
    Display* m_display;
    int m_damageEvent = 0;
    bool m_works = false;
    std::map<Window, Damage> m_damages;
    Window m_menu = 0;
    Times m_times;
    SteadyTime m_start;
    SteadyTime m_end;
};

} // namespace

int main(int count, char** arguments)
{
    auto const options = parse(count, arguments);
    if (!options)
        return 2;
    Probe probe(*options);
    if (!probe.works())
        return 1;
    bool hasOpened = false;
    for (int run = 0; run < options->runs; ++run) {
        auto const times = probe.run();
        if (times)
            std::printf("mapped %.2f first %.2f settled %.2f\n", times->mapped, times->firstPaint, times->settled);
        hasOpened = hasOpened || times;
    }
    return hasOpened ? 0 : 1;
}
