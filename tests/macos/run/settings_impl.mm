/* What the settings window calls of AppKit and gui 0.29 lacks: layout by anchors, stacks and grids, view-based tables,
   tabs in a window. As far as that window goes: enough to drive it and to look at it. */
#import <objc/runtime.h>

#include <algorithm>

typedef NSMutableDictionary Notes;
/* What is remembered of an object; leaks, in the test only. */
static Notes* notesOf(id object)
{
    static auto* all = new std::map<void*, Notes*>;
    auto& found = (*all)[object];
    return found ? found : found = [[Notes alloc] init];
}
static double number(id object, NSString* key, double otherwise)
{
    id const value = [notesOf(object) objectForKey:key];
    return value ? [value doubleValue] : otherwise;
}
static void set(id object, NSString* key, id value) { value ? [notesOf(object) setObject:value forKey:key] : [notesOf(object) removeObjectForKey:key]; }
static void setNumber(id object, NSString* key, double value) { set(object, key, [NSNumber numberWithDouble:value]); }
static NSMutableArray* listOf(id object, NSString* key)
{
    if (![notesOf(object) objectForKey:key])
        set(object, key, [NSMutableArray array]);
    return [notesOf(object) objectForKey:key];
}

/* An edge of a view, at a distance from another one; a width without one. */
@interface CompatConstraint : NSObject {
@public
    NSView *view, *other;
    char edge, otherEdge;
    double distance;
    BOOL isMinimum;
}
- (void)setActive:(BOOL)isActive;
@end
@implementation CompatConstraint
- (void)setActive:(BOOL)isActive
{
    if (!other)
        setNumber(view, [NSString stringWithFormat:isMinimum ? @"least %c" : @"%c", edge], distance);
    else if (edge == 'w')
        setNumber(view, @"fills", 1);
    else if (other != [view superview] && edge == 'b')
        setNumber(view, @"below", distance); // ends a distance below the other
    else
        [listOf(view, @"edges") addObject:self];
}
@end
@interface CompatAnchor : NSObject {
@public
    NSView* view;
    char edge;
}
@end
@implementation CompatAnchor
- (id)to:(CompatAnchor*)other distance:(double)distance least:(BOOL)isMinimum
{
    CompatConstraint* const made = [[CompatConstraint alloc] init];
    made->view = view, made->edge = edge, made->distance = distance, made->isMinimum = isMinimum;
    if (other)
        made->other = other->view, made->otherEdge = other->edge;
    return made;
}
- (id)constraintEqualToAnchor:(CompatAnchor*)other { return [self to:other distance:0 least:NO]; }
- (id)constraintEqualToAnchor:(CompatAnchor*)other constant:(CGFloat)distance { return [self to:other distance:distance least:NO]; }
- (id)constraintEqualToConstant:(CGFloat)size { return [self to:nil distance:size least:NO]; }
- (id)constraintGreaterThanOrEqualToConstant:(CGFloat)size { return [self to:nil distance:size least:YES]; }
@end
@implementation NSLayoutConstraint (CompatSettings)
+ (void)compat_activateConstraints:(NSArray*)constraints
{
    for (CompatConstraint* each in constraints)
        [each setActive:YES];
}
@end
static id anchor(NSView* view, char edge)
{
    CompatAnchor* const made = [[CompatAnchor alloc] init];
    made->view = view, made->edge = edge;
    return made;
}

@implementation NSStackView
+ (instancetype)stackViewWithViews:(NSArray*)views { return [[self alloc] initWithFrame:NSZeroRect]; }
- (void)setOrientation:(NSUserInterfaceLayoutOrientation)orientation { setNumber(self, @"column", orientation == NSUserInterfaceLayoutOrientationVertical); }
- (void)setAlignment:(NSLayoutAttribute)alignment { setNumber(self, @"centred", alignment == NSLayoutAttributeCenterX); }
- (void)setDistribution:(NSStackViewDistribution)distribution { }
- (void)setSpacing:(CGFloat)spacing { setNumber(self, @"spacing", spacing); }
- (void)setEdgeInsets:(NSEdgeInsets)insets { setNumber(self, @"left", insets.left); }
- (void)addArrangedSubview:(NSView*)view { [self addSubview:view]; }
- (void)addView:(NSView*)view inGravity:(NSStackViewGravity)gravity { [self addSubview:view]; }
@end

