#pragma once

#import <Cocoa/Cocoa.h>

NS_ASSUME_NONNULL_BEGIN

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

    void observe(NSNotificationName name, void (^told)(NSNotification* notification))
    {
        [m_tokens addObject:[m_center addObserverForName:name object:nil queue:NSOperationQueue.mainQueue usingBlock:told]];
    }

private:
    NSNotificationCenter* m_center;
    NSMutableArray<id<NSObject>>* m_tokens = [[NSMutableArray alloc] init];
};

} // namespace zv

NS_ASSUME_NONNULL_END
