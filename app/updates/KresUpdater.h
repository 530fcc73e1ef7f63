#pragma once

#include "app/updates/KresUpdateChannel.h"
#include "app/updates/KresUpdateReminder.h"
#include "base/Observation.h"
#include "base/PropertyList.h"
#include "base/Url.h"
#include "platform/program/UpdateEngine.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The program's updates for the menu and the settings. Reading a property within
/// withObservationTracking() observes it. Main thread only.
class KresUpdater {
public:
    struct Services {
        Resources const& resources;
        KresUpdateReminder::Services reminder;
        UpdateEngineFactory makeEngine;
    };

    /// Makes the engine without starting it.
    explicit KresUpdater(Services const& services);
    KresUpdater(KresUpdater const&) = delete;
    KresUpdater& operator=(KresUpdater const&) = delete;

    void start();
    void checkForUpdates();

    [[nodiscard]] bool checksAutomatically() const;
    void setChecksAutomatically(bool automatically);
    [[nodiscard]] bool canCheckForUpdates() const;
    [[nodiscard]] std::optional<WallTime> lastCheckDate() const;
    [[nodiscard]] std::optional<std::string> startFailureDescription() const;

    /// The reason why updates cannot work, for the settings; empty when they can.
    [[nodiscard]] std::optional<std::string> startProblem() const;

private:
    enum Property { checksAutomaticallyProperty, canCheckProperty, lastCheckProperty, startFailureProperty };

    void takeCanCheck();
    void takeChecksAutomatically();

    template <class T> void set(T& stored, T value, Property property)
    {
        if (stored == value)
            return;
        stored = std::move(value);
        m_registrar.changed(property);
    }

    Resources const& m_resources;
    KresUpdateChannelDelegate m_channels;
    KresUpdateReminder m_reminder;
    std::unique_ptr<UpdateEngine> m_engine;
    bool m_checksAutomatically = false;
    bool m_canCheckForUpdates = false;
    std::optional<WallTime> m_lastCheckDate;
    std::optional<std::string> m_startFailureDescription;
    ObservationRegistrar m_registrar;
};

/// The feed's address in the information dictionary; empty when missing, no web or file address, or
/// a placeholder (a host that ends in ".example" or ".invalid").
[[nodiscard]] std::optional<Url> feedURL(PropertyListDictionary const& information);

/// The 32 bytes of the key that signs updates; empty when invalid.
[[nodiscard]] std::optional<std::vector<std::byte>> updateSigningKey(PropertyListDictionary const& information);

} // namespace zv
