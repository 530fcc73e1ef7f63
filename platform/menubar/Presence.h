#pragma once

#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/menubar/KeyboardLayoutSource.h"
#include "platform/menubar/MenuBarVisibility.h"
#include "platform/menubar/MenuBars.h"
#include "platform/menubar/MenuHost.h"
#include "platform/menubar/OverlayPanels.h"
#include "platform/menubar/PointerMonitor.h"
#include "platform/menubar/Screens.h"
#include "platform/menubar/StatusBar.h"
#include "platform/menubar/WorkspaceEvents.h"

#include <functional>
#include <optional>

namespace zv {

/// The seams of the overlay in the corner of a menu bar.
struct OverlaySeams {
    MenuBars& menuBars;
    Screens& screens;
    WorkspaceEvents& workspaceEvents;
    PointerMonitor& pointerMonitor;
    OverlayPanels& panels;
    MenuBarVisibility* visibility; ///< null: the window list alone decides
};

/// The seams through which the menu is reached.
struct Presence {
    StatusBar& statusBar;
    std::function<bool()> showsStatusItems; ///< whether anybody shows the status bar's icons now
    MenuHost& menuHost;
    HotkeyRegistrar& hotkeys;
    KeyboardLayoutSource& keyboardLayout;
    std::optional<OverlaySeams> overlay; ///< none where no program may stand on the panel
};

} // namespace zv
