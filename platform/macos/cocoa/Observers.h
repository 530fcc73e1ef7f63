#pragma once

#import <Cocoa/Cocoa.h>

namespace zv {

/// Listens to notifications, on the main thread, for as long as it lives.
class Observers {
public:
    explicit Observers(NSNotificationCenter* center)
        : m_center(center)
    {
    }
    ~Observers()
    {
        for (id token in m_tokens)
            [m_center removeObserver:token];
    }
    Observers(Observers const&) = delete;
    Observers& operator=(Observers const&) = delete;

    void observe(NSString* name, void (^told)(NSNotification*))
    {
        [m_tokens addObject:[m_center addObserverForName:name object:nil queue:[NSOperationQueue mainQueue] usingBlock:told]];
    }

private:
    NSNotificationCenter* m_center;
    NSMutableArray* m_tokens = [[NSMutableArray alloc] init];
};

} // namespace zv
