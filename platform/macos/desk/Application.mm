#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"
#import "platform/macos/cocoa/Observers.h"
#import "platform/macos/desk/ModalWindows.h"

namespace zv {

namespace {

NSApplicationActivationPolicy toSystem(ActivationPolicy policy)
{
    return policy == ActivationPolicy::regular ? NSApplicationActivationPolicyRegular : NSApplicationActivationPolicyAccessory;
}

class MacApplication : public Application {
public:
    MacApplication()
    {
        void (^const changed)(NSNotification*) = ^(NSNotification*) {
            if (onWindowsChanged)
                onWindowsChanged();
        };
        m_observers.observe(NSWindowDidUpdateNotification, changed);
        m_observers.observe(NSWindowWillCloseNotification, changed);
    }

    /// Asks in the older way on every version. From macOS 14 on the system may decline `activate` for
    /// a program without a Dock icon, and grants this (openjdk/jfx#1685, DefaultBrowser#47).
    void activate() override { [NSApp activateIgnoringOtherApps:YES]; }
    void terminate() override { [NSApp terminate:nil]; }
    bool isActive() const override { return NSApp.isActive; }
    bool isHidden() const override { return NSApp.isHidden; }
    ActivationPolicy activationPolicy() const override
    {
        return [NSApp activationPolicy] == NSApplicationActivationPolicyRegular ? ActivationPolicy::regular : ActivationPolicy::accessory;
    }
    void setActivationPolicy(ActivationPolicy policy) override { [NSApp setActivationPolicy:toSystem(policy)]; }

    std::vector<WindowState> windows() const override
    {
        std::vector<WindowState> states;
        for (NSWindow* window in NSApp.windows) {
            bool const isTitled = (window.styleMask & NSWindowStyleMaskTitled) != 0;
            states.push_back({ isTitled, window.isVisible != NO, window.isMiniaturized != NO });
        }
        return states;
    }

private:
    Observers m_observers { NSNotificationCenter.defaultCenter };
};

class MacModifierKeys : public ModifierKeys {
public:
    ModifierMask current() const override { return mask(NSEvent.modifierFlags); }
    ModifierMask ofCurrentEvent() const override { return mask(NSApp.currentEvent.modifierFlags); }

private:
    static ModifierMask mask(NSUInteger flags)
    {
        static_assert(static_cast<NSUInteger>(ModifierMask::shift) == 0x20000);
        constexpr NSUInteger known = 0x20000 | 0x40000 | 0x80000 | 0x100000;
        return static_cast<ModifierMask>(flags & known);
    }
};

NSAlert* panelFor(Alert const& alert)
{
    NSAlert* const panel = [[NSAlert alloc] init];
    panel.messageText = toNSString(alert.message);
    panel.informativeText = toNSString(alert.informativeText);
    panel.alertStyle = alert.style == AlertStyle::warning ? NSAlertStyleWarning : NSAlertStyleInformational;
    for (std::size_t i = 0; i < alert.buttons.size(); ++i) {
        NSButton* const button = [panel addButtonWithTitle:toNSString(alert.buttons[i])];
        if (alert.buttons.size() > 1 && i == alert.escapeButton)
            button.keyEquivalent = @"\033";
    }
    return panel;
}

NSModalResponse runInFront(NSAlert* panel)
{
    [panel layout]; // it is shown before it runs
    [panel.window center];
    bringToFront(panel.window);
    return [panel runModal];
}

/// Waits for the sheet's answer, as Electron's nsalert_synchronous_sheet.mm does.
NSModalResponse runAsSheet(NSAlert* panel, NSWindow* parent)
{
    [panel beginSheetModalForWindow:parent completionHandler:^(NSModalResponse answer) { [NSApp stopModalWithCode:answer]; }];
    return [NSApp runModalForWindow:panel.window];
}

/// The window in which the user works; nil without one, and where a sheet hangs already.
NSWindow* parentOfSheet()
{
    NSWindow* const window = NSApp.mainWindow;
    return window.isVisible && !window.attachedSheet ? window : nil;
}

enum class AlertStands { alone, onWindow };

class MacAlerts : public Alerts {
public:
    explicit MacAlerts(AlertStands stands)
        : m_stands(stands)
    {
    }
    std::size_t run(Alert const& alert) override
    {
        NSAlert* const panel = panelFor(alert);
        NSWindow* const parent = m_stands == AlertStands::onWindow ? parentOfSheet() : nil;
        auto const answer = (parent ? runAsSheet(panel, parent) : runInFront(panel)) - NSAlertFirstButtonReturn;
        bool const isButton = answer >= 0 && static_cast<std::size_t>(answer) < alert.buttons.size();
        return isButton ? static_cast<std::size_t>(answer) : alert.escapeButton;
    }

private:
    AlertStands m_stands;
};

} // namespace

std::unique_ptr<Application> makeApplication() { return std::make_unique<MacApplication>(); }

std::unique_ptr<ModifierKeys> makeModifierKeys() { return std::make_unique<MacModifierKeys>(); }

std::unique_ptr<Alerts> makeAlerts() { return std::make_unique<MacAlerts>(AlertStands::alone); }

std::unique_ptr<Alerts> makeSheets() { return std::make_unique<MacAlerts>(AlertStands::onWindow); }

} // namespace zv
