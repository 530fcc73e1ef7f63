#pragma once
/* What the settings window uses of AppKit and GNUstep lacks: layout, view-based tables, tabs. Declarations only. */
@interface NSView (CompatSettings)
- (void)setTranslatesAutoresizingMaskIntoConstraints:(BOOL)b;
@property (readonly, strong) NSLayoutXAxisAnchor *leadingAnchor, *trailingAnchor, *centerXAnchor;
@property (readonly, strong) NSLayoutYAxisAnchor *topAnchor, *bottomAnchor, *centerYAnchor;
@property (readonly, strong) NSLayoutDimension *widthAnchor, *heightAnchor;
- (void)setAccessibilityLabel:(NSString *)s;
- (void)setAccessibilityHelp:(NSString *)s;
- (void)setAccessibilityValue:(id)v;
- (void)setIdentifier:(NSString *)s;
@end
typedef NS_ENUM(NSInteger, NSStackViewGravity) { NSStackViewGravityLeading = 1 };
typedef NS_ENUM(NSInteger, NSStackViewDistribution) { NSStackViewDistributionFill = 0 };
@interface NSStackView : NSView
+ (instancetype)stackViewWithViews:(NSArray<NSView *> *)v;
- (void)setOrientation:(NSUserInterfaceLayoutOrientation)o;
- (void)setAlignment:(NSLayoutAttribute)a;
- (void)setDistribution:(NSStackViewDistribution)d;
- (void)setSpacing:(CGFloat)s;
- (void)setEdgeInsets:(NSEdgeInsets)i;
- (void)addArrangedSubview:(NSView *)v;
- (void)addView:(NSView *)v inGravity:(NSStackViewGravity)g;
@end
@interface NSTextField (CompatSettings)
+ (instancetype)wrappingLabelWithString:(NSString *)s;
- (void)setPlaceholderString:(NSString *)s;
@end
@interface NSFont (CompatSettings)
+ (NSFont *)monospacedSystemFontOfSize:(CGFloat)s weight:(NSFontWeight)w;
@end
@interface NSEvent (CompatSettings)
- (NSString *)charactersByApplyingModifiers:(NSEventModifierFlags)m;
@end
@interface NSTableCellView : NSView { NSTextField *_textField; NSImageView *_imageView; }
@property (strong) NSTextField *textField;
@property (strong) NSImageView *imageView;
@end
@interface NSTableView (CompatSettings)
- (NSView *)makeViewWithIdentifier:(NSString *)i owner:(id)o;
@end
@interface NSSplitView (CompatSettings)
- (void)addArrangedSubview:(NSView *)v;
- (void)setHoldingPriority:(NSLayoutPriority)p forSubviewAtIndex:(NSInteger)i;
@end
@interface NSTabViewItem (CompatSettings)
- (void)setImage:(NSImage *)i;
@end
typedef NS_ENUM(NSInteger, NSWindowToolbarStyle) { NSWindowToolbarStylePreference = 2 };
@interface NSWindow (CompatSettings)
- (void)setContentViewController:(NSViewController *)c;
- (void)setToolbarStyle:(NSWindowToolbarStyle)s;
@end
@interface NSWindow (CompatSheets)
- (void)beginSheet:(NSWindow *)w completionHandler:(void (^)(NSModalResponse))h;
- (void)endSheet:(NSWindow *)w;
@end
@interface NSColor (CompatSettings)
+ (NSColor *)selectedContentBackgroundColor;
@end
@interface NSIndexPath (CompatSettings)
+ (instancetype)indexPathForItem:(NSInteger)i inSection:(NSInteger)s;
@property (readonly) NSInteger item;
@end
@class NSCollectionViewItem;
@interface NSCollectionViewLayout : NSObject
@end
@interface NSCollectionViewFlowLayout : NSCollectionViewLayout
- (void)setItemSize:(NSSize)s;
- (void)setMinimumInteritemSpacing:(CGFloat)s;
- (void)setMinimumLineSpacing:(CGFloat)s;
@end
@protocol NSCollectionViewDataSource <NSObject>
- (NSInteger)collectionView:(NSCollectionView *)c numberOfItemsInSection:(NSInteger)s;
- (NSCollectionViewItem *)collectionView:(NSCollectionView *)c itemForRepresentedObjectAtIndexPath:(NSIndexPath *)p;
@end
typedef NS_OPTIONS(NSUInteger, NSCollectionViewScrollPosition) { NSCollectionViewScrollPositionCenteredVertically = 1 << 1 };
@interface NSCollectionView (CompatSettings)
- (void)setCollectionViewLayout:(NSCollectionViewLayout *)l;
- (void)setDataSource:(id<NSCollectionViewDataSource>)d;
- (void)registerClass:(Class)c forItemWithIdentifier:(NSString *)i;
- (NSCollectionViewItem *)makeItemWithIdentifier:(NSString *)i forIndexPath:(NSIndexPath *)p;
- (void)selectItemsAtIndexPaths:(NSSet<NSIndexPath *> *)p scrollPosition:(NSCollectionViewScrollPosition)s;
- (void)reloadData;
@property (readonly, copy) NSSet<NSIndexPath *> *selectionIndexPaths;
@end
@interface NSUndoManager (CompatSettings)
- (void)registerUndoWithTarget:(id)t handler:(void (^)(id))h;
@end
@protocol NSStandardKeyBindingResponding <NSObject>
@optional
- (void)cancelOperation:(id)sender;
@end
@protocol NSSearchFieldDelegate <NSTextFieldDelegate>
@end
@interface NSPasteboard (CompatSettings)
- (NSArray<NSPasteboardItem *> *)pasteboardItems;
@end
