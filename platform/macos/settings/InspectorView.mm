#import "platform/macos/settings/InspectorView.h"

#import "platform/macos/cocoa/Conversions.h"

namespace zv {

namespace {

constexpr double fieldWidth = 210;

NSView* titled(char const* title, NSView* field)
{
    bool const isField = [field isKindOfClass:[NSTextField class]] || [field isKindOfClass:[NSPopUpButton class]];
    if (isField)
        [field setAccessibilityLabel:toNSString(title)];
    NSStackView* const made = stack(Direction::column, { label(title), field });
    [made setSpacing:3];
    return made;
}

void setShown(NSView* view, bool isShown)
{
    [view setHidden:isShown ? NO : YES]; // a hidden view takes no room in a stack
}

} // namespace

InspectorView::InspectorView(SettingsModels& models)
    : m_models(models)
    , m_recorder(models)
    , m_heading(boldLabel(""))
    , m_title([[NSTextField alloc] initWithFrame:NSZeroRect])
    , m_target(note(""))
    , m_depth([[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO])
    , m_hidden([NSButton checkboxWithTitle:@"Hide in the menu" target:nil action:nil])
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
    for (NSView* field : { (NSView*)m_title, (NSView*)m_target, (NSView*)m_note })
        setWidth(field, fieldWidth);
    m_actions.attach(m_title, [this] { commitTitle(); });
    [[m_title cell] setSendsActionOnEndEditing:YES];
    m_actions.attach(m_depth, editing([this](Uuid const& id) {
        std::int64_t const depth = [m_depth selectedTag];
        m_models.editor().setScanDepth(id, depth == depthOfPreference ? std::nullopt : std::optional(depth));
    }));
    m_actions.attach(m_hidden, editing([this](Uuid const& id) { m_models.editor().setHidden(id, [m_hidden state] == NSControlStateValueOn); }));
    m_recorder.onChange = [this](auto const& spec) {
        if (m_id)
            m_models.editor().setKeyEquivalent(*m_id, spec);
    };
    NSButton* const choose = pushButton("Choose…", {}, m_actions, [this] { chooseTarget(); });
    NSButton* const show = pushButton("Reveal", {}, m_actions, [this] { reveal(); });
    m_titleRow = titled("Title", m_title);
    m_targetRow = titled("Target", stack(Direction::column, { m_target, stack(Direction::row, { choose, show }) }));
    m_depthRow = titled("Folders within open", m_depth);
    m_shortcutRow = titled("Shortcut", m_recorder.view());
    m_form = stack(Direction::column, { m_titleRow, m_targetRow, m_depthRow, m_shortcutRow, m_hidden, m_note });
    [m_form setSpacing:12];
    m_view = stack(Direction::column, { m_heading, m_form });
}

void InspectorView::commitTitle()
{
    auto const title = fromNSString([m_title stringValue]);
    if (!m_id || title == m_shownTitle)
        return;
    m_shownTitle = title;
    m_models.editor().setTitle(*m_id, title);
}

void InspectorView::chooseTarget()
{
    auto const id = m_id;
    if (!id || !m_models.store().find(*id))
        return;
    auto const chosen = m_models.panels().chooseToOpen("Choose Target", FilePanelKind::filesAndFolders);
    if (!chosen.empty())
        m_models.editor().setTarget(*id, chosen.front());
}

void InspectorView::reveal()
{
    if (auto const* item = m_id ? m_models.store().find(*m_id) : nullptr)
        m_models.reveal(*item);
}

void InspectorView::show(MenuItem const* item, std::size_t selected)
{
    if (m_id && (!item || item->id != *m_id)) {
        commitTitle(); // a title being typed belongs to the item that was shown until now
        [m_title abortEditing];
    }
    m_id = item ? std::optional(item->id) : std::nullopt;
    setShown(m_form, item != nullptr);
    if (item) {
        bool const isMissing = m_models.store().unresolvedItemIDs().contains(item->id);
        return fill(inspectorFields(*item, m_models.preferences(), isMissing));
    }
    [m_heading setStringValue:toNSString(selected == 0 ? std::string("No item selected") : std::to_string(selected) + " items selected")];
}

void InspectorView::fill(InspectorFields const& fields)
{
    [m_heading setStringValue:toNSString(fields.kindTitle)];
    if (![m_title currentEditor])
        [m_title setStringValue:toNSString(fields.title)];
    m_shownTitle = fields.title;
    [m_title setPlaceholderString:toNSString(fields.titlePlaceholder)];
    [m_target setStringValue:toNSString(fields.targetPath)];
    [m_hidden setState:fields.isHidden ? NSControlStateValueOn : NSControlStateValueOff];
    [m_note setStringValue:toNSString(fields.note)];
    fillDepths(fields);
    m_recorder.setSpec(fields.shortcut);
    setShown(m_titleRow, fields.hasTitle);
    setShown(m_targetRow, fields.hasTarget);
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
        [item setTag:static_cast<NSInteger>(choice.value)];
        [[m_depth menu] addItem:item];
    }
    [m_depth selectItemWithTag:static_cast<NSInteger>(fields.depth.value_or(depthOfPreference))];
}

} // namespace zv
