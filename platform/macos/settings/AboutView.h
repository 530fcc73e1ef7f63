#pragma once

#import <Cocoa/Cocoa.h>

#include "app/settings/SettingsModels.h"
#import "platform/macos/settings/Controls.h"

NS_ASSUME_NONNULL_BEGIN

namespace zv {

/// The About tab.
class AboutView {
public:
    explicit AboutView(SettingsModels& models);
    [[nodiscard]] NSView* view() const { return m_view; }

private:
    void showLicences();

    SettingsModels& m_models;
    ControlActions m_actions;
    NSView* m_view;
    NSWindow* m_licences = nil;
};

} // namespace zv

NS_ASSUME_NONNULL_END
