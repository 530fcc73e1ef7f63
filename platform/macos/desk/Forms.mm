#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"

namespace zv {

namespace {

constexpr double fieldWidth = 320;
constexpr double rowHeight = 30;
constexpr double titleWidth = 120;

/// A form as an alert with fields in it. It comes again, with the reason, while the answers cannot be taken.
class FormAlert {
public:
    explicit FormAlert(Form const& form)
        : m_form(form)
        , m_fields([[NSView alloc] initWithFrame:NSMakeRect(0, 0, titleWidth + fieldWidth, rowHeight * static_cast<double>(form.fields.size()))])
    {
        double y = m_fields.frame.size.height;
        for (auto const& field : form.fields)
            addRow(field, y -= rowHeight);
    }

    std::optional<std::vector<FormField>> ask()
    {
        auto note = m_form.note;
        while (run(note)) {
            auto filled = answers();
            auto problem = m_form.problem ? m_form.problem(filled) : std::string();
            if (problem.empty())
                return filled;
            note = std::move(problem);
        }
        return std::nullopt;
    }

private:
    void addRow(FormField const& field, double y)
    {
        NSRect const place = NSMakeRect(titleWidth, y, fieldWidth, 24);
        if (field.kind == FormField::Kind::toggle) {
            NSButton* const box = [NSButton checkboxWithTitle:toNSString(field.title) target:nil action:nil];
            box.frame = place;
            box.state = field.isOn ? NSControlStateValueOn : NSControlStateValueOff;
            return add(box);
        }
        NSTextField* const title = [NSTextField labelWithString:toNSString(field.title)];
        title.frame = NSMakeRect(0, y, titleWidth - 8, 20);
        title.alignment = NSTextAlignmentRight;
        [m_fields addSubview:title];
        if (field.kind == FormField::Kind::choice) {
            NSPopUpButton* const list = [[NSPopUpButton alloc] initWithFrame:place pullsDown:NO];
            for (auto const& choice : field.choices)
                [list addItemWithTitle:toNSString(choice)];
            [list selectItemAtIndex:static_cast<NSInteger>(field.chosen)];
            list.accessibilityLabel = toNSString(field.title);
            return add(list);
        }
        NSTextField* const line = [[NSTextField alloc] initWithFrame:place];
        line.stringValue = toNSString(field.text);
        line.placeholderString = toNSString(field.placeholder);
        line.accessibilityLabel = toNSString(field.title);
        add(line);
    }

    void add(NSControl* control)
    {
        [m_fields addSubview:control];
        m_controls.push_back(control);
    }

    bool run(std::string const& note)
    {
        NSAlert* const alert = [[NSAlert alloc] init];
        alert.messageText = toNSString(m_form.title);
        alert.informativeText = toNSString(note);
        [alert addButtonWithTitle:toNSString(m_form.accept)];
        [alert addButtonWithTitle:toNSString(m_form.cancel)];
        [(id)alert setAccessoryView:m_fields];
        [alert layout];
        [(NSWindow*)[alert window] setInitialFirstResponder:m_controls.front()];
        return [alert runModal] == NSAlertFirstButtonReturn;
    }

    std::vector<FormField> answers() const
    {
        auto fields = m_form.fields;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (fields[i].kind == FormField::Kind::toggle)
                fields[i].isOn = ((NSButton*)m_controls[i]).state == NSControlStateValueOn;
            else if (fields[i].kind == FormField::Kind::choice)
                fields[i].chosen = static_cast<std::size_t>(((NSPopUpButton*)m_controls[i]).indexOfSelectedItem);
            else
                fields[i].text = fromNSString(m_controls[i].stringValue);
        }
        return fields;
    }

    Form const& m_form;
    NSView* m_fields;
    std::vector<NSControl*> m_controls;
};

class MacForms : public Forms {
public:
    std::optional<std::vector<FormField>> ask(Form const& form) override { return FormAlert(form).ask(); }
};

} // namespace

std::unique_ptr<Forms> makeForms() { return std::make_unique<MacForms>(); }

} // namespace zv
