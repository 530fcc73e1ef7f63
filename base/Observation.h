#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace zv {

/// Owns a tracking; destroying or resetting it cancels the pending call.
class [[nodiscard]] Observation {
public:
    struct Tracking;

    Observation() = default;
    explicit Observation(std::shared_ptr<Tracking> tracking);
    Observation(Observation&&) noexcept = default;
    Observation& operator=(Observation&& other) noexcept;
    Observation(Observation const&) = delete;
    Observation& operator=(Observation const&) = delete;
    ~Observation();

private:
    std::shared_ptr<Tracking> m_tracking;
};

/// Runs `read` and records which observed properties it touches; calls `onChange`
/// once, after the first of them has changed. To go on observing, track again from
/// within `onChange`. Scopes may nest. Main thread only.
Observation withObservationTracking(std::function<void()> const& read, std::function<void()> onChange);

/// The observed object's side: one registrar a object, one number a property.
/// A getter calls access(), a setter calls changed() after it has stored the value.
class ObservationRegistrar {
public:
    void access(int property) const;
    void changed(int property);

private:
    mutable std::map<int, std::vector<std::weak_ptr<Observation::Tracking>>> m_observers;
};

} // namespace zv
