#import "platform/macos/settings/Cells.h"

#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/desk/Images.h"

namespace zv {

namespace {

constexpr double iconSize = 16;
constexpr double gap = 5;

NSLayoutConstraint* pinned(NSLayoutXAxisAnchor* edge, NSLayoutXAxisAnchor* to, double distance) { return [edge constraintEqualToAnchor:to constant:distance]; }

NSTextField* addText(NSTableCellView* cell)
{
    NSTextField* const text = [NSTextField labelWithString:@""];
    text.translatesAutoresizingMaskIntoConstraints = NO;
    [text.cell setLineBreakMode:NSLineBreakByTruncatingTail];
    [cell addSubview:text];
    cell.textField = text;
    return text;
}

NSTableCellView* reused(NSTableView* table, NSString* identifier) { return (NSTableCellView*)[table makeViewWithIdentifier:identifier owner:nil]; }

NSTableCellView* madeCell(NSString* identifier)
{
    NSTableCellView* const cell = [[NSTableCellView alloc] initWithFrame:NSMakeRect(0, 0, 100, 20)];
    cell.identifier = identifier;
    return cell;
}

void pin(NSTableCellView* cell, NSTextField* text, NSLayoutXAxisAnchor* left, double distance)
{
    [NSLayoutConstraint activateConstraints:@[
        pinned(text.leadingAnchor, left, distance), pinned(text.trailingAnchor, cell.trailingAnchor, -2),
        [text.centerYAnchor constraintEqualToAnchor:cell.centerYAnchor]
    ]];
}

} // namespace

NSTableCellView* textCell(NSTableView* table, NSString* identifier, std::string const& text)
{
    NSTableCellView* cell = reused(table, identifier);
    if (!cell) {
        cell = madeCell(identifier);
        pin(cell, addText(cell), cell.leadingAnchor, 2);
    }
    cell.textField.stringValue = toNSString(text);
    return cell;
}

NSTableCellView* iconCell(NSTableView* table, NSString* identifier)
{
    NSTableCellView* cell = reused(table, identifier);
    if (cell)
        return cell;
    cell = madeCell(identifier);
    NSImageView* const picture = [[NSImageView alloc] initWithFrame:NSMakeRect(0, 0, iconSize, iconSize)];
    picture.translatesAutoresizingMaskIntoConstraints = NO;
    [cell addSubview:picture];
    cell.imageView = picture;
    [NSLayoutConstraint activateConstraints:@[
        pinned(picture.leadingAnchor, cell.leadingAnchor, 2), [picture.widthAnchor constraintEqualToConstant:iconSize],
        [picture.heightAnchor constraintEqualToConstant:iconSize], [picture.centerYAnchor constraintEqualToAnchor:cell.centerYAnchor]
    ]];
    pin(cell, addText(cell), picture.trailingAnchor, gap);
    return cell;
}

void show(NSTableCellView* cell, ImageRef const& image, std::string const& text)
{
    cell.imageView.image = toNSImage(image);
    cell.textField.stringValue = toNSString(text);
}

} // namespace zv
