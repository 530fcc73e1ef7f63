#import "platform/macos/settings/MenuEditorView.h"

#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/FileDropView.h"
#import "platform/macos/desk/Images.h"
#import "platform/macos/settings/Cells.h"
#import "platform/macos/settings/Dragging.h"

#include "app/settings/SettingsTexts.h"

using zv::MenuEditor;
using zv::MenuItem;
namespace texts = zv::settingsTexts;
using Edit = std::shared_ptr<zv::MenuEdit const>;
enum class Direction { back, forward };

@implementation ZVMenuOutlineView

@synthesize editor = _editor;

- (void)keyDown:(NSEvent*)event
{
    NSString* const typed = event.charactersIgnoringModifiers;
    unichar const key = typed.length > 0 ? [typed characterAtIndex:0] : 0;
    bool const isOption = (event.modifierFlags & NSEventModifierFlagOption) != 0;
    if (key == NSDeleteCharacter || key == NSDeleteFunctionKey)
        return [_editor removeSelected];
    if (isOption && key == NSUpArrowFunctionKey)
        return [_editor moveSelectedUp];
    if (isOption && key == NSDownArrowFunctionKey)
        return [_editor moveSelectedDown];
    [super keyDown:event];
}

- (void)delete:(id)sender
{
    [_editor removeSelected];
}
- (void)duplicate:(id)sender
{
    [_editor duplicateSelected];
}
- (void)copy:(id)sender
{
    [_editor copySelected];
}
- (void)cut:(id)sender
{
    [_editor copySelected];
    [_editor removeSelected];
}
- (void)paste:(id)sender
{
    [_editor paste];
}

@end

namespace {

NSString* const titleColumn = @"title";
NSString* const shortcutColumn = @"shortcut";
constexpr double widthOfThreeColumns = 800;

NSTableColumn* column(NSString* identifier, texts::Text const& title, double width)
{
    NSTableColumn* const made = [[NSTableColumn alloc] initWithIdentifier:identifier];
    made.headerCell.stringValue = zv::toNSString(zv::tr(title));
    made.width = width;
    return made;
}

/// In the system's own colours.
NSImage* warning(std::string const& spoken)
{
    NSImage* const symbol = [NSImage imageWithSystemSymbolName:@"exclamationmark.triangle.fill" accessibilityDescription:zv::toNSString(spoken)];
    return [symbol imageWithSymbolConfiguration:[NSImageSymbolConfiguration configurationPreferringMulticolor]];
}

} // namespace

@implementation ZVMenuEditor

@synthesize view = _view;
@synthesize undoManager = _undoManager;

- (instancetype)initWithModels:(zv::SettingsModels&)models
{
    if (!(self = [super init]))
        return nil;
    _models = &models;
    _undoManager = [[NSUndoManager alloc] init];
    __unsafe_unretained ZVMenuEditor* const editor = self;
    _inspector = std::make_unique<zv::InspectorView>(models);
    _library = [[ZVLibrary alloc]
        initWithModels:models
                   add:[editor](zv::LibraryEntry const& entry) { [editor tellLater:editor->_models->addEntry(entry, [editor insertPosition]).problem]; }];
    [_library setShow:[editor](zv::Uuid const& item) { [editor showItem:item]; }];
    _models->editor().onEdit = _lifetime.guard([editor](zv::MenuEdit const& edit) { [editor edited:edit]; });
    _inspector->onShowItem = [editor](zv::Uuid const& item) { [editor showItem:item]; };
    _models->editor().undoLast = _lifetime.guard([editor] { [editor->_undoManager undo]; });
    [self makeViews];
    [self layTree];
    return self;
}

- (void)dealloc
{
    _models->editor().onEdit = nullptr;
    _models->editor().undoLast = nullptr;
    [NSNotificationCenter.defaultCenter removeObserver:self];
#if !__has_feature(objc_arc)
    [super dealloc];
#endif
}

#pragma mark Views