@implementation NSCollectionViewLayout
@end
@implementation NSCollectionViewFlowLayout
- (void)setItemSize:(NSSize)size { }
- (void)setMinimumInteritemSpacing:(CGFloat)spacing { }
- (void)setMinimumLineSpacing:(CGFloat)spacing { }
@end

/* gui 0.29 has grids, but none without rows. */
@interface CompatLine : NSObject {
    CGFloat _topPadding;
    NSGridCellPlacement _xPlacement;
}
@property CGFloat topPadding;
@property NSGridCellPlacement xPlacement;
@end
@implementation CompatLine
@synthesize topPadding = _topPadding, xPlacement = _xPlacement;
@end
@interface CompatGrid : NSGridView
@end
@implementation CompatGrid
- (NSInteger)numberOfRows { return [listOf(self, @"views") count] / 2; }
- (NSInteger)numberOfColumns { return 2; }
- (id)columnAtIndex:(NSInteger)index { return [self lineAtIndex:index of:@"columns"]; }
- (id)rowAtIndex:(NSInteger)index { return [self lineAtIndex:index of:@"rows"]; }
- (id)lineAtIndex:(NSInteger)index of:(NSString*)key
{
    while ([listOf(self, key) count] <= (NSUInteger)index)
        [listOf(self, key) addObject:[[CompatLine alloc] init]];
    return [listOf(self, key) objectAtIndex:index];
}
- (NSGridRow*)addRowWithViews:(NSArray*)views
{
    [listOf(self, @"views") addObjectsFromArray:views];
    for (NSView* each in views)
        [self addSubview:each];
    return [self rowAtIndex:[self numberOfRows] - 1];
}
@end
@implementation NSGridView (CompatSettings)
+ (instancetype)compat_gridViewWithNumberOfColumns:(NSInteger)columns rows:(NSInteger)rows { return [[CompatGrid alloc] initWithFrame:NSZeroRect]; }
@end
static NSView* viewIn(NSGridView* grid, NSInteger row, NSInteger column) { return [listOf(grid, @"views") objectAtIndex:2 * row + column]; }

