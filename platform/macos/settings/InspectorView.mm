#import "platform/macos/settings/InspectorView.h"

#import "platform/macos/cocoa/Conversions.h"

#include "app/settings/SettingsTexts.h"

namespace zv {

namespace {

constexpr double fieldWidth = 210;

NSView* titled(std::string const& title, NSView* field)
{
    bool const isField = [field isKindOfClass:[NSTextField class]] || [field isKindOfClass:[NSPopUpButton class]];
    if (isField)
        field.accessibilityLabel = toNSString(title);
    NSStackView* const made = stack(Direction::column, { label(title), field });
    made.spacing = 3;
    return made;
}

void setShown(NSView* view, bool isShown)
{
    view.hidden = isShown ? NO : YES; // a hidden view takes no room in a stack
}

} // namespace

InspectorView::InspectorView(SettingsModels& models)
    : m_models(models)
    , m_recorder(models)
    , m_picture(models)
    , m_heading(boldLabel(""))
    , m_title([[NSTextField alloc] initWithFrame:NSZeroRect])
    , m_target(note(""))
    , m_depth([[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO])
    , m_hidden([NSButton checkboxWithTitle:toNSString(tr(settingsTexts::hidden)) target:nil action:nil])
    , m_shortcutNote(note(""))
    , m_note(note(""))
{
    buildForm();
    show(nullptr, 0);
}

template <class Edit> std::function<void()> InspectorView::editing(Edit edit)
{
    return [this, edit] {
        if (m_id)
            edit(Uuid(*m_id));
    };
}

void InspectorView::buildForm()
{
    for (NSView* field : { (NSView*)m_title, (NSView*)m_target, (NSView*)m_shortcutNote, (NSView*)m_note })
        setWidth(field, fieldWidth);
    m_actions.attach(m_title, [this] { commitTitle(); });
    [m_title.cell setSendsActionOnEndEditing:YES];
    m_actions.attach(m_depth, editing([this](Uuid const& id) { m_models.editor().setScanDepth(id, depthOfChoice(m_depth.selectedTag)); }));
    m_actions.attach(m_hidden, editing([this](Uuid const& id) { m_models.editor().setHidden(id, m_hidden.state == NSControlStateValueOn); }));
    m_recorder.onChange = [this](auto const& spec) {
        if (m_id)
            m_models.editor().setKeyEquivalent(*m_id, spec);
    };
    m_choose = pushButton(
        tr(settingsTexts::choose.title), tr(settingsTexts::choose.help), m_actions, editing([this](Uuid const& id) { m_models.chooseTarget(id); }));
    NSButton* const show
        = pushButton(tr(settingsTexts::reveal.title), tr(settingsTexts::reveal.help), m_actions, editing([this](Uuid const& id) { m_models.reveal(id); }));
    m_titleRow = titled(tr(settingsTexts::title), m_title);
    m_targetRow = titled(tr(settingsTexts::target), stack(Direction::column, { m_target, stack(Direction::row, { m_choose, show }) }));
    m_pictureRow = titled(tr(m_models.pictures().texts().picture), m_picture.view());
    m_depthRow = titled(m_models.wording().depth, m_depth);
    m_listing = pushButton("", tr(settingsTexts::listingHelp), m_actions, editing([this](Uuid const& id) { m_models.chooseListing(id); }));
    m_listingRow = titled(tr(settingsTexts::listing), m_listing);
    m_shortcutRow = titled(tr(settingsTexts::shortcut), m_recorder.view());
    m_showOwner = pushButton(tr(settingsTexts::showOwner.title), tr(settingsTexts::showOwner.help), m_actions, [this] {
        if (m_shortcutOwner && onShowItem)
            onShowItem(Uuid(*m_shortcutOwner));
    });
    m_form = stack(
        Direction::column, { m_titleRow, m_targetRow, m_pictureRow, m_depthRow, m_listingRow, m_shortcutRow, m_shortcutNote, m_showOwner, m_hidden, m_note });
    m_form.spacing = 12;
    m_view = stack(Direction::column, { m_heading, m_form });
}

void InspectorView::commitTitle()
{
    auto const title = fromNSString(m_title.stringValue);
    if (!m_id || title == m_shownTitle)
        return;
    m_shownTitle = title;
    m_models.editor().setTitle(*m_id, title);
}

void InspectorView::show(MenuItem const* item, std::size_t selected)
{
    if (m_id && (!item || item->id != *m_id)) {
        commitTitle(); // a title being typed belongs to the item that was shown until now
        [m_title abortEditing];
    }
    m_id = item ? std::optional(item->id) : std::nullopt;
    setShown(m_form, item != nullptr);
    if (!item) {
        m_heading.stringValue = toNSString(settingsTexts::selected(selected));
        return;
    }
    auto const fields = m_models.inspectorFieldsOf(*item);
    fill(fields);
    m_picture.show(*item, fields);
}

void InspectorView::fill(InspectorFields const& fields)
{
    m_heading.stringValue = toNSString(fields.kindTitle);
    if (![m_title currentEditor])
        m_title.stringValue = toNSString(fields.title);
    m_shownTitle = fields.title;
    m_title.placeholderString = toNSString(fields.titlePlaceholder);
    m_target.stringValue = toNSString(fields.targetPath);
    m_choose.title = toNSString(fields.chooseTitle);
    m_hidden.state = fields.isHidden ? NSControlStateValueOn : NSControlStateValueOff;
    m_note.stringValue = toNSString(fields.note);
    fillDepths(fields);
    m_listing.title = toNSString(fields.listing);
    m_listing.accessibilityLabel = toNSString(settingsTexts::withValue(settingsTexts::listing, fields.listing));
    setShown(m_listingRow, fields.hasListing);
    m_recorder.setSpec(fields.shortcut);
    m_shortcutOwner = fields.shortcutOwner;
    m_shortcutNote.stringValue = toNSString(fields.shortcutNote);
    setShown(m_shortcutNote, !fields.shortcutNote.empty());
    setShown(m_showOwner, fields.shortcutOwner.has_value());
    setShown(m_titleRow, fields.hasTitle);
    setShown(m_targetRow, fields.hasTarget);
    setShown(m_pictureRow, fields.hasPicture);
    setShown(m_depthRow, fields.hasDepth);
    setShown(m_shortcutRow, fields.hasShortcut);
    setShown(m_hidden, fields.canHide);
    setShown(m_note, !fields.note.empty());
}

void InspectorView::fillDepths(InspectorFields const& fields)
{
    [m_depth removeAllItems];
    for (auto const& choice : fields.depthChoices) {
        NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:toNSString(choice.title) action:nil keyEquivalent:@""];
        item.tag = static_cast<NSInteger>(choice.value);
        [m_depth.menu addItem:item];
    }
    [m_depth selectItemWithTag:static_cast<NSInteger>(fields.depthChoice())];
}

} // namespace zv