- (void)makeViews
{
    NSSplitView* const columns = [[NSSplitView alloc] initWithFrame:NSMakeRect(0, 0, 860, 560)];
    columns.vertical = YES;
    columns.dividerStyle = NSSplitViewDividerStyleThin;
    columns.autosaveName = @"MenuTab";
    _menuSide = [[NSSplitView alloc] initWithFrame:NSMakeRect(0, 0, 640, 560)];
    _menuSide.vertical = YES;
    _menuSide.dividerStyle = NSSplitViewDividerStyleThin;
    [_menuSide addArrangedSubview:[self outlineColumn]];
    [_menuSide addArrangedSubview:[self inspectorColumn]];
    [_menuSide setHoldingPriority:NSLayoutPriorityDefaultLow + 1 forSubviewAtIndex:1]; // the outline grows first
    [columns addArrangedSubview:_library.view];
    [columns addArrangedSubview:_menuSide];
    [columns setHoldingPriority:NSLayoutPriorityDefaultLow + 1 forSubviewAtIndex:0];
    _view = [[NSView alloc] initWithFrame:columns.frame];
    zv::fill(_view, columns, 12);
    _view.postsFrameChangedNotifications = YES;
    [NSNotificationCenter.defaultCenter addObserver:self selector:@selector(resized:) name:NSViewFrameDidChangeNotification object:_view];
}

/// Puts the inspector below the menu where three columns have no room.
- (void)resized:(NSNotification*)notification
{
    bool const isWide = NSWidth(_view.frame) >= widthOfThreeColumns;
    if (isWide == ([_menuSide isVertical] != NO))
        return;
    _menuSide.vertical = isWide ? YES : NO;
    _buttons.orientation = isWide ? NSUserInterfaceLayoutOrientationHorizontal : NSUserInterfaceLayoutOrientationVertical;
    [_menuSide adjustSubviews];
}

- (void)focusSearch
{
    [_view.window makeFirstResponder:_library.search];
}

- (NSView*)outlineColumn
{
    _outline = [[ZVMenuOutlineView alloc] initWithFrame:NSMakeRect(0, 0, 380, 400)];
    _outline.editor = self;
    NSTableColumn* const titles = column(titleColumn, texts::titleColumn, 250);
    [_outline addTableColumn:titles];
    [_outline addTableColumn:column(shortcutColumn, texts::shortcutColumn, 90)];
    _outline.outlineTableColumn = titles;
    _outline.autosaveName = @"MenuOutline";
    _outline.autosaveTableColumns = YES;
    _outline.allowsMultipleSelection = YES;
    _outline.dataSource = self;
    _outline.delegate = self;
    _outline.accessibilityLabel = zv::toNSString(zv::tr(texts::outline));
    [_outline registerForDraggedTypes:@[ zv::recordType(), NSPasteboardTypeFileURL ]];
    [_outline setDraggingSourceOperationMask:NSDragOperationMove | NSDragOperationCopy forLocal:YES];
    [_outline setDraggingSourceOperationMask:NSDragOperationCopy forLocal:NO];
    NSScrollView* const scroll = zv::scrollAround(_outline);
    scroll.borderType = NSBezelBorder;
    return zv::fillingColumn({ scroll, [self buttons] });
}

- (NSView*)buttons
{
    __unsafe_unretained ZVMenuEditor* const editor = self;
    auto const button
        = [&](texts::Button const& said, std::function<void()> act) { return zv::pushButton(zv::tr(said.title), zv::tr(said.help), _actions, std::move(act)); };
    _remove = button(texts::remove, [editor] { [editor removeSelected]; });
    NSView* const files = zv::stack(zv::Direction::row,
        {
            button(texts::addFile, [editor] { [editor addFiles:zv::FilePanelKind::filesAndFolders]; }),
            button(texts::addFolder, [editor] { [editor addFiles:zv::FilePanelKind::folder]; }),
            button(texts::addSubmenu, [editor] { editor->_models->editor().addSubmenu([editor insertPosition]); }),
        });
    NSView* const others = zv::stack(
        zv::Direction::row, { button(texts::addSeparator, [editor] { editor->_models->editor().addSeparator([editor insertPosition]); }), _remove });
    _buttons = zv::stack(zv::Direction::row, { files, others });
    return _buttons;
}

