#pragma once

#include "app/model/Preferences.h"
#include "platform/menubar/OverlayPanels.h"

#include <functional>

namespace zv {

/// The overlay's content: nothing, or the logo in six colours; a click anywhere is a press.
class AppleMenuOverlayView : public OverlayPanelContent {
public:
    explicit AppleMenuOverlayView(Preferences const& preferences)
        : m_preferences(preferences)
    {
    }

    /// May destroy this view.
    std::function<void()> action;

    std::function<void(std::vector<Url>)> filesDropped;

    void draw(Canvas* canvas, double height) override;
    void press() override;
    void drop(std::vector<Url> files) override;
    std::string_view accessibilityLabel() const override { return "Zanthe Vell"; }

private:
    Preferences const& m_preferences;
};

} // namespace zv
