#include "app/shell/Begging.h"

#include "app/shell/NotesText.h"
#include "app/shell/TestEnvironment.h"
#include "base/Log.h"
#include "base/MainThread.h"
#include "base/Translation.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace zv {

namespace {

constexpr char const* launchCountKey = "LaunchCount";

// Points: a text of 440 within a window of 480, never taller than 560.
constexpr double textWidth = 440;
constexpr double textInset = 20;
constexpr double windowWidth = 480;
constexpr double maximumHeight = 560;

bool isDue(std::int64_t launch) { return launch == 2 || launch == 9 || launch == 13; }

NotesWindowLayout layoutFor(RichText const* text)
{
    double const textHeight = text ? text->height(textWidth) : 0;
    NotesWindowLayout layout;
    layout.title = tr("Zanthe Vell Beta");
    layout.textName = tr("Notes");
    layout.width = windowWidth;
    layout.height = std::min(std::ceil(textHeight) + 2 * textInset, maximumHeight);
    layout.minimumWidth = 320;
    layout.minimumHeight = 160;
    layout.textInset = textInset;
    return layout;
}

} // namespace

void Begging::showIfDue(Environment const& environment, bool onReadOnlyVolume)
{
    assertMainThread();
    if (m_hasNotedLaunch || isRunningUnderTests(environment) || onReadOnlyVolume)
        return;
    m_hasNotedLaunch = true;
    auto const before = m_services.defaults.integerForKey(launchCountKey);
    if (before == std::numeric_limits<std::int64_t>::max()) {
        logLine("the launch count overflows");
        std::abort();
    }
    auto const launch = before + 1;
    m_isFirstLaunch = launch == 1;
    m_services.defaults.keep(launchCountKey, launch);
    if (isDue(launch))
        m_services.tasks.runOnMain(m_lifetime.guard([this] { show(); }));
}

void Begging::show()
{
    assertMainThread();
    if (!m_window) {
        auto const bytes = m_services.resources.load("Begging", "rtf");
        auto const text = bytes ? m_services.windows.read(notesInUsersLanguage(*bytes)) : nullptr;
        m_window = m_services.windows.make(layoutFor(text.get()), text);
    }
    m_services.application.activate();
    m_window->bringToFront();
}

} // namespace zv
