#import "platform/macos/settings/PictureGrid.h"

#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/desk/Images.h"

namespace {

NSString* const symbolItem = @"symbol";
constexpr double cellSize = 46;
constexpr double pictureSize = 28;
NSSize const sheetSize = NSMakeSize(520, 420);

} // namespace

/// A symbol's cell; a double click takes it.
@interface ZVPictureCell : NSBox {
    std::function<void()> _taken;
}
- (void)setTaken:(std::function<void()>)taken;
@end

@implementation ZVPictureCell
- (void)setTaken:(std::function<void()>)taken
{
    _taken = std::move(taken);
}
- (void)mouseDown:(NSEvent*)event
{
    [super mouseDown:event];
    if (event.clickCount == 2 && _taken)
        zv::later(_taken);
}
@end

@interface ZVPictureItem : NSCollectionViewItem
@end

@implementation ZVPictureItem
- (void)loadView
{
    ZVPictureCell* const cell = [[ZVPictureCell alloc] initWithFrame:NSMakeRect(0, 0, cellSize, cellSize)];
    cell.boxType = NSBoxCustom;
    cell.borderType = NSNoBorder;
    cell.titlePosition = NSNoTitle;
    cell.cornerRadius = 6;
    double const margin = (cellSize - pictureSize) / 2;
    NSImageView* const picture = [[NSImageView alloc] initWithFrame:NSMakeRect(margin, margin, pictureSize, pictureSize)];
    [cell addSubview:picture];
    self.imageView = picture;
    self.view = cell;
}
- (void)setSelected:(BOOL)selected
{
    [super setSelected:selected];
    ((NSBox*)self.view).fillColor = selected ? NSColor.selectedContentBackgroundColor : NSColor.clearColor;
}
@end

@implementation ZVPictureGrid

- (instancetype)initWithPictures:(zv::PictureChooser&)pictures current:(std::string const&)current chosen:(std::function<void(std::string const&)>)chosen
{
    if (!(self = [super init]))
        return nil;
    _pictures = &pictures;
    _current = current;
    _chosen = std::move(chosen);
    [self makeSheet];
    [self fill];
    return self;
}

- (void)openOver:(NSWindow*)window
{
    [window beginSheet:_sheet completionHandler:nil];
    [_sheet makeFirstResponder:_search];
}

- (void)makeSheet
{
    auto const& texts = _pictures->texts();
    _sheet = [[NSPanel alloc] initWithContentRect:NSMakeRect(0, 0, sheetSize.width, sheetSize.height)
                                        styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskResizable
                                          backing:NSBackingStoreBuffered
                                            defer:YES];
    _sheet.title = zv::toNSString(texts.gridTitle);
    _sheet.releasedWhenClosed = NO;
    _search = [[NSSearchField alloc] initWithFrame:NSZeroRect];
    _search.placeholderString = zv::toNSString(texts.search);
    _search.accessibilityLabel = zv::toNSString(texts.search);
    _search.delegate = self;
    NSStackView* const column = zv::fillingColumn({ _search, [self makeGrid], [self makeButtons] });
    zv::fill(_sheet.contentView, column, 16);
}

- (NSView*)makeGrid
{
    NSCollectionViewFlowLayout* const cells = [[NSCollectionViewFlowLayout alloc] init];
    cells.itemSize = NSMakeSize(cellSize, cellSize);
    cells.minimumInteritemSpacing = 2;
    cells.minimumLineSpacing = 2;
    _grid = [[NSCollectionView alloc] initWithFrame:NSMakeRect(0, 0, sheetSize.width, sheetSize.height)];
    _grid.collectionViewLayout = cells;
    _grid.selectable = YES;
    _grid.accessibilityLabel = zv::toNSString(_pictures->texts().grid);
    _grid.dataSource = self;
    _grid.delegate = self;
    [_grid registerClass:[ZVPictureItem class] forItemWithIdentifier:symbolItem];
    NSScrollView* const scroll = zv::scrollAround(_grid);
    scroll.borderType = NSBezelBorder;
    return scroll;
}

