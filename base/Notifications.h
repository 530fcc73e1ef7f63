#pragma once

#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>

namespace zv {

/// Holds an observer; destroying it removes the observer.
class [[nodiscard]] NotificationToken {
public:
    NotificationToken() = default;
    explicit NotificationToken(std::shared_ptr<void> registration)
        : m_registration(std::move(registration))
    {
    }

private:
    std::shared_ptr<void> m_registration;
};

/// Named notifications between parts of the program that do not know one another. Main thread only.
class Notifications {
public:
    NotificationToken observe(std::string_view name, std::function<void()> observer);
    /// Calls the name's observers in the order of their adding. They may add and remove observers;
    /// one that is removed meanwhile is not called.
    void post(std::string_view name);

private:
    struct Registration {
        std::string name;
        std::function<void()> observer;
    };
    std::list<std::weak_ptr<Registration>> m_registrations;
};

} // namespace zv
