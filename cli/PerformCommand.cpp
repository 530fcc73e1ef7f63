#include "app/menu/EntryMenus.h"
#include "base/Translation.h"
#include "cli/Commands.h"
#include "cli/EntryChooser.h"
#include "cli/EntryPath.h"
#include "cli/MenuSession.h"
#include "cli/Options.h"

namespace zv {

namespace {

/// The reason why the entry cannot be chosen; empty when it can.
std::string reasonAgainst(MenuEntry const& entry)
{
    auto const title = quoted(entry.visibleTitle());
    if (entry.submenu && !entry.target)
        return tr("%1 is a submenu; name an entry of it", title);
    if (entry.enabled && entry.target)
        return {};
    auto const refusal = tr("%1 cannot be chosen", title);
    return entry.toolTip.empty() ? refusal : tr("%1: %2", refusal, entry.toolTip);
}

/// A key binding may hold English titles, and the desktop have another language by now.
Result<MenuEntry> entryNamed(std::span<std::string const> titles, CommandContext& context)
{
    auto& session = context.menu().session();
    auto const find = [&] {
        auto const menu = session.build(context.store().items(), OptionKey::released);
        return entryAt(menu, titles, [&](Menu& submenu) { session.open(submenu); });
    };
    auto shown = find();
    EnglishMeanwhile const english;
    if (shown || !english.isChange())
        return shown;
    auto named = find();
    return named ? named : shown;
}

ExitStatus run(Arguments arguments, CommandContext& context)
{
    static constexpr Options::Known known[] = { { "--command" } };
    auto const options = Options::parse(arguments, known);
    if (!options)
        return failUsage(context, performCommand, options.error());
    if (options->operands().empty())
        return failUsage(context, performCommand, tr("no title of an entry"));

    auto entry = entryNamed(options->operands(), context);
    if (!entry)
        return fail(context, entry.error());
    if (!entry->target && entry->subject.menus)
        entry->target = entry->subject.menus->openingOf(entry->subject);
    if (auto const reason = reasonAgainst(entry.value()); !reason.empty())
        return fail(context, reason);
    std::string said;
    for (auto const& failure : context.menu().choose(entry.value(), options->has("--command") ? ModifierMask::command : ModifierMask::none))
        said += (said.empty() ? "" : " ") + failure;
    return said.empty() ? ExitStatus::done : fail(context, said);
}

/// The titles below those given.
std::vector<Completion> titlesBelow(std::vector<std::string> const& given, CommandContext& context)
{
    auto& session = context.menu().session();
    auto menu = session.build(context.store().items(), OptionKey::released);
    if (!given.empty()) {
        auto const entry = entryNamed(given, context);
        if (!entry || !entry->submenu)
            return {};
        menu = entry->submenu;
        session.open(*menu);
    }
    std::vector<Completion> titles;
    for (auto const& entry : menu->entries) {
        if (entry.type == MenuEntry::Type::item && entry.enabled)
            titles.push_back({ entry.visibleTitle() });
    }
    return titles;
}

} // namespace

constexpr Command performCommand { "perform", "[--command] TITLE…", mark("choose an entry, one title a level; a folder opens; --command reveals it"), run,
    titlesBelow };

} // namespace zv
