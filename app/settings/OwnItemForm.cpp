#include "app/settings/OwnItemForm.h"

#include "app/model/PlainText.h"
#include "base/Translation.h"
#include "base/Url.h"
#include "platform/text/Text.h"

namespace zv {

namespace {

std::string textIn(std::vector<FormField> const& fields, std::string_view id)
{
    for (auto const& field : fields) {
        if (field.id == id)
            return std::string(trimmed(field.text));
    }
    return {};
}

bool isOnIn(std::vector<FormField> const& fields, std::string_view id)
{
    for (auto const& field : fields) {
        if (field.id == id)
            return field.isOn;
    }
    return false;
}

/// An address as people type it: without a scheme it is the web's.
std::string addressFor(std::string const& typed) { return typed.empty() || Url::parse(typed) ? typed : "https://" + typed; }

std::string problemOf(OwnItem const& item)
{
    if (item.kind == OwnItem::Kind::link)
        return Url::parse(item.text) ? "" : tr("Type an address, such as https://example.org.");
    if (item.text.empty())
        return tr("Type the line to run.");
    return item.folder.empty() || item.folder.starts_with('/') ? "" : tr("The folder begins with “/”.");
}

FormField text(std::string id, std::string title, std::string value, std::string placeholder)
{
    return { FormField::Kind::text, std::move(id), std::move(title), std::move(value), std::move(placeholder) };
}

std::string titleFor(OwnItem const& item)
{
    if (!item.title.empty())
        return item.title;
    auto const scheme = item.text.find("://");
    return item.kind == OwnItem::Kind::link && scheme != std::string::npos ? item.text.substr(scheme + 3) : item.text;
}

} // namespace

Form ownItemForm(OwnItem const& item)
{
    static constexpr Sentence titles[]
        = { markc("of the user’s own", "Link"), markc("of the user’s own", "Command"), markc("of the user’s own", "Script Menu") };
    static constexpr Sentence notes[] = { mark("Opens an address in the browser, or in the program for its scheme."), mark("Runs a line in your shell."),
        // TRANSLATORS: href=, bash= and key= are words of the output, and stay as they are
        mark("Runs a line in your shell each time its submenu opens, for 10 seconds at most. Each line of its output is an entry: “Title | href=… bash=… "
             "key=…”, "
             "“---” is a line, “--” before a title puts it into a submenu.") };
    bool const isLink = item.kind == OwnItem::Kind::link;
    Form form;
    form.title = tr(titles[static_cast<int>(item.kind)]);
    form.note = tr(notes[static_cast<int>(item.kind)]);
    form.accept = item.text.empty() ? trc("button", "Add") : trc("button", "Change");
    form.cancel = tr("Cancel");
    form.fields.push_back(isLink ? text("text", trc("of a link", "Address"), item.text, "https://example.org")
                                 : text("text", trc("of a shell", "Line"), item.text, "echo Hello"));
    form.fields.push_back(text("title", trc("of an entry", "Title"), item.title, ""));
    if (!isLink)
        form.fields.push_back(text("folder", tr("Working folder"), item.folder, tr("Your home folder")));
    if (item.kind == OwnItem::Kind::command)
        form.fields.push_back({ FormField::Kind::toggle, "inTerminal", tr("In a terminal"), {}, {}, item.inTerminal });
    form.problem = [kind = item.kind](auto const& fields) { return problemOf(ownItemOf(kind, fields)); };
    return form;
}

OwnItem ownItemOf(OwnItem::Kind kind, std::vector<FormField> const& fields)
{
    OwnItem item;
    item.kind = kind;
    item.text = textIn(fields, "text");
    if (kind == OwnItem::Kind::link)
        item.text = addressFor(item.text);
    item.title = withoutControls(textIn(fields, "title"));
    item.title = titleFor(item);
    item.folder = textIn(fields, "folder");
    item.inTerminal = isOnIn(fields, "inTerminal");
    return item;
}

} // namespace zv