static NSSize fitOf(NSView* view);
static NSSize fitOfStack(NSView* stack)
{
    bool const isColumn = number(stack, @"column", 0) != 0;
    double along = 0, across = 0;
    for (NSView* each in [stack subviews]) {
        if ([each isHidden])
            continue;
        NSSize const fit = fitOf(each);
        along += (isColumn ? fit.height : fit.width) + (along > 0 ? number(stack, @"spacing", 8) : 0);
        across = std::max(across, isColumn ? fit.width : fit.height);
    }
    double const left = number(stack, @"left", 0);
    return isColumn ? NSMakeSize(across + left, along) : NSMakeSize(along + left, across);
}
static std::vector<double> extents(NSGridView* grid, bool ofRows)
{
    std::vector<double> found(ofRows ? [grid numberOfRows] : [grid numberOfColumns]);
    for (NSInteger row = 0; row < [grid numberOfRows]; ++row) {
        for (NSInteger column = 0; column < [grid numberOfColumns]; ++column) {
            NSSize const fit = fitOf(viewIn(grid, row, column));
            auto& extent = found[ofRows ? row : column];
            extent = std::max(extent, ofRows ? fit.height : fit.width);
        }
    }
    return found;
}
static double sum(std::vector<double> const& extents, double spacing)
{
    double total = -spacing;
    for (double each : extents)
        total += each + spacing;
    return total;
}
static double paddings(NSGridView* grid, NSInteger rows)
{
    double total = 0;
    for (NSInteger row = 0; row < rows; ++row)
        total += [[grid rowAtIndex:row] topPadding];
    return total;
}
static NSSize fitOfPinned(NSView* view)
{
    NSSize most = NSZeroSize;
    for (NSView* each in [view subviews]) {
        NSSize const fit = fitOf(each);
        double wide = fit.width, high = fit.height + number(view, @"below", 0);
        for (CompatConstraint* pin in listOf(each, @"edges"))
            (strchr("lr", pin->edge) ? wide : high) += strchr("lrtb", pin->edge) ? std::abs(pin->distance) : 0;
        most = NSMakeSize(std::max(most.width, wide), std::max(most.height, high));
    }
    return most;
}
static NSSize naturalFit(NSView* view)
{
    if ([view isKindOfClass:[NSStackView class]])
        return fitOfStack(view);
    if ([view isKindOfClass:[NSGridView class]]) {
        NSGridView* const grid = (NSGridView*)view;
        return NSMakeSize(sum(extents(grid, false), [grid columnSpacing]), sum(extents(grid, true), [grid rowSpacing]) + paddings(grid, [grid numberOfRows]));
    }
    if ([view isKindOfClass:[NSScrollView class]])
        return NSMakeSize(120, 80);
    if ([view isKindOfClass:[NSImageView class]])
        return NSMakeSize(number(view, @"w", [view frame].size.width), [view frame].size.height);
    if ([view isKindOfClass:[NSTextField class]] && number(view, @"wraps", 0))
        return [[(NSTextField*)view attributedStringValue] boundingRectWithSize:NSMakeSize(number(view, @"w", 300) - 8, 2000) options:NSStringDrawingUsesLineFragmentOrigin].size;
    if ([view isKindOfClass:[NSControl class]]) {
        NSSize const size = [[(NSControl*)view cell] cellSize];
        return NSMakeSize(size.width + 4, std::max(size.height, 20.0));
    }
    return fitOfPinned(view);
}
static NSSize fitOf(NSView* view)
{
    if (!view || [view isHidden])
        return NSZeroSize;
    NSSize const fit = naturalFit(view);
    return NSMakeSize(number(view, @"w", std::max(fit.width, number(view, @"least w", 0))), number(view, @"h", fit.height));
}

