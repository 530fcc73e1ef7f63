#pragma once

#import <Cocoa/Cocoa.h>

#include "platform/desk/Image.h"

#include <string>

NS_ASSUME_NONNULL_BEGIN

namespace zv {

/// A table's cell, taken from those scrolled away if there is one.
NSTableCellView* textCell(NSTableView* table, NSString* identifier, std::string const& text);
NSTableCellView* iconCell(NSTableView* table, NSString* identifier);
/// Shows no picture for a null image.
void show(NSTableCellView* cell, ImageRef const& image, std::string const& text);

} // namespace zv

NS_ASSUME_NONNULL_END
