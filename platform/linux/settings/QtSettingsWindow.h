#pragma once

#include "app/settings/SettingsModels.h"
#include "base/Observation.h"
#include "platform/desk/SettingsWindow.h"
#include "platform/linux/hotkeys/RecordedKeys.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

class QTabWidget;

namespace zv {

class SettingsPageView;

/// The settings window: General, Menu, About. Made when first opened, kept when closed;
/// remembers its size and its tab.
class QtSettingsWindow : public SettingsWindow {
public:
    /// `models` is asked when the window is first opened.
    QtSettingsWindow(std::function<SettingsModels&()> models, KeyLookup lookUp);
    ~QtSettingsWindow() override;

    void openOrRaise() override;
    void openAt(Uuid const& item) override;
    void openGallery() override;
    /// Called before the models' own services are destroyed.
    void close();

private:
    class Window;

    std::function<SettingsModels&()> m_models;
    KeyLookup m_lookUp;
    std::unique_ptr<Window> m_window;
    QPointer<QWidget> m_gallery;
};

} // namespace zv
