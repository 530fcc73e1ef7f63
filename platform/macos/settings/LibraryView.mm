#import "platform/macos/settings/LibraryView.h"

#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/settings/Cells.h"
#import "platform/macos/settings/Dragging.h"

#include "app/settings/SettingsTexts.h"

/// Takes Return for a double click.
@interface ZVLibraryTable : NSTableView
@end

@implementation ZVLibraryTable
- (void)keyDown:(NSEvent*)event
{
    if ([event.charactersIgnoringModifiers isEqualToString:@"\r"])
        [self sendAction:self.doubleAction to:self.target];
    else
        [super keyDown:event];
}
@end

@implementation ZVLibrary

@synthesize view = _view;
@synthesize search = _search;

- (instancetype)initWithModels:(zv::SettingsModels&)models add:(std::function<void(zv::LibraryEntry const&)>)add
{
    if (!(self = [super init]))
        return nil;
    _models = &models;
    _add = std::move(add);
    [self makeViews];
    [self fill];
    return self;
}

- (void)setShow:(std::function<void(zv::Uuid const&)>)show
{
    _show = std::move(show);
}

- (void)makeViews
{
    _search = [[NSSearchField alloc] initWithFrame:NSZeroRect];
    _search.placeholderString = zv::toNSString(zv::tr(zv::settingsTexts::search));
    _search.accessibilityLabel = zv::toNSString(zv::tr(zv::settingsTexts::searchLibrary));
    _search.delegate = self;
    _table = [[ZVLibraryTable alloc] initWithFrame:NSMakeRect(0, 0, 200, 300)];
    [_table addTableColumn:[[NSTableColumn alloc] initWithIdentifier:@"entry"]];
    _table.headerView = nil;
    _table.accessibilityLabel = zv::toNSString(zv::tr(zv::settingsTexts::library));
    _table.dataSource = self;
    _table.delegate = self;
    [_table setDraggingSourceOperationMask:NSDragOperationCopy forLocal:YES];
    __unsafe_unretained ZVLibrary* const library = self;
    _actions.attachDoubleClick(_table, [library] { [library addRow:[library chosenRow]]; });
    _actions.attach(_search, [library] { [library fill]; });
    NSScrollView* const scroll = zv::scrollAround(_table);
    scroll.borderType = NSBezelBorder;
    auto const& said = zv::settingsTexts::showInMenu;
    _showButton = zv::pushButton(zv::tr(said.title), zv::tr(said.help), _actions, [library] { [library addRow:[library->_table selectedRow]]; });
    _showButton.hidden = YES;
    _view = zv::fillingColumn({ _search, scroll, _showButton });
    zv::setMinimumWidth(_view, 190);
}

/// Shows the entries there are now, and follows them: the applications come later.
- (void)fill
{
    __unsafe_unretained ZVLibrary* const library = self;
    _observation
        = zv::withObservationTracking([library] { [library layRows]; }, [library] { zv::later(library->_lifetime.guard([library] { [library fill]; })); });
    [_table reloadData];
}

- (void)layRows
{
    _rows.clear();
    for (auto const& group : _models->palette().groups(zv::fromNSString(_search.stringValue))) {
        _rows.push_back({ group.title, {} });
        for (auto const* entry : group.entries)
            _rows.push_back({ {}, entry->id });
    }
    auto const found = _models->itemsFound(zv::fromNSString(_search.stringValue));
    if (!found.empty())
        _rows.push_back({ zv::tr(zv::settingsTexts::inYourMenu), {} });
    for (auto const* item : found)
        _rows.push_back({ _models->outline().row(*item).title, {}, item->id });
}

/// The clicked one, or with the keyboard the selected one.
- (NSInteger)chosenRow
{
    return _table.clickedRow >= 0 ? _table.clickedRow : _table.selectedRow;
}

- (void)addRow:(NSInteger)row
{
    if (auto const item = [self itemAt:row]; item && _show)
        return _show(*item);
    auto const* entry = [self entryAt:row];
    if (entry && _add)
        _add(*entry);
}

- (zv::LibraryEntry const*)entryAt:(NSInteger)row
{
    bool const isThere = row >= 0 && static_cast<std::size_t>(row) < _rows.size();
    return isThere ? _models->palette().entry(_rows[static_cast<std::size_t>(row)].entry) : nullptr;
}

- (std::optional<zv::Uuid>)itemAt:(NSInteger)row
{
    bool const isThere = row >= 0 && static_cast<std::size_t>(row) < _rows.size();
    return isThere ? _rows[static_cast<std::size_t>(row)].item : std::nullopt;
}

- (void)tableViewSelectionDidChange:(NSNotification*)notification
{
    _showButton.hidden = [self itemAt:_table.selectedRow] ? NO : YES;
}

- (void)controlTextDidChange:(NSNotification*)notification
{
    [self fill];
}

/// Return adds the selected entry, else the first found; the arrows choose.
- (BOOL)control:(NSControl*)control textView:(NSTextView*)text doCommandBySelector:(SEL)command
{
    if (sel_isEqual(command, @selector(insertNewline:))) {
        [self addRow:_table.selectedRow >= 0 ? _table.selectedRow : 1];
        return YES;
    }
    if (sel_isEqual(command, @selector(moveDown:))) {
        [_table.window makeFirstResponder:_table];
        [_table selectRowIndexes:[NSIndexSet indexSetWithIndex:1] byExtendingSelection:NO];
        return YES;
    }
    return NO;
}

- (NSInteger)numberOfRowsInTableView:(NSTableView*)table
{
    return static_cast<NSInteger>(_rows.size());
}

- (BOOL)tableView:(NSTableView*)table isGroupRow:(NSInteger)row
{
    return [self entryAt:row] || [self itemAt:row] ? NO : YES;
}

- (BOOL)tableView:(NSTableView*)table shouldSelectRow:(NSInteger)row
{
    return [self entryAt:row] || [self itemAt:row] ? YES : NO;
}

/// Asks for a picture when its row comes into sight: there may be hundreds.
- (NSView*)tableView:(NSTableView*)table viewForTableColumn:(NSTableColumn*)column row:(NSInteger)row
{
    auto const* entry = [self entryAt:row];
    if (auto const item = [self itemAt:row]) {
        auto const* shown = _models->store().find(*item);
        NSTableCellView* const cell = zv::iconCell(table, @"entry");
        zv::show(cell, shown ? _models->iconOf(*shown) : nullptr, _rows[static_cast<std::size_t>(row)].heading);
        cell.toolTip = zv::toNSString(zv::tr(zv::settingsTexts::showInMenu.help));
        return cell;
    }
    if (!entry)
        return zv::textCell(table, @"group", _rows[static_cast<std::size_t>(row)].heading);
    NSTableCellView* const cell = zv::iconCell(table, @"entry");
    zv::show(cell, _models->iconOf(entry->itemTemplate), entry->title);
    cell.toolTip = zv::toNSString(entry->localizedDescription);
    return cell;
}

- (id<NSPasteboardWriting>)tableView:(NSTableView*)table pasteboardWriterForRow:(NSInteger)row
{
    auto const* entry = [self entryAt:row];
    return entry && !entry->own ? zv::pasteboardItemOf(zv::toDragRecord(zv::menuTree::withFreshIds(entry->itemTemplate))) : nil;
}

@end
