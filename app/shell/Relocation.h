#pragma once

#include "platform/desk/Alerts.h"
#include "platform/desk/Application.h"
#include "platform/program/Installation.h"
#include "platform/session/Workspace.h"

#include <string>

namespace zv {

/// Offers to copy the program into an Applications folder when it runs from a temporary place, and
/// starts the copy. Main thread only; runs once a launch, before anything else is built.
class Relocation {
public:
    struct Services {
        Installation& installation;
        Application& application;
        Alerts& alerts;
        Workspace& workspace;
    };

    explicit Relocation(Services services)
        : m_services(services)
    {
    }

    /// True when the copy was made and is being opened, or the program was told to quit: the caller
    /// then builds nothing.
    [[nodiscard]] bool relocateIfNeeded(Url const& bundle, Environment const& environment);

private:
    [[nodiscard]] bool userWantsCopy(RelocationSource source, Url const& destination);
    [[nodiscard]] Result<Url> copyTo(Url const& destination, Url const& bundle);
    void tellCopyFailed(Url const& bundle, Url const& destination, std::string const& reason);
    void openCopy(Url const& copy, Url const& destination);

    Services m_services;
};

} // namespace zv
