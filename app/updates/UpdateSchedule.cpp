#include "app/updates/UpdateSchedule.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace zv {

namespace {

using namespace std::chrono_literals;

constexpr char const* enabledKey = "SUEnableAutomaticChecks";
constexpr char const* lastCheckKey = "SULastCheckTime";
constexpr char const* jitterKey = "UpdateCheckJitter"; // seconds, drawn once a user

constexpr auto interval = 24h;
constexpr auto quietStart = 60s;
constexpr int maximumJitter = 2 * 60 * 60;
// Looks at the clock now and then, as timers stop while a machine sleeps.
constexpr auto tickInterval = 15min;

constexpr double secondsBetweenEpochs = 978307200; // 1970 to 2001

/// True for years that a clock can show; a damaged file may hold anything.
bool isPlausible(PropertyListDate date) { return std::abs(date.secondsSinceReference) < 1e10; }

WallTime fromDate(PropertyListDate date)
{
    return WallTime(std::chrono::duration_cast<WallTime::duration>(std::chrono::duration<double>(date.secondsSinceReference + secondsBetweenEpochs)));
}

PropertyListDate toDate(WallTime time) { return { std::chrono::duration<double>(time.time_since_epoch()).count() - secondsBetweenEpochs }; }

int drawnJitter()
{
    std::random_device device;
    return std::uniform_int_distribution(0, maximumJitter)(device);
}

} // namespace

UpdateSchedule::UpdateSchedule(Services services, std::function<void()> due)
    : m_services(services)
    , m_due(std::move(due))
{
    m_services.defaults.registerDefaults({ { enabledKey, true } });
}

bool UpdateSchedule::isEnabled() const { return m_services.defaults.boolForKey(enabledKey); }

void UpdateSchedule::setEnabled(bool enabled)
{
    m_services.defaults.keep(enabledKey, enabled);
    arm();
}

std::optional<WallTime> UpdateSchedule::lastCheck() const
{
    auto const stored = m_services.defaults.object(lastCheckKey);
    auto const date = stored ? stored->date() : std::nullopt;
    return date && isPlausible(*date) ? std::optional(fromDate(*date)) : std::nullopt;
}

void UpdateSchedule::noteCheck() { m_services.defaults.keep(lastCheckKey, toDate(m_services.clock.now())); }

void UpdateSchedule::start()
{
    m_startedAt = m_services.clock.monotonic();
    if (!m_services.defaults.storedObject(jitterKey))
        m_services.defaults.keep(jitterKey, drawnJitter());
    arm();
}

WallTime UpdateSchedule::nextDue() const
{
    auto const last = lastCheck();
    // A future date comes from a wrong clock, and counts as none.
    if (!last || *last > m_services.clock.now())
        return m_services.clock.now();
    auto const jitter = std::clamp<std::int64_t>(m_services.defaults.integerForKey(jitterKey), 0, maximumJitter);
    return *last + interval + std::chrono::seconds(jitter);
}

void UpdateSchedule::arm()
{
    m_timer.reset();
    if (!isEnabled() || m_startedAt == Instant {})
        return;
    auto const untilDue = std::chrono::ceil<std::chrono::milliseconds>(nextDue() - m_services.clock.now());
    auto const untilQuiet = std::chrono::ceil<std::chrono::milliseconds>(m_startedAt + quietStart - m_services.clock.monotonic());
    auto const delay = std::clamp<std::chrono::milliseconds>(std::max<std::chrono::milliseconds>(untilDue, untilQuiet), 1s, tickInterval);
    m_timer = m_services.timers.after(delay, [this] { tick(); });
}

void UpdateSchedule::tick()
{
    if (m_services.clock.now() >= nextDue())
        m_due();
    arm();
}

} // namespace zv
