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