- (NSView*)inspectorColumn
{
    __unsafe_unretained ZVMenuEditor* const editor = self;
    NSButton* const restore = zv::pushButton(zv::tr(texts::restoreDefaultMenu), {}, _actions, [editor] { editor->_models->menuFile().restoreDefaultMenu(); });
    auto const& start = zv::StartGallery::texts();
    bool const canTake = _models->gallery().canTake();
    auto const help = canTake ? zv::tr(start.openHelp) : _models->gallery().note();
    NSButton* const other = zv::pushButton(zv::tr(start.open), help, _actions, [editor] { [editor openGallery]; });
    other.enabled = canTake ? YES : NO;
    NSStackView* const made = zv::stack(zv::Direction::column, { _inspector->view(), other, restore });
    made.edgeInsets = NSEdgeInsetsMake(0, 10, 0, 0);
    zv::setMinimumWidth(made, 230);
    return made;
}

- (void)openGallery
{
    _gallery = [[ZVGallery alloc] initWithModels:*_models];
    [_gallery open];
}

#pragma mark The tree

- (void)layTree
{
    [self endEditing];
    [self observe];
    [_outline reloadData];
    [self select:_toSelect];
    [self refreshInspector];
}

/// A title that is being typed in the outline is kept before its field goes.
- (void)endEditing
{
    NSResponder* const responder = _outline.window.firstResponder;
    if (![responder isKindOfClass:[NSTextView class]])
        return;
    id const field = ((NSTextView*)responder).delegate;
    if ([field isKindOfClass:[NSView class]] && [(NSView*)field isDescendantOf:_outline])
        [_outline.window makeFirstResponder:_outline];
}

- (void)observe
{
    __unsafe_unretained ZVMenuEditor* const editor = self;
    auto const read = [editor] {
        auto& models = *editor->_models;
        editor->_tree.lay(models.store().items());
        models.readOutline();
    };
    _observation = zv::withObservationTracking(read, [editor] { [editor storeChanged]; });
}

/// Forgets the old items, which must not be read before the next turn reads the new ones.
- (void)storeChanged
{
    if (_toSelect.empty())
        _toSelect = [self selection];
    _tree.forgetItems();
    __unsafe_unretained ZVMenuEditor* const editor = self;
    zv::later(_lifetime.guard([editor] {
        [editor layTree];
        editor->_toSelect.clear();
    }));
}

- (std::set<zv::Uuid>)selection
{
    std::set<zv::Uuid> ids;
    NSIndexSet* const rows = _outline.selectedRowIndexes;
    for (NSUInteger row = rows.firstIndex; row != NSNotFound; row = [rows indexGreaterThanIndex:row]) {
        if (ZVMenuNode* const node = [_outline itemAtRow:static_cast<NSInteger>(row)])
            ids.insert([node identity]);
    }
    return ids;
}

- (void)select:(std::set<zv::Uuid> const&)ids
{
    NSMutableIndexSet* const rows = [NSMutableIndexSet indexSet];
    NSInteger last = -1;
    for (auto const& identity : ids) {
        ZVMenuNode* const node = _tree.nodeOf(identity);
        [self openAbove:node];
        last = node ? [_outline rowForItem:node] : -1;
        if (last >= 0)
            [rows addIndex:static_cast<NSUInteger>(last)];
    }
    [_outline selectRowIndexes:rows byExtendingSelection:NO];
    if (last >= 0)
        [_outline scrollRowToVisible:last];
}

- (void)showItem:(zv::Uuid const&)item
{
    [self select: { item }];
    [[_outline window] makeFirstResponder:_outline];
}

- (void)openAbove:(ZVMenuNode*)node
{
    if (ZVMenuNode* const parent = node.parent) {
        [self openAbove:parent];
        [_outline expandItem:parent];
    }
}

