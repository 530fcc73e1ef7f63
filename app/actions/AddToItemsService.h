#pragma once

#include "app/actions/ItemsFolder.h"
#include "base/Lifetime.h"
#include "base/Translation.h"
#include "platform/desk/Alerts.h"
#include "platform/desk/Application.h"
#include "platform/time/Tasks.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The alert to show after adding; empty when all went well.
[[nodiscard]] std::optional<Alert> alertFor(ItemsFolder::Outcome const& outcome, Url const& folder);

/// The command "Add to Zanthe Vell Items" of other programs. Main thread only.
class AddToItemsService {
public:
    struct Services {
        Application& application;
        Alerts& alerts;
        Tasks& tasks;
    };
    static std::string noFilesText() { return tr("No files or folders were sent to Zanthe Vell."); }

    AddToItemsService(ItemsFolder folder, Services services)
        : m_folder(std::move(folder))
        , m_services(services)
    {
    }

    /// Starts adding and returns at once. URLs that are no files are ignored; fails with a sentence
    /// for the caller when none is left.
    [[nodiscard]] Result<void> addToZantheVellItems(std::vector<Url> urls);
    /// Called after each adding, before any alert.
    std::function<void(ItemsFolder::Outcome const&)> onAdded;

private:
    void report(ItemsFolder::Outcome const& outcome);

    ItemsFolder m_folder;
    Services m_services;
    Lifetime m_lifetime;
};

} // namespace zv
