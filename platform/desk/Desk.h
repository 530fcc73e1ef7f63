#pragma once

#include "platform/desk/Alerts.h"
#include "platform/desk/Application.h"
#include "platform/desk/Clipboard.h"
#include "platform/desk/FilePanels.h"
#include "platform/desk/Forms.h"
#include "platform/desk/IconSource.h"
#include "platform/desk/ModifierKeys.h"
#include "platform/desk/NotesWindow.h"
#include "platform/desk/PictureSource.h"
#include "platform/desk/SettingsWindow.h"
#include "platform/desk/TextMeasure.h"
#include "platform/desk/UserNotifications.h"

namespace zv {

/// The seams used when an entry is chosen; a terminal has stand-ins.
struct Desk {
    Application& application;
    Alerts& alerts;
    ModifierKeys const& modifierKeys;
    Clipboard& clipboard;
};

/// The seams that measure and draw a menu.
struct Looks {
    TextMeasure const& text;
    IconSource& icons;
};

struct Windows {
    SettingsWindow& settings;
    Alerts& settingsAlerts; ///< what the settings ask and tell; on their window where a system has sheets
    NotesWindows& notes;
    FilePanels& filePanels;
    Forms& forms;
    PictureSource& pictures;
    UserNotifications& notifications;
};

} // namespace zv
