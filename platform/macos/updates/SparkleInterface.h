#pragma once

#import <Foundation/Foundation.h>

/// The used part of the update framework, which is loaded at run time, not linked: so its
/// classes stand here as protocols: SPUUpdater, SPUStandardUpdaterController and SUAppcastItem
/// of https://sparkle-project.org/documentation/api-reference.

@protocol ZVAppcastItem <NSObject>
- (NSString*)displayVersionString;
@end

@protocol ZVUpdater <NSObject>
- (BOOL)startUpdater:(NSError* __autoreleasing*)error;
- (void)checkForUpdates;
- (BOOL)canCheckForUpdates;
- (BOOL)automaticallyChecksForUpdates;
- (void)setAutomaticallyChecksForUpdates:(BOOL)automatically;
- (NSDate*)lastUpdateCheckDate;
@end

@protocol ZVUpdaterController <NSObject>
/// Holds both delegates weakly.
- (id)initWithStartingUpdater:(BOOL)starts updaterDelegate:(id)updaterDelegate userDriverDelegate:(id)userDriverDelegate;
- (id<ZVUpdater>)updater;
@end