static void place(NSView* view, double x, double top, double width, double height)
{
    NSView* const above = [view superview];
    [view setFrame:NSMakeRect(x, [above isFlipped] ? top : [above bounds].size.height - top - height, width, height)];
}
static void layStack(NSView* stack)
{
    bool const isColumn = number(stack, @"column", 0) != 0;
    NSSize const room = [stack bounds].size, needed = fitOfStack(stack);
    double at = isColumn ? 0 : number(stack, @"left", 0);
    for (NSView* each in [stack subviews]) {
        if ([each isHidden])
            continue;
        NSSize fit = fitOf(each);
        if (number(each, @"fills", 0))
            fit.width = room.width;
        if ([each isKindOfClass:[NSScrollView class]])
            fit.height += std::max(0.0, room.height - needed.height);
        double const left = number(stack, @"centred", 0) ? (room.width - fit.width) / 2 : number(stack, @"left", 0);
        if (isColumn)
            place(each, left, at, fit.width, fit.height);
        else
            place(each, at, (room.height - fit.height) / 2, fit.width, fit.height);
        at += (isColumn ? fit.height : fit.width) + number(stack, @"spacing", 8);
    }
}
static void layGrid(NSGridView* grid)
{
    auto const columns = extents(grid, false), rows = extents(grid, true);
    double top = 0;
    for (NSInteger row = 0; row < [grid numberOfRows]; ++row) {
        double left = 0;
        top += [[grid rowAtIndex:row] topPadding];
        for (NSInteger column = 0; column < [grid numberOfColumns]; ++column) {
            NSView* const each = viewIn(grid, row, column);
            NSSize const fit = fitOf(each);
            bool const isTrailing = [[grid columnAtIndex:column] xPlacement] == NSGridCellPlacementTrailing;
            place(each, left + (isTrailing ? columns[column] - fit.width : 0), top + (rows[row] - fit.height) / 2, fit.width, fit.height);
            left += columns[column] + [grid columnSpacing];
        }
        top += rows[row] + [grid rowSpacing];
    }
}
static void layPinned(NSView* view, NSView* within)
{
    NSSize const room = [within bounds].size, fit = fitOf(view);
    double left = 0, right = -1, top = 0, bottom = -1;
    for (CompatConstraint* pin in listOf(view, @"edges")) {
        double const sibling = pin->other == within ? 0 : NSMaxX([pin->other frame]);
        switch (pin->edge) {
        case 'l': left = sibling + pin->distance; break;
        case 'r': right = room.width + pin->distance; break;
        case 't': top = pin->distance; break;
        case 'b': bottom = room.height + pin->distance; break;
        case 'x': left = (room.width - fit.width) / 2; break;
        case 'y': top = (room.height - fit.height) / 2; break;
        }
    }
    place(view, left, top, right < 0 ? fit.width : right - left, bottom < 0 ? fit.height : bottom - top);
}
/// Of two parts, the one that is itself split grows, else the first.
static void laySplit(NSSplitView* split)
{
    NSView* const parts[] = { [[split subviews] objectAtIndex:0], [[split subviews] objectAtIndex:1] };
    bool const isRow = [split isVertical] != NO;
    NSSize const all = [split bounds].size;
    int const growing = [parts[1] isKindOfClass:[NSSplitView class]] ? 1 : 0;
    NSSize const fit = fitOf(parts[1 - growing]);
    double const rest = (isRow ? all.width - fit.width : all.height - fit.height) - 8;
    double at = 0;
    for (int i = 0; i < 2; ++i) {
        double const extent = i == growing ? rest : isRow ? fit.width : fit.height;
        place(parts[i], isRow ? at : 0, isRow ? 0 : at, isRow ? extent : all.width, isRow ? all.height : extent);
        at += extent + 8;
    }
}
static void layScrolled(NSScrollView* scroll)
{
    NSView* const document = [scroll documentView];
    [scroll tile];
    NSSize const room = [scroll contentSize];
    if ([document isKindOfClass:[NSTableView class]])
        [(NSTableView*)document sizeToFit];
    else if ([listOf(document, @"edges") count] > 0)
        [document setFrame:NSMakeRect(0, 0, room.width, std::max(room.height, fitOf(document).height))];
}
void compatLayOut(NSView* view)
{
    if ([view isKindOfClass:[NSStackView class]])
        layStack(view);
    else if ([view isKindOfClass:[NSGridView class]])
        layGrid((NSGridView*)view);
    else if ([view isKindOfClass:[NSSplitView class]])
        laySplit((NSSplitView*)view);
    else if ([view isKindOfClass:[NSScrollView class]])
        layScrolled((NSScrollView*)view);
    else
        for (NSView* each in [view subviews])
            if ([listOf(each, @"edges") count] > 0)
                layPinned(each, view);
    for (NSView* each in [view subviews])
        compatLayOut(each);
}