- (NSView*)makeButtons
{
    auto const& texts = _pictures->texts();
    __unsafe_unretained ZVPictureGrid* const grid = self;
    _name = zv::label("");
    _empty = zv::note("");
    NSButton* const cancel = zv::pushButton(texts.cancel, {}, _actions, [grid] { [grid close]; });
    cancel.keyEquivalent = @"\033";
    _accept = zv::pushButton(texts.accept, {}, _actions, [grid] { [grid take]; });
    _accept.keyEquivalent = @"\r";
    return zv::stack(zv::Direction::row, { cancel, _accept, _name, _empty });
}

/// Shows what the search finds, and follows the names: they may come later.
- (void)fill
{
    __unsafe_unretained ZVPictureGrid* const grid = self;
    std::vector<std::string const*> found;
    _observation = zv::withObservationTracking(
        [&] { found = _pictures->names(zv::fromNSString(_search.stringValue)); }, [grid] { zv::later(grid->_lifetime.guard([grid] { [grid fill]; })); });
    _names.clear();
    for (auto const* name : found)
        _names.push_back(*name);
    [_grid reloadData];
    [self selectCurrent];
    [self showCurrent];
}

/// What was chosen, else the first that a search finds.
- (void)selectCurrent
{
    auto const wanted = std::find(_names.begin(), _names.end(), _current);
    bool const isSearch = _search.stringValue.length > 0;
    if (_names.empty() || (wanted == _names.end() && !isSearch))
        return;
    auto const index = wanted == _names.end() ? 0 : wanted - _names.begin();
    NSSet<NSIndexPath*>* const paths = [NSSet setWithObject:[NSIndexPath indexPathForItem:index inSection:0]];
    [_grid selectItemsAtIndexPaths:paths scrollPosition:NSCollectionViewScrollPositionCenteredVertically];
}

- (std::string)selectedName
{
    NSIndexPath* const path = [_grid.selectionIndexPaths anyObject];
    auto const index = path ? static_cast<std::size_t>(path.item) : _names.size();
    return index < _names.size() ? _names[index] : std::string();
}

- (void)showCurrent
{
    auto const name = [self selectedName];
    _name.stringValue = zv::toNSString(name);
    _empty.stringValue = zv::toNSString(_names.empty() ? zv::tr(_pictures->emptyText()) : std::string());
    _accept.enabled = name.empty() ? NO : YES;
}

- (void)take
{
    auto const name = [self selectedName];
    if (name.empty())
        return;
    [self close];
    _chosen(name);
}

- (void)close
{
    [_sheet.sheetParent endSheet:_sheet];
    [_sheet orderOut:nil];
}

#pragma mark Search and symbols

- (void)controlTextDidChange:(NSNotification*)notification
{
    [self fill];
}

- (NSInteger)collectionView:(NSCollectionView*)collectionView numberOfItemsInSection:(NSInteger)section
{
    return static_cast<NSInteger>(_names.size());
}

/// Called for the cells in sight alone.
- (NSCollectionViewItem*)collectionView:(NSCollectionView*)collectionView itemForRepresentedObjectAtIndexPath:(NSIndexPath*)path
{
    NSCollectionViewItem* const item = [collectionView makeItemWithIdentifier:symbolItem forIndexPath:path];
    auto const& name = _names[static_cast<std::size_t>(path.item)];
    item.imageView.image = zv::enlarged(_pictures->iconNamed(name), pictureSize);
    item.view.toolTip = zv::toNSString(name);
    item.imageView.accessibilityLabel = zv::toNSString(zv::PictureChooser::spoken(name));
    __unsafe_unretained ZVPictureGrid* const grid = self;
    [(ZVPictureCell*)item.view setTaken:_lifetime.guard([grid] { [grid take]; })];
    return item;
}

- (void)collectionView:(NSCollectionView*)collectionView didSelectItemsAtIndexPaths:(NSSet<NSIndexPath*>*)paths
{
    [self showCurrent];
}

@end
