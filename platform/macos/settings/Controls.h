#pragma once

#import <Cocoa/Cocoa.h>

#include <functional>
#include <string>
#include <vector>

namespace zv {

/// Keeps what controls call: they hold their targets weakly.
class ControlActions {
public:
    void attach(NSControl* control, std::function<void()> act);
    /// Also what a double click calls.
    void attachDoubleClick(NSTableView* table, std::function<void()> act);
    void clear() { [m_targets removeAllObjects]; }

private:
    id targetFor(std::function<void()> act);

    NSMutableArray* m_targets = [[NSMutableArray alloc] init];
};

NSTextField* label(std::string const& text);
NSTextField* boldLabel(std::string const& text);
/// Wraps, in smaller and fainter type; can be selected.
NSTextField* note(std::string const& text);
NSButton* pushButton(std::string const& title, std::string const& help, ControlActions& actions, std::function<void()> act);

enum class Direction { row, column };
NSStackView* stack(Direction direction, std::vector<NSView*> const& views);
/// A column as wide as the widest, of which the scrolling ones take all the room there is.
NSStackView* fillingColumn(std::vector<NSView*> const& views);
/// A grid of labels and fields, as forms have them.
NSGridView* formGrid();
void addToForm(NSGridView* grid, NSView* title, NSView* field);

void fill(NSView* parent, NSView* child, double margin);
void setWidth(NSView* view, double width);
void setMinimumWidth(NSView* view, double width);
/// Scrolls vertically. Of a table the first column takes what room there is.
NSScrollView* scrollAround(NSView* document);
/// What `act` does may take the control down: it runs in a turn of its own.
void later(std::function<void()> act);

} // namespace zv
