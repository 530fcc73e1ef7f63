#include "app/settings/FolderForm.h"

#include "app/model/PlainText.h"
#include "base/Translation.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <iterator>

namespace zv {

namespace {

constexpr Sentence orders[] = { mark("By name"), mark("By date changed"), mark("By date added"), mark("By size"), mark("By kind") };
// TRANSLATORS: “General” is the first tab of the settings
constexpr Sentence asInGeneral = mark("As in General");

FormField choice(std::string id, std::string title, std::vector<std::string> choices, std::size_t chosen)
{
    FormField field { FormField::Kind::choice, std::move(id), std::move(title) };
    field.choices = std::move(choices);
    field.chosen = chosen;
    return field;
}

FormField threeWays(std::string id, std::string title, std::optional<bool> value)
{
    return choice(std::move(id), std::move(title), { tr(asInGeneral), tr("Yes"), tr("No") }, !value ? 0 : *value ? 1 : 2);
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
    form.title = tr("Order and Choice");
    form.note = tr("What this folder and those within it show in the menu.");
    form.accept = trc("button", "Change");
    form.cancel = tr("Cancel");
    std::vector<std::string> named;
    std::transform(std::begin(orders), std::end(orders), std::back_inserter(named), [](Sentence const& order) { return tr(order); });
    form.fields.push_back(choice("order", trc("of files", "Order"), std::move(named), static_cast<std::size_t>(choices.order)));
    form.fields.push_back({ FormField::Kind::toggle, "reversed", tr("Newest, largest or last first"), {}, {}, choices.isReversed });
    form.fields.push_back(threeWays("foldersFirst", tr("Folders first"), choices.foldersFirst));
    form.fields.push_back(threeWays("showHidden", tr("Hidden files"), choices.showHidden));
    form.fields.push_back({ FormField::Kind::text, "filter", tr("Only files named"), choices.filter, "*.pdf, report*" });
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
        return tr(asInGeneral);
    std::vector<std::string> words { tr(orders[static_cast<int>(choices.order)]) };
    auto const add = [&](bool applies, Sentence const& word) {
        if (applies)
            words.push_back(tr(word));
    };
    add(choices.isReversed, markc("in a list after “By name”", "reversed"));
    add(choices.foldersFirst == true, markc("in a list after “By name”", "folders first"));
    add(choices.foldersFirst == false, markc("in a list after “By name”", "folders among files"));
    add(choices.showHidden == true, markc("in a list after “By name”", "hidden files"));
    add(choices.showHidden == false, markc("in a list after “By name”", "no hidden files"));
    if (!choices.filter.empty())
        words.push_back(choices.filter);
    return listed(words);
}

} // namespace zv
