#pragma once
/// The steps of a run: printed; a wrong outcome ends it with a sentence.
#import <Cocoa/Cocoa.h>

#include <cstdio>
#include <cstdlib>

inline void expect(bool holds, char const* what)
{
    std::printf("%s: %s\n", holds ? "ok" : "WRONG", what);
    std::fflush(stdout);
    if (!holds)
        std::exit(1);
}

inline void runLoopFor(double seconds)
{
    NSDate* const end = [NSDate dateWithTimeIntervalSinceNow:seconds];
    while ([end timeIntervalSinceNow] > 0)
        [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.02]];
}

inline NSEvent* pressOf(NSString* key, NSUInteger modifiers)
{
    return [NSEvent keyEventWithType:NSKeyDown
                            location:NSZeroPoint
                       modifierFlags:modifiers
                           timestamp:0
                        windowNumber:0
                             context:nil
                          characters:key
         charactersIgnoringModifiers:key
                           isARepeat:NO
                             keyCode:14];
}
