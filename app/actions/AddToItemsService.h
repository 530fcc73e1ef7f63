#pragma once

#include "app/actions/ItemsFolder.h"
#include "base/Lifetime.h"
#include "platform/desk/Alerts.h"
#include "platform/desk/Application.h"
#include "platform/time/Tasks.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// What the user is told after adding; nothing when all went well.
[[nodiscard]] std::optional<Alert> alertFor(ItemsFolder::Outcome const& outcome, Url const& folder);

/// The command "Add to Zanthe Vell Items" of other programs. Main thread only.
class AddToItemsService {
public:
    struct Services {
        Application& application;
        Alerts& alerts;
        Tasks& tasks;
    };
    static constexpr char const* noFilesText = "No files or folders were sent to Zanthe Vell.";

    AddToItemsService(ItemsFolder folder, Services services)
        : m_folder(std::move(folder))
        , m_services(services)
    {
    }

    /// Starts adding and returns at once: who asked is never kept waiting. What is not a
    /// file is ignored; the failure is the sentence for who asked when nothing is left.
    [[nodiscard]] Result<void> addToZantheVellItems(std::vector<Url> urls);
    /// Called after each adding has ended, before any alert.
    std::function<void(ItemsFolder::Outcome const&)> onAdded;

private:
    void report(ItemsFolder::Outcome const& outcome);

    ItemsFolder m_folder;
    Services m_services;
    Lifetime m_lifetime;
};

} // namespace zv
