#include "base/Observation.h"

#include "base/MainThread.h"

#include <algorithm>
#include <utility>

namespace zv {

struct Observation::Tracking {
    std::function<void()> onChange;
};

namespace {

/// The scopes whose `read` is running now, outermost first.
std::vector<std::shared_ptr<Observation::Tracking>>& openScopes()
{
    static std::vector<std::shared_ptr<Observation::Tracking>> scopes;
    return scopes;
}

bool isSpent(std::weak_ptr<Observation::Tracking> const& observer)
{
    auto const tracking = observer.lock();
    return !tracking || !tracking->onChange;
}

} // namespace

Observation::Observation(std::shared_ptr<Tracking> tracking)
    : m_tracking(std::move(tracking))
{
}

Observation& Observation::operator=(Observation&& other) noexcept
{
    if (this == &other)
        return *this;
    if (m_tracking)
        m_tracking->onChange = nullptr;
    m_tracking = std::move(other.m_tracking);
    return *this;
}

Observation::~Observation()
{
    if (m_tracking)
        m_tracking->onChange = nullptr;
}

Observation withObservationTracking(std::function<void()> const& read, std::function<void()> onChange)
{
    assertMainThread();
    auto tracking = std::make_shared<Observation::Tracking>();
    tracking->onChange = std::move(onChange);
    openScopes().push_back(tracking);
    read();
    openScopes().pop_back();
    return Observation(std::move(tracking));
}

void ObservationRegistrar::access(int property) const
{
    if (openScopes().empty())
        return;
    auto& observers = m_observers[property];
    std::erase_if(observers, isSpent);
    for (auto const& scope : openScopes()) {
        auto const known = std::any_of(observers.begin(), observers.end(), [&](auto const& o) { return o.lock() == scope; });
        if (!known)
            observers.push_back(scope);
    }
}

void ObservationRegistrar::changed(int property)
{
    assertMainThread();
    auto const found = m_observers.find(property);
    if (found == m_observers.end())
        return;
    auto const observers = std::exchange(found->second, {});
    for (auto const& observer : observers) {
        auto const tracking = observer.lock();
        if (!tracking)
            continue;
        if (auto const onChange = std::exchange(tracking->onChange, nullptr))
            onChange();
    }
}

} // namespace zv
