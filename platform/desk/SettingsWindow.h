#pragma once

#include "base/Uuid.h"

namespace zv {

/// The settings window, of which there is one. Main thread only.
class SettingsWindow {
public:
    virtual ~SettingsWindow() = default;
    /// Opens it, or brings it to the front.
    virtual void openOrRaise() = 0;
    /// The same at the tab where the menu is edited, with the item selected.
    virtual void openAt(Uuid const& item) = 0;
    /// Shows the menus to start from, in a window of their own.
    virtual void openGallery() = 0;
};

} // namespace zv
