#include "base/Notifications.h"

#include "base/MainThread.h"

#include <utility>

namespace zv {

NotificationToken Notifications::observe(std::string_view name, std::function<void()> observer)
{
    assertMainThread();
    auto registration = std::make_shared<Registration>(Registration { std::string(name), std::move(observer) });
    m_registrations.push_back(registration);
    return NotificationToken(std::move(registration));
}

void Notifications::post(std::string_view name)
{
    assertMainThread();
    m_registrations.remove_if([](auto const& entry) { return entry.expired(); });
    auto const present = m_registrations;
    for (auto const& entry : present) {
        if (auto const registration = entry.lock(); registration && registration->name == name)
            registration->observer();
    }
}

} // namespace zv
