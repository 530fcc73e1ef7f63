#pragma once

#import <Cocoa/Cocoa.h>

#include <functional>
#include <string>
#include <vector>

NS_ASSUME_NONNULL_BEGIN

@class ZVControlTarget;

namespace zv {

/// Owns the targets of controls, which hold them weakly.
class ControlActions {
public:
    void attach(NSControl* control, std::function<void()> act);
    /// Attaches an action for a double click too.
    void attachDoubleClick(NSTableView* table, std::function<void()> act);
    void clear() { [m_targets removeAllObjects]; }

private:
    ZVControlTarget* targetFor(std::function<void()> act);

    NSMutableArray<ZVControlTarget*>* m_targets = [[NSMutableArray alloc] init];
};

NSTextField* label(std::string const& text);
NSTextField* boldLabel(std::string const& text);
/// A wrapping, selectable text in smaller and fainter type.
NSTextField* note(std::string const& text);
NSButton* pushButton(std::string const& title, std::string const& help, ControlActions& actions, std::function<void()> act);

enum class Direction { row, column };
NSStackView* stack(Direction direction, std::vector<NSView*> const& views);
/// A column as wide as its widest view; scrolling views take all spare room.
NSStackView* fillingColumn(std::vector<NSView*> const& views);
/// A grid of labels and fields, as forms have them.
NSGridView* formGrid();
void addToForm(NSGridView* grid, NSView* title, NSView* field);

void fill(NSView* parent, NSView* child, double margin);
void setWidth(NSView* view, double width);
void setMinimumWidth(NSView* view, double width);
/// A vertically scrolling view. A table's first column takes the spare width.
NSScrollView* scrollAround(NSView* document);
/// Runs `act` in a turn of its own, as it may destroy the control.
void later(std::function<void()> act);

} // namespace zv

NS_ASSUME_NONNULL_END
