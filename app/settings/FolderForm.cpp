#include "app/settings/FolderForm.h"

#include "app/model/PlainText.h"
#include "platform/text/Text.h"

#include <iterator>

namespace zv {

namespace {

constexpr char const* orders[] = { "By name", "By date changed", "By date added", "By size", "By kind" };
constexpr char const* asInGeneral = "As in General";

FormField choice(std::string id, std::string title, std::vector<std::string> choices, std::size_t chosen)
{
    FormField field { FormField::Kind::choice, std::move(id), std::move(title) };
    field.choices = std::move(choices);
    field.chosen = chosen;
    return field;
}

FormField threeWays(std::string id, std::string title, std::optional<bool> value)
{
    return choice(std::move(id), std::move(title), { asInGeneral, "Yes", "No" }, !value ? 0 : *value ? 1 : 2);
}

FormField const& fieldIn(std::vector<FormField> const& fields, std::string_view id)
{
    static FormField const none;
    for (auto const& field : fields) {
        if (field.id == id)
            return field;
    }
    return none;
}

std::optional<bool> threeWaysIn(FormField const& field) { return field.chosen == 0 ? std::nullopt : std::optional(field.chosen == 1); }

} // namespace

Form folderForm(FolderChoices const& choices)
{
    Form form;
    form.title = "Order and Choice";
    form.note = "What this folder and those within it show in the menu.";
    form.accept = "Change";
    form.cancel = "Cancel";
    form.fields.push_back(choice("order", "Order", { std::begin(orders), std::end(orders) }, static_cast<std::size_t>(choices.order)));
    form.fields.push_back({ FormField::Kind::toggle, "reversed", "Newest, largest or last first", {}, {}, choices.isReversed });
    form.fields.push_back(threeWays("foldersFirst", "Folders first", choices.foldersFirst));
    form.fields.push_back(threeWays("showHidden", "Hidden files", choices.showHidden));
    form.fields.push_back({ FormField::Kind::text, "filter", "Only files named", choices.filter, "*.pdf, report*" });
    return form;
}

FolderChoices folderChoicesIn(std::vector<FormField> const& fields)
{
    FolderChoices choices;
    choices.order = static_cast<FolderOrder>(fieldIn(fields, "order").chosen);
    choices.isReversed = fieldIn(fields, "reversed").isOn;
    choices.foldersFirst = threeWaysIn(fieldIn(fields, "foldersFirst"));
    choices.showHidden = threeWaysIn(fieldIn(fields, "showHidden"));
    choices.filter = withoutControls(trimmed(fieldIn(fields, "filter").text));
    return choices;
}

std::string summaryOf(FolderChoices const& choices)
{
    if (choices == FolderChoices {})
        return asInGeneral;
    auto text = std::string(orders[static_cast<int>(choices.order)]);
    text += choices.isReversed ? ", reversed" : "";
    text += choices.foldersFirst ? *choices.foldersFirst ? ", folders first" : ", folders among files" : "";
    text += choices.showHidden ? *choices.showHidden ? ", hidden files" : ", no hidden files" : "";
    return text + (choices.filter.empty() ? "" : ", " + choices.filter);
}

} // namespace zv
