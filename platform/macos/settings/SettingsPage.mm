#import "platform/macos/settings/SettingsPage.h"

#import "platform/macos/cocoa/Conversions.h"

/// A view whose rows begin at its top.
@interface ZVFlippedView : NSView
@end

@implementation ZVFlippedView
- (BOOL)isFlipped
{
    return YES;
}
@end

namespace zv {

namespace {

constexpr double pageMargin = 24;
constexpr double noteWidth = 420;
constexpr double indentation = 20;
constexpr double choicesWidth = 110; // the same for all
constexpr double sectionSpacing = 14;

/// addItemWithTitle: would remove an item of the same title.
void addChoices(NSMenu* menu, std::vector<SettingsChoice> const& choices)
{
    for (auto const& choice : choices) {
        NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:toNSString(choice.title) action:nil keyEquivalent:@""];
        item.tag = static_cast<NSInteger>(choice.value);
        [menu addItem:item];
    }
}

} // namespace

/// Makes the view as wide as its scroll view, as high as its rows.
SettingsPage::SettingsPage(SettingsModels& models)
    : m_models(models)
    , m_content([[ZVFlippedView alloc] initWithFrame:NSMakeRect(0, 0, 700, 560)])
    , m_view(scrollAround(m_content))
{
    m_view.drawsBackground = NO;
    NSView* const shown = m_view.contentView;
    m_content.translatesAutoresizingMaskIntoConstraints = NO;
    [NSLayoutConstraint activateConstraints:@[
        [m_content.topAnchor constraintEqualToAnchor:shown.topAnchor], [m_content.leadingAnchor constraintEqualToAnchor:shown.leadingAnchor],
        [m_content.trailingAnchor constraintEqualToAnchor:shown.trailingAnchor]
    ]];
}

void SettingsPage::show(std::vector<SettingsSection> const& sections)
{
    if (auto shape = shapeOf(sections); shape != m_shape) {
        m_shape = std::move(shape);
        build(sections);
    }
    for (auto const& section : sections) {
        for (auto const& described : section.rows)
            take(*m_rows.at(described.id), described);
    }
}

void SettingsPage::build(std::vector<SettingsSection> const& sections)
{
    [m_grid removeFromSuperview];
    m_rows.clear();
    m_actions.clear();
    m_grid = formGrid();
    for (auto const& section : sections) {
        auto heading = section.heading();
        NSInteger const first = m_grid.numberOfRows;
        for (auto const& described : section.rows) {
            addRow(heading, described);
            heading.clear();
        }
        if (first > 0 && m_grid.numberOfRows > first)
            [m_grid rowAtIndex:first].topPadding = sectionSpacing;
    }
    m_grid.translatesAutoresizingMaskIntoConstraints = NO;
    [m_content addSubview:m_grid];
    [NSLayoutConstraint activateConstraints:@[
        [m_grid.topAnchor constraintEqualToAnchor:m_content.topAnchor constant:pageMargin],
        [m_grid.centerXAnchor constraintEqualToAnchor:m_content.centerXAnchor],
        [m_content.bottomAnchor constraintEqualToAnchor:m_grid.bottomAnchor constant:pageMargin]
    ]];
}

void SettingsPage::addRow(std::string const& heading, SettingsRow const& described)
{
    auto const row = std::make_shared<Row>(Row { described });
    if (described.kind == SettingsRow::Kind::shortcut)
        addRecorder(row);
    else
        row->control = controlFor(row);
    m_rows[described.id] = row;
    addToForm(m_grid, boldLabel(heading), placed(*row));
}

void SettingsPage::addRecorder(RowRef const& row)
{
    row->recorder = std::make_unique<RecorderField>(m_models);
    std::weak_ptr<Row> const weak = row;
    row->recorder->onChange = [weak](auto const& spec) {
        later([weak, spec] {
            if (auto const alive = weak.lock())
                SettingsRow(alive->described).record(spec);
        });
    };
}