- (MenuEditor::Position)insertPosition
{
    ZVMenuNode* const node = _outline.selectedRow >= 0 ? [_outline itemAtRow:_outline.selectedRow] : nil;
    bool const isOpen = node && [_outline isItemExpanded:node];
    return _models->editor().positionAfter([self selection], isOpen ? std::optional([node identity]) : std::nullopt);
}

- (void)refreshInspector
{
    auto const ids = [self selection];
    _remove.enabled = ids.empty() ? NO : YES;
    _inspector->show(ids.size() == 1 ? _models->store().find(*ids.begin()) : nullptr, ids.size());
}

#pragma mark Commands

- (void)addFiles:(zv::FilePanelKind)kind
{
    [self tellLater:_models->addChosenFiles(kind, [self insertPosition]).problem];
}

- (BOOL)takeFrom:(NSPasteboard*)pasteboard at:(MenuEditor::Position const&)position drop:(MenuEditor::Drop)drop
{
    auto const outcome = zv::take({ zv::recordsOn(pasteboard), zv::filesOn(pasteboard), drop }, _models->editor(), position);
    [self tellLater:outcome.problem];
    return outcome.tookAny ? YES : NO;
}

/// Shows the alert in a later turn: within a drop the drag is still going on.
- (void)tellLater:(std::optional<zv::Alert> const&)problem
{
    if (!problem)
        return;
    __unsafe_unretained ZVMenuEditor* const editor = self;
    zv::later(_lifetime.guard([editor, alert = *problem] { (void)editor->_models->alerts().run(alert); }));
}

- (void)removeSelected
{
    _models->editor().remove([self selection]);
}
- (void)duplicateSelected
{
    _models->editor().duplicate([self selection]);
}
- (void)moveSelectedUp
{
    (void)_models->editor().moveUp([self selection]);
}
- (void)moveSelectedDown
{
    (void)_models->editor().moveDown([self selection]);
}

- (void)copySelected
{
    auto const ids = [self selection];
    if (ids.empty())
        return;
    NSMutableArray* const items = [NSMutableArray array];
    for (auto const& record : _models->editor().records(ids))
        [items addObject:zv::pasteboardItemOf(record)];
    [NSPasteboard.generalPasteboard clearContents];
    [NSPasteboard.generalPasteboard writeObjects:items];
}

- (void)paste
{
    [self takeFrom:NSPasteboard.generalPasteboard at:[self insertPosition] drop:MenuEditor::Drop::copy];
}

#pragma mark Undo

- (void)edited:(zv::MenuEdit const&)edit
{
    if (edit.selectionAfter)
        _toSelect = *edit.selectionAfter;
    [self registerStep:std::make_shared<zv::MenuEdit const>(edit) direction:Direction::back];
}

/// Registers an undo step, which registers its redo step when it is taken.
- (void)registerStep:(Edit)edit direction:(Direction)direction
{
    [_undoManager registerUndoWithTarget:self
                                 handler:^(ZVMenuEditor* editor) {
                                     bool const goesBack = direction == Direction::back;
                                     auto& models = editor->_models->editor();
                                     editor->_toSelect = goesBack ? models.undo(*edit) : models.redo(*edit);
                                     [editor registerStep:edit direction:goesBack ? Direction::forward : Direction::back];
                                 }];
    [_undoManager setActionName:zv::toNSString(edit->name)];
}

#pragma mark The outline's questions

- (NSInteger)outlineView:(NSOutlineView*)outline numberOfChildrenOfItem:(id)item
{
    return static_cast<NSInteger>(_tree.childrenOf(item).size());
}

- (id)outlineView:(NSOutlineView*)outline child:(NSInteger)index ofItem:(id)item
{
    return _tree.childrenOf(item)[static_cast<std::size_t>(index)];
}

- (BOOL)outlineView:(NSOutlineView*)outline isItemExpandable:(id)node
{
    auto const* item = _tree.itemOf(node);
    return item && zv::menuTree::canHoldItems(*item) ? YES : NO;
}

