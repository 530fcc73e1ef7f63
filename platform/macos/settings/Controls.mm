#import "platform/macos/settings/Controls.h"

#import "platform/macos/cocoa/Conversions.h"

@interface ZVControlTarget : NSObject {
    std::function<void()> _act;
}
- (instancetype)initWithFunction:(std::function<void()>)act;
- (void)act:(id)sender;
@end

@implementation ZVControlTarget
- (instancetype)initWithFunction:(std::function<void()>)act
{
    if ((self = [super init]))
        _act = std::move(act);
    return self;
}
- (void)act:(id)sender
{
    auto const running = _act;
    running();
}
@end

namespace zv {

namespace {

constexpr double rowSpacing = 8;
constexpr double columnSpacing = 10;

} // namespace

ZVControlTarget* ControlActions::targetFor(std::function<void()> act)
{
    ZVControlTarget* const target = [[ZVControlTarget alloc] initWithFunction:std::move(act)];
    [m_targets addObject:target];
    return target;
}

void ControlActions::attach(NSControl* control, std::function<void()> act)
{
    control.target = targetFor(std::move(act));
    control.action = @selector(act:);
}

void ControlActions::attachDoubleClick(NSTableView* table, std::function<void()> act)
{
    table.target = targetFor(std::move(act));
    table.doubleAction = @selector(act:);
}

NSTextField* label(std::string const& text) { return [NSTextField labelWithString:toNSString(text)]; }

NSTextField* boldLabel(std::string const& text)
{
    NSTextField* const made = label(text);
    made.font = [NSFont boldSystemFontOfSize:NSFont.systemFontSize];
    return made;
}

NSTextField* note(std::string const& text)
{
    NSTextField* const made = [NSTextField wrappingLabelWithString:toNSString(text)];
    made.font = [NSFont systemFontOfSize:NSFont.smallSystemFontSize];
    made.textColor = NSColor.secondaryLabelColor;
    return made;
}

NSButton* pushButton(std::string const& title, std::string const& help, ControlActions& actions, std::function<void()> act)
{
    NSButton* const button = [NSButton buttonWithTitle:toNSString(title) target:nil action:nil];
    if (!help.empty()) {
        button.toolTip = toNSString(help);
        button.accessibilityHelp = toNSString(help);
    }
    actions.attach(button, std::move(act));
    return button;
}

NSStackView* stack(Direction direction, std::vector<NSView*> const& views)
{
    bool const isColumn = direction == Direction::column;
    NSStackView* const made = [NSStackView stackViewWithViews:@[]];
    made.orientation = isColumn ? NSUserInterfaceLayoutOrientationVertical : NSUserInterfaceLayoutOrientationHorizontal;
    made.alignment = isColumn ? NSLayoutAttributeLeading : NSLayoutAttributeCenterY;
    made.spacing = rowSpacing;
    for (NSView* view : views)
        [made addView:view inGravity:NSStackViewGravityLeading]; // a column's top
    return made;
}

NSStackView* fillingColumn(std::vector<NSView*> const& views)
{
    NSStackView* const made = stack(Direction::column, {});
    made.distribution = NSStackViewDistributionFill;
    for (NSView* view : views) {
        [made addArrangedSubview:view];
        if ([view isKindOfClass:[NSScrollView class]] || [view isKindOfClass:[NSTextField class]])
            [view.widthAnchor constraintEqualToAnchor:made.widthAnchor].active = YES;
    }
    return made;
}

NSGridView* formGrid()
{
    NSGridView* const grid = [NSGridView gridViewWithNumberOfColumns:2 rows:0];
    grid.rowSpacing = rowSpacing;
    grid.columnSpacing = columnSpacing;
    grid.rowAlignment = NSGridRowAlignmentFirstBaseline;
    [grid columnAtIndex:0].xPlacement = NSGridCellPlacementTrailing;
    [grid columnAtIndex:1].xPlacement = NSGridCellPlacementLeading;
    return grid;
}

void addToForm(NSGridView* grid, NSView* title, NSView* field)
{
    title.translatesAutoresizingMaskIntoConstraints = NO;
    field.translatesAutoresizingMaskIntoConstraints = NO;
    [grid addRowWithViews:@[ title, field ]];
}

void fill(NSView* parent, NSView* child, double margin)
{
    child.translatesAutoresizingMaskIntoConstraints = NO;
    [parent addSubview:child];
    NSArray* const constraints = @[
        [child.leadingAnchor constraintEqualToAnchor:parent.leadingAnchor constant:margin],
        [child.trailingAnchor constraintEqualToAnchor:parent.trailingAnchor constant:-margin],
        [child.topAnchor constraintEqualToAnchor:parent.topAnchor constant:margin],
        [child.bottomAnchor constraintEqualToAnchor:parent.bottomAnchor constant:-margin]
    ];
    [NSLayoutConstraint activateConstraints:constraints];
}

void setWidth(NSView* view, double width) { [view.widthAnchor constraintEqualToConstant:width].active = YES; }

void setMinimumWidth(NSView* view, double width) { [view.widthAnchor constraintGreaterThanOrEqualToConstant:width].active = YES; }

NSScrollView* scrollAround(NSView* document)
{
    if ([document isKindOfClass:[NSTableView class]]) {
        ((NSTableView*)document).columnAutoresizingStyle = NSTableViewFirstColumnOnlyAutoresizingStyle;
        [(NSTableView*)document sizeToFit];
    }
    NSScrollView* const scroll = [[NSScrollView alloc] initWithFrame:NSMakeRect(0, 0, 300, 300)];
    scroll.hasVerticalScroller = YES;
    scroll.autohidesScrollers = YES;
    scroll.documentView = document;
    return scroll;
}

void later(std::function<void()> act) { performOnMain(std::move(act)); }

} // namespace zv
