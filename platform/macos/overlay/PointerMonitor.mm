#import "platform/macos/cocoa/Factories.h"

#import <Cocoa/Cocoa.h>

namespace zv {

namespace {

class MonitorToken : public PointerMonitor::Token {
public:
    explicit MonitorToken(id monitor)
        : m_monitor(monitor)
    {
    }
    ~MonitorToken() override { [NSEvent removeMonitor:m_monitor]; }

private:
    id m_monitor;
};

class MacPointerMonitor : public PointerMonitor {
public:
    std::unique_ptr<Token> watch(std::function<void()> moved) override
    {
        void (^const told)(NSEvent*) = ^(NSEvent*) {
            auto const call = moved;
            call();
        };
        id const monitor = [NSEvent addGlobalMonitorForEventsMatchingMask:NSEventMaskMouseMoved handler:told];
        return monitor ? std::make_unique<MonitorToken>(monitor) : nullptr;
    }

    Point location() const override
    {
        NSPoint const place = NSEvent.mouseLocation;
        return { place.x, place.y };
    }
};

} // namespace

std::unique_ptr<PointerMonitor> makePointerMonitor() { return std::make_unique<MacPointerMonitor>(); }

} // namespace zv