- (NSView*)outlineView:(NSOutlineView*)outline viewForTableColumn:(NSTableColumn*)tableColumn item:(id)node
{
    auto const* item = _tree.itemOf(node);
    auto const row = item ? _models->outline().row(*item) : zv::OutlineRow();
    NSColor* const color = row.isFaint() ? NSColor.secondaryLabelColor : NSColor.labelColor;
    bool const isTitle = [tableColumn.identifier isEqual:titleColumn];
    NSTableCellView* const cell = isTitle ? zv::iconCell(outline, titleColumn) : zv::textCell(outline, shortcutColumn, row.shortcut);
    if (isTitle && item)
        [self fillTitle:cell item:*item row:row];
    cell.textField.textColor = color;
    cell.toolTip = row.badge.empty() ? nil : zv::toNSString(row.badge);
    return cell;
}

- (void)fillTitle:(NSTableCellView*)cell item:(MenuItem const&)item row:(zv::OutlineRow const&)row
{
    zv::show(cell, row.isSeparator ? nullptr : _models->iconOf(item), row.shownTitle());
    if (!row.badge.empty())
        cell.imageView.image = warning(row.badge);
    cell.textField.editable = row.isSeparator ? NO : YES;
    cell.textField.delegate = self;
    cell.textField.accessibilityLabel = row.isSeparator ? zv::toNSString(row.spokenTitle()) : nil;
}

/// Renames an item edited in place, unless its title stayed as shown.
- (void)controlTextDidEndEditing:(NSNotification*)notification
{
    NSTextField* const field = notification.object;
    NSInteger const row = [_outline rowForView:field];
    ZVMenuNode* const node = row >= 0 ? [_outline itemAtRow:row] : nil;
    auto const* item = node ? _models->store().find([node identity]) : nullptr; // the tree's may be of before
    auto const title = zv::fromNSString(field.stringValue);
    if (item && title != _models->outline().row(*item).title)
        _models->editor().setTitle(zv::Uuid([node identity]), title);
}

- (void)outlineViewSelectionDidChange:(NSNotification*)notification
{
    [self refreshInspector];
}

#pragma mark Dragging

- (BOOL)isWithinSelection:(ZVMenuNode*)node
{
    for (ZVMenuNode* above = node.parent; above; above = above.parent) {
        if ([_outline isRowSelected:[_outline rowForItem:above]])
            return YES;
    }
    return NO;
}

/// Drags an item along with its children.
- (id<NSPasteboardWriting>)outlineView:(NSOutlineView*)outline pasteboardWriterForItem:(id)node
{
    bool const isSelected = [_outline isRowSelected:[_outline rowForItem:node]] != NO;
    if (isSelected && [self isWithinSelection:node])
        return nil;
    auto const records = _models->editor().records({ [(ZVMenuNode*)node identity] });
    return records.empty() ? nil : zv::pasteboardItemOf(records.front());
}

- (MenuEditor::Drop)dropOf:(id<NSDraggingInfo>)info
{
    bool const isOwn = [info draggingSource] == _outline;
    bool const mayMove = ([info draggingSourceOperationMask] & NSDragOperationMove) != 0;
    return isOwn && mayMove ? MenuEditor::Drop::move : MenuEditor::Drop::copy;
}

- (NSDragOperation)outlineView:(NSOutlineView*)outline validateDrop:(id<NSDraggingInfo>)info proposedItem:(id)node proposedChildIndex:(NSInteger)index
{
    auto const* item = _tree.itemOf(node);
    if (node && (!item || !zv::menuTree::canHoldItems(*item)))
        return NSDragOperationNone;
    return [self dropOf:info] == MenuEditor::Drop::move ? NSDragOperationMove : NSDragOperationCopy;
}

- (BOOL)outlineView:(NSOutlineView*)outline acceptDrop:(id<NSDraggingInfo>)info item:(id)node childIndex:(NSInteger)index
{
    bool const isOnItem = index == NSOutlineViewDropOnItemIndex;
    MenuEditor::Position position;
    if (node)
        position.parent = [(ZVMenuNode*)node identity];
    position.index = isOnItem ? _tree.childrenOf(node).size() : static_cast<std::size_t>(index);
    return [self takeFrom:[info draggingPasteboard] at:position drop:[self dropOf:info]];
}

@end
