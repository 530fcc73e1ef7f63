#pragma once

#import <Foundation/Foundation.h>

#include <functional>

NS_ASSUME_NONNULL_BEGIN

/// Observes properties of one object. Calls back on the main thread in a later turn, whichever
/// thread told of the change; a call on its way may arrive after stop.
@interface ZVKeyObserver : NSObject {
    NSObject* _object;
    NSMutableSet<NSString*>* _keys;
    std::function<void()> _changed;
}
- (instancetype)initWithObject:(NSObject*)object changed:(std::function<void()>)changed;
- (void)watch:(NSString*)key;
/// Those that are watched.
@property (nonatomic, readonly) NSSet<NSString*>* keys;
/// To be called before the observer goes.
- (void)stop;
@end

NS_ASSUME_NONNULL_END
