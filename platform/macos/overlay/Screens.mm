#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/cocoa/Observers.h"

namespace zv {

namespace {

class MacScreens : public Screens {
public:
    MacScreens()
    {
        m_observers.observe(NSApplicationDidChangeScreenParametersNotification, ^(NSNotification*) {
            if (onChanged)
                onChanged();
        });
    }

    std::vector<Rect> frames() const override
    {
        std::vector<Rect> frames;
        for (NSScreen* screen in NSScreen.screens) {
            NSRect const frame = screen.frame;
            frames.push_back({ frame.origin.x, frame.origin.y, frame.size.width, frame.size.height });
        }
        return frames;
    }

private:
    Observers m_observers { NSNotificationCenter.defaultCenter };
};

class MacWorkspaceEvents : public WorkspaceEvents {
public:
    MacWorkspaceEvents()
    {
        m_observers.observe(NSWorkspaceActiveSpaceDidChangeNotification, ^(NSNotification*) {
            if (onActiveSpaceChanged)
                onActiveSpaceChanged();
        });
        m_observers.observe(NSWorkspaceDidActivateApplicationNotification, ^(NSNotification*) {
            if (onApplicationActivated)
                onApplicationActivated();
        });
    }

private:
    Observers m_observers { NSWorkspace.sharedWorkspace.notificationCenter };
};

} // namespace

std::unique_ptr<Screens> makeScreens() { return std::make_unique<MacScreens>(); }

std::unique_ptr<WorkspaceEvents> makeWorkspaceEvents() { return std::make_unique<MacWorkspaceEvents>(); }

} // namespace zv
