#import "platform/macos/settings/GalleryView.h"

#import "platform/macos/cocoa/ClosingWindow.h"
#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/settings/Cells.h"

namespace {

constexpr double listWidth = 150;
constexpr double previewWidth = 360;
NSSize const windowSize = NSMakeSize(580, 480);

void name(NSTableView* table, zv::Sentence const& title)
{
    table.headerView = nil;
    table.accessibilityLabel = zv::toNSString(zv::tr(title));
}

NSScrollView* framed(NSTableView* table, double width)
{
    NSScrollView* const scroll = zv::scrollAround(table);
    scroll.borderType = NSBezelBorder;
    zv::setMinimumWidth(scroll, width);
    return scroll;
}

NSArray<ZVPreviewRow*>* rowsOf(std::vector<zv::MenuItem> const& items)
{
    NSMutableArray<ZVPreviewRow*>* const rows = [NSMutableArray array];
    for (auto const& item : items) {
        ZVPreviewRow* const row = [[ZVPreviewRow alloc] init];
        row->item = &item;
        row->rows = rowsOf(item.children);
        [rows addObject:row];
    }
    return rows;
}

} // namespace

@implementation ZVPreviewRow
@end

@implementation ZVGallery

- (instancetype)initWithModels:(zv::SettingsModels&)models
{
    if (!(self = [super init]))
        return nil;
    _models = &models;
    [self makeWindow];
    return self;
}

/// Shows the menus as they are now.
- (void)open
{
    _menus = _models->gallery().menus();
    [_list reloadData];
    [_list selectRowIndexes:[NSIndexSet indexSetWithIndex:0] byExtendingSelection:NO];
    [self showChosen];
    [_window center];
    [_window makeKeyAndOrderFront:nil];
    [_window makeFirstResponder:_list];
}

- (void)makeWindow
{
    _window = [[ZVClosingWindow alloc] initWithContentRect:NSMakeRect(0, 0, windowSize.width, windowSize.height)
                                                 styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskClosable | NSWindowStyleMaskResizable
                                                   backing:NSBackingStoreBuffered
                                                     defer:YES];
    _window.title = zv::toNSString(zv::tr(zv::StartGallery::texts().window));
    _window.releasedWhenClosed = NO;
    [self makeTables];
    _description = zv::note("");
    NSTextField* const note = zv::note(_models->gallery().note());
    NSSplitView* const columns = [[NSSplitView alloc] initWithFrame:NSMakeRect(0, 0, windowSize.width, windowSize.height)];
    columns.vertical = YES;
    columns.dividerStyle = NSSplitViewDividerStyleThin;
    [columns addArrangedSubview:framed(_list, listWidth)];
    [columns addArrangedSubview:zv::fillingColumn({ _description, framed(_preview, previewWidth), note, [self buttons] })];
    [columns setHoldingPriority:NSLayoutPriorityDefaultLow + 1 forSubviewAtIndex:0]; // the preview grows first
    zv::fill(_window.contentView, columns, 16);
}

- (void)makeTables
{
    _list = [[NSTableView alloc] initWithFrame:NSMakeRect(0, 0, listWidth, 300)];
    [_list addTableColumn:[[NSTableColumn alloc] initWithIdentifier:@"menu"]];
    name(_list, zv::StartGallery::texts().list);
    _list.dataSource = self;
    _list.delegate = self;
    _preview = [[NSOutlineView alloc] initWithFrame:NSMakeRect(0, 0, previewWidth, 300)];
    NSTableColumn* const entries = [[NSTableColumn alloc] initWithIdentifier:@"entry"];
    [_preview addTableColumn:entries];
    _preview.outlineTableColumn = entries;
    name(_preview, zv::StartGallery::texts().preview);
    _preview.dataSource = self;
    _preview.delegate = self;
}

- (NSView*)buttons
{
    auto const& texts = zv::StartGallery::texts();
    __unsafe_unretained ZVGallery* const gallery = self;
    NSButton* const cancel = zv::pushButton(zv::tr(texts.cancel), {}, _actions, [gallery] { [gallery->_window orderOut:nil]; });
    NSButton* const take = zv::pushButton(zv::tr(texts.take), {}, _actions, [gallery] { [gallery take]; });
    take.keyEquivalent = @"\r";
    take.enabled = _models->gallery().canTake() ? YES : NO;
    _actions.attachDoubleClick(_list, [gallery] { [gallery take]; });
    return zv::stack(zv::Direction::row, { cancel, take });
}

- (zv::StartMenu const*)chosen
{
    NSInteger const row = _list.selectedRow;
    return row >= 0 && row < static_cast<NSInteger>(_menus.size()) ? &_menus[static_cast<std::size_t>(row)] : nullptr;
}

- (void)showChosen
{
    auto const* menu = [self chosen];
    _rows = menu ? rowsOf(menu->items) : @[];
    _description.stringValue = menu ? zv::toNSString(menu->description) : @"";
    [_preview reloadData];
    for (ZVPreviewRow* row in _rows)
        [_preview expandItem:row expandChildren:YES];
}

- (void)take
{
    auto const* menu = [self chosen];
    if (!menu || !_models->gallery().canTake())
        return;
    [_window orderOut:nil];
    _models->gallery().take(*menu);
}

#pragma mark Menus

- (NSInteger)numberOfRowsInTableView:(NSTableView*)table
{
    return static_cast<NSInteger>(_menus.size());
}

- (NSView*)tableView:(NSTableView*)table viewForTableColumn:(NSTableColumn*)column row:(NSInteger)row
{
    return zv::textCell(table, @"menu", _menus[static_cast<std::size_t>(row)].title);
}

- (void)tableViewSelectionDidChange:(NSNotification*)notification
{
    [self showChosen];
}

#pragma mark Entries

- (NSInteger)outlineView:(NSOutlineView*)outline numberOfChildrenOfItem:(id)item
{
    return static_cast<NSInteger>((item ? ((ZVPreviewRow*)item)->rows : _rows).count);
}

- (id)outlineView:(NSOutlineView*)outline child:(NSInteger)index ofItem:(id)item
{
    return [(item ? ((ZVPreviewRow*)item)->rows : _rows) objectAtIndex:static_cast<NSUInteger>(index)];
}

- (BOOL)outlineView:(NSOutlineView*)outline isItemExpandable:(id)item
{
    return ((ZVPreviewRow*)item)->rows.count > 0;
}

- (NSView*)outlineView:(NSOutlineView*)outline viewForTableColumn:(NSTableColumn*)column item:(id)item
{
    auto const& entry = *((ZVPreviewRow*)item)->item;
    auto const row = _models->outline().row(entry);
    NSTableCellView* const cell = zv::iconCell(outline, @"entry");
    zv::show(cell, row.isFaint() ? nullptr : _models->iconOf(entry), row.shownTitle());
    cell.textField.textColor = row.isFaint() ? NSColor.secondaryLabelColor : NSColor.labelColor;
    cell.textField.accessibilityLabel = zv::toNSString(row.spokenTitle());
    return cell;
}

/// They are to be looked at alone.
- (BOOL)outlineView:(NSOutlineView*)outline shouldSelectItem:(id)item
{
    return NO;
}

@end