NSControl* SettingsPage::controlFor(RowRef const& row)
{
    auto const title = row->described.title;
    std::weak_ptr<Row> const weak = row;
    auto const perform = [weak](auto action) {
        later([weak, action] {
            if (auto const alive = weak.lock())
                action(SettingsRow(alive->described));
        });
    };
    switch (row->described.kind) {
    case SettingsRow::Kind::toggle: {
        NSButton* const box = [NSButton checkboxWithTitle:toNSString(title) target:nil action:nil];
        __unsafe_unretained NSButton* const read = box;
        m_actions.attach(box, [perform, read] {
            bool const isOn = read.state == NSControlStateValueOn;
            perform([isOn](SettingsRow const& now) { now.toggle(isOn); });
        });
        return box;
    }
    case SettingsRow::Kind::choice: {
        NSPopUpButton* const choices = [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO];
        __unsafe_unretained NSPopUpButton* const read = choices;
        choices.accessibilityLabel = toNSString(title);
        setWidth(choices, choicesWidth);
        m_actions.attach(choices, [perform, read] {
            std::int64_t const value = read.selectedTag;
            perform([value](SettingsRow const& now) { now.choose(value); });
        });
        return choices;
    }
    case SettingsRow::Kind::pullDown: {
        NSPopUpButton* const commands = [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:YES];
        __unsafe_unretained NSPopUpButton* const read = commands;
        commands.accessibilityLabel = toNSString(title);
        m_actions.attach(commands, [perform, read] {
            std::int64_t const value = read.selectedTag;
            perform([value](SettingsRow const& now) { now.choose(value); });
        });
        return commands;
    }
    case SettingsRow::Kind::button:
        return pushButton(title, {}, m_actions, [perform] { perform([](SettingsRow const& now) { now.press(); }); });
    case SettingsRow::Kind::shortcut:
    case SettingsRow::Kind::note:
        break;
    }
    NSTextField* const text = note(title);
    setWidth(text, noteWidth);
    return text;
}

NSView* SettingsPage::placed(Row const& row) const
{
    std::vector<NSView*> views;
    if (row.described.isIndented) {
        NSView* const space = [[NSView alloc] initWithFrame:NSZeroRect];
        setWidth(space, indentation);
        views.push_back(space);
    }
    if (row.described.kind == SettingsRow::Kind::choice || row.recorder)
        views.push_back(label(row.described.title));
    views.push_back(row.recorder ? row.recorder->view() : row.control);
    return views.size() == 1 ? views.front() : stack(Direction::row, views);
}

void SettingsPage::take(Row& row, SettingsRow const& described)
{
    row.described = described;
    if (row.recorder)
        return row.recorder->setSpec(described.shortcut);
    NSControl* const control = row.control;
    control.enabled = described.isEnabled ? YES : NO;
    if (!described.help.empty()) {
        control.toolTip = toNSString(described.help);
        control.accessibilityHelp = toNSString(described.help);
    }
    if (described.kind == SettingsRow::Kind::toggle)
        ((NSButton*)control).state = described.isOn ? NSControlStateValueOn : NSControlStateValueOff;
    else if (described.kind == SettingsRow::Kind::choice)
        fillChoices((NSPopUpButton*)control, described);
    else if (described.kind == SettingsRow::Kind::pullDown)
        fillCommands((NSPopUpButton*)control, described);
    else if (described.kind == SettingsRow::Kind::note)
        ((NSTextField*)control).stringValue = toNSString(described.title);
}

void SettingsPage::fillChoices(NSPopUpButton* button, SettingsRow const& described)
{
    [button removeAllItems];
    addChoices(button.menu, described.choices);
    [button selectItemWithTag:static_cast<NSInteger>(described.value)];
}

/// The first item of a button that pulls down is its title.
void SettingsPage::fillCommands(NSPopUpButton* button, SettingsRow const& described)
{
    [button removeAllItems];
    [button addItemWithTitle:toNSString(described.title)];
    addChoices(button.menu, described.choices);
}

} // namespace zv
