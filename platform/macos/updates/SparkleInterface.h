#pragma once

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

/// The used part of the update framework, which is loaded at run time, not linked: so its
/// classes stand here as protocols: SPUUpdater, SPUStandardUpdaterController and SUAppcastItem
/// of https://sparkle-project.org/documentation/api-reference.

@protocol ZVAppcastItem <NSObject>
@property (nonatomic, readonly) NSString* displayVersionString;
@end

@protocol ZVUpdater <NSObject>
- (BOOL)startUpdater:(NSError* _Nullable __autoreleasing* _Nullable)error;
- (void)checkForUpdates;
@property (nonatomic, readonly) BOOL canCheckForUpdates;
@property (nonatomic) BOOL automaticallyChecksForUpdates;
@property (nonatomic, readonly, nullable) NSDate* lastUpdateCheckDate;
@end

@protocol ZVUpdaterController <NSObject>
/// Holds both delegates weakly.
- (instancetype)initWithStartingUpdater:(BOOL)starts updaterDelegate:(nullable id)updaterDelegate userDriverDelegate:(nullable id)userDriverDelegate;
@property (nonatomic, readonly) id<ZVUpdater> updater;
@end

NS_ASSUME_NONNULL_END
