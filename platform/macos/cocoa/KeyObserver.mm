#import "platform/macos/cocoa/KeyObserver.h"

#import "platform/macos/cocoa/Conversions.h"

@implementation ZVKeyObserver

- (instancetype)initWithObject:(NSObject*)object changed:(std::function<void()>)changed
{
    if (!(self = [super init]))
        return nil;
    _object = object;
    _keys = [[NSMutableSet alloc] init];
    _changed = std::move(changed);
    return self;
}

- (void)watch:(NSString*)key
{
    [_keys addObject:key];
    [_object addObserver:self forKeyPath:key options:NSKeyValueObservingOptionNew context:nullptr];
}

- (NSSet<NSString*>*)keys
{
    return _keys;
}

- (void)stop
{
    for (NSString* key in _keys)
        [_object removeObserver:self forKeyPath:key];
    [_keys removeAllObjects];
}

- (void)observeValueForKeyPath:(NSString*)path ofObject:(id)object change:(NSDictionary<NSString*, id>*)change context:(void*)context
{
    zv::performOnMain(_changed);
}

@end
