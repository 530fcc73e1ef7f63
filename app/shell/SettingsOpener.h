#pragma once

#include "platform/desk/Application.h"
#include "platform/desk/SettingsWindow.h"

namespace zv {

/// Opens the settings window from anywhere. Main thread only.
class SettingsOpener {
public:
    SettingsOpener(Application& application, SettingsWindow& window)
        : m_application(application)
        , m_window(window)
    {
    }
    void open() const
    {
        m_application.activate();
        m_window.openOrRaise();
    }

    /// Opens them where menus are edited, at this item.
    void openAt(Uuid const& item) const
    {
        m_application.activate();
        m_window.openAt(item);
    }

    /// Shows the menus to start from.
    void openGallery() const
    {
        m_application.activate();
        m_window.openGallery();
    }

private:
    Application& m_application;
    SettingsWindow& m_window;
};

} // namespace zv
