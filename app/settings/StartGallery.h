#pragma once

#include "app/model/StartMenus.h"
#include "app/settings/MenuEditor.h"
#include "base/Translation.h"

#include <string>
#include <vector>

namespace zv {

/// The menus to start from, to look at before one is taken. Main thread only.
class StartGallery {
public:
    struct Services {
        MenuEditor& editor;
        MenuStore& store;
        System const& system;
    };
    struct Texts {
        Sentence open; ///< the button in the Menu tab
        Sentence openHelp;
        Sentence window;
        Sentence list; ///< for assistive tools, as the next
        Sentence preview;
        Sentence take;
        Sentence cancel;
    };

    explicit StartGallery(Services services)
        : m_services(services)
    {
    }

    [[nodiscard]] static Texts const& texts();
    /// As they are now: folders come and go.
    [[nodiscard]] std::vector<StartMenu> menus() const { return startMenus(m_services.store, m_services.system); }
    /// What taking one does to the menu that is there; or why none can be taken.
    [[nodiscard]] std::string note() const;
    /// False where an administrator fixed the menu.
    [[nodiscard]] bool canTake() const { return !m_services.store.isLocked(); }
    /// Replaces the menu. That can be undone, and the menu is kept among the backups.
    void take(StartMenu const& menu);

private:
    Services m_services;
};

} // namespace zv
