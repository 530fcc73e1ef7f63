#pragma once

#import <Cocoa/Cocoa.h>

#include "platform/desk/Image.h"

#include <string>

namespace zv {

/// Cells of tables, taken from those that scrolled away.
NSTableCellView* textCell(NSTableView* table, NSString* identifier, std::string const& text);
NSTableCellView* iconCell(NSTableView* table, NSString* identifier);
/// Nothing for no image.
void show(NSTableCellView* cell, ImageRef const& image, std::string const& text);

} // namespace zv