@implementation NSView (CompatSettings)
- (void)setTranslatesAutoresizingMaskIntoConstraints:(BOOL)translates { }
- (NSLayoutXAxisAnchor*)leadingAnchor { return anchor(self, 'l'); }
- (NSLayoutXAxisAnchor*)trailingAnchor { return anchor(self, 'r'); }
- (NSLayoutXAxisAnchor*)centerXAnchor { return anchor(self, 'x'); }
- (NSLayoutYAxisAnchor*)topAnchor { return anchor(self, 't'); }
- (NSLayoutYAxisAnchor*)bottomAnchor { return anchor(self, 'b'); }
- (NSLayoutYAxisAnchor*)centerYAnchor { return anchor(self, 'y'); }
- (NSLayoutDimension*)widthAnchor { return anchor(self, 'w'); }
- (NSLayoutDimension*)heightAnchor { return anchor(self, 'h'); }
- (NSString*)accessibilityLabel { return [notesOf(self) objectForKey:@"label"]; }
- (void)setAccessibilityLabel:(NSString*)label { set(self, @"label", label); }
- (void)setAccessibilityHelp:(NSString*)help { }
- (void)setAccessibilityValue:(id)value { }
- (void)setIdentifier:(NSString*)identifier { }
@end

@implementation NSButton (CompatMac)
+ (instancetype)buttonWithTitle:(NSString*)title target:(id)target action:(SEL)action
{
    NSButton* const made = [[self alloc] initWithFrame:NSZeroRect];
    [made setTitle:title];
    [made setBezelStyle:NSRoundedBezelStyle];
    return made;
}
+ (instancetype)checkboxWithTitle:(NSString*)title target:(id)target action:(SEL)action
{
    NSButton* const made = [self buttonWithTitle:title target:target action:action];
    [made setButtonType:NSSwitchButton];
    return made;
}
@end
@implementation NSTextField (CompatMac)
+ (instancetype)labelWithString:(NSString*)text
{
    NSTextField* const made = [[self alloc] initWithFrame:NSZeroRect];
    [made setStringValue:text];
    [made setBezeled:NO];
    [made setEditable:NO];
    [made setDrawsBackground:NO];
    return made;
}
@end
@implementation NSTextField (CompatSettings)
+ (instancetype)wrappingLabelWithString:(NSString*)text
{
    NSTextField* const made = [self labelWithString:text];
    setNumber(made, @"wraps", 1);
    [[made cell] setWraps:YES];
    return made;
}
- (void)setPlaceholderString:(NSString*)text { [[self cell] setPlaceholderString:text]; }
@end
@implementation NSFont (CompatSettings)
+ (NSFont*)monospacedSystemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight { return [NSFont userFixedPitchFontOfSize:size]; }
@end
@implementation NSImageSymbolConfiguration
+ (instancetype)configurationPreferringMulticolor { return nil; }
@end
@implementation NSImage (CompatSettings)
- (NSImage*)imageWithSymbolConfiguration:(NSImageSymbolConfiguration*)configuration { return self; }
+ (instancetype)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description { return [NSImage imageNamed:@"NSCaution"]; }
@end
@implementation NSSplitView (CompatSettings)
- (void)addArrangedSubview:(NSView*)view { [self addSubview:view]; }
- (void)setHoldingPriority:(NSLayoutPriority)priority forSubviewAtIndex:(NSInteger)index { }
@end
@implementation NSTabViewController (CompatSettings)
- (NSArray*)tabViewItems { return listOf(self, @"tabs"); }
- (void)addTabViewItem:(NSTabViewItem*)item { [listOf(self, @"tabs") addObject:item]; }
- (NSInteger)selectedTabViewItemIndex { return number(self, @"tab", 0); }
- (void)setSelectedTabViewItemIndex:(NSInteger)index { setNumber(self, @"tab", index); }
@end
@implementation NSTabViewItem (CompatSettings)
- (void)setImage:(NSImage*)image { }
@end
@implementation NSWindow (CompatSettings)
- (void)setContentViewController:(NSViewController*)controller
{
    NSTabView* const tabs = [[NSTabView alloc] initWithFrame:[[self contentView] frame]];
    for (NSTabViewItem* each in [(NSTabViewController*)controller tabViewItems]) {
        [each setView:[[each viewController] view]];
        [tabs addTabViewItem:each];
    }
    [self setContentView:tabs];
}
- (void)setToolbarStyle:(NSWindowToolbarStyle)style { }
@end
@interface CompatUndo : NSObject {
@public
    id target;
    void (^handler)(id);
}
- (void)run:(id)sender;
@end
@implementation CompatUndo
- (void)run:(id)sender { handler(target); }
@end
@implementation NSUndoManager (CompatSettings)
- (void)registerUndoWithTarget:(id)target handler:(void (^)(id))handler
{
    CompatUndo* const step = [[CompatUndo alloc] init];
    step->target = target, step->handler = [handler copy];
    [self registerUndoWithTarget:step selector:@selector(run:) object:nil];
}
@end
/* Tables of views: asked for at each drawing, and drawn by their cells. */
@implementation NSTableCellView
@synthesize textField = _textField, imageView = _imageView;
@end
@implementation NSTableView (CompatSettings)
- (NSView*)makeViewWithIdentifier:(NSString*)identifier owner:(id)owner { return nil; }
- (NSView*)compat_viewAtRow:(NSInteger)row column:(NSTableColumn*)column
{
    if ([self isKindOfClass:[NSOutlineView class]])
        return [(id)[self delegate] outlineView:(NSOutlineView*)self viewForTableColumn:column item:[(NSOutlineView*)self itemAtRow:row]];
    return [(id)[self delegate] tableView:self viewForTableColumn:column row:row];
}
- (void)compat_drawRow:(NSInteger)row clipRect:(NSRect)clip
{
    bool const isOutline = [self isKindOfClass:[NSOutlineView class]];
    for (NSInteger i = 0; i < [self numberOfColumns]; ++i) {
        NSTableColumn* const column = [[self tableColumns] objectAtIndex:i];
        NSTableCellView* const view = (NSTableCellView*)[self compat_viewAtRow:row column:column];
        NSRect frame = [self frameOfCellAtColumn:i row:row];
        if (isOutline && i == 0) {
            NSOutlineView* const outline = (NSOutlineView*)self;
            id const item = [outline itemAtRow:row];
            double const indent = 14 + 14 * [outline levelForRow:row];
            if ([outline isExpandable:item])
                [[outline isItemExpanded:item] ? @"▾" : @"▸" drawAtPoint:NSMakePoint(NSMinX(frame) + indent - 12, NSMinY(frame)) withAttributes:nil];
            frame.origin.x += indent, frame.size.width -= indent;
        }
        if ([view imageView]) {
            [[[view imageView] image] drawInRect:NSMakeRect(NSMinX(frame), NSMinY(frame), 14, 14) fromRect:NSZeroRect operation:NSCompositeSourceOver fraction:1];
            frame.origin.x += 18, frame.size.width -= 18;
        }
        [[[view textField] cell] drawWithFrame:frame inView:self];
    }
}
@end
@implementation NSObject (CompatSettings)
- (id)tableView:(NSTableView*)table objectValueForTableColumn:(NSTableColumn*)column row:(NSInteger)row { return nil; }
- (id)outlineView:(NSOutlineView*)outline objectValueForTableColumn:(NSTableColumn*)column byItem:(id)item { return nil; }
@end
@interface SettingsInstall : NSObject
@end
@implementation SettingsInstall
static void swapIn(Class owner, SEL given, SEL own) { method_exchangeImplementations(class_getInstanceMethod(owner, given), class_getInstanceMethod(owner, own)); }
+ (void)load
{
    @autoreleasepool {
        swapIn(object_getClass([NSLayoutConstraint class]), @selector(activateConstraints:), @selector(compat_activateConstraints:));
        swapIn(object_getClass([NSGridView class]), @selector(gridViewWithNumberOfColumns:rows:), @selector(compat_gridViewWithNumberOfColumns:rows:));
        for (Class table : { [NSTableView class], [NSOutlineView class] })
            class_replaceMethod(table, @selector(drawRow:clipRect:), class_getMethodImplementation([NSTableView class], @selector(compat_drawRow:clipRect:)), "v@:q{_NSRect=dddd}");
    }
}
@end
