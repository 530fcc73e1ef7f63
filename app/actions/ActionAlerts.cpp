#include "app/actions/ActionAlerts.h"

#include "app/menu/DisplayText.h"
#include "base/Translation.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace zv {

namespace {

constexpr std::size_t firstButton = 0;
constexpr std::size_t cancelButton = 1;
constexpr std::size_t longestCommand = 400; ///< characters; a longer one would push the buttons off the screen

struct Question {
    MenuItemKind::Case kind;
    Sentence message;
    Sentence button;
};

constexpr Question questions[] = {
    { MenuItemKind::restart, mark("Do you want to restart the computer now?"), markc("button", "Restart") },
    { MenuItemKind::shutdown, mark("Do you want to shut down the computer now?"), markc("button", "Shut Down") },
    { MenuItemKind::logOut, mark("Do you want to quit all applications and log out now?"), markc("button", "Log Out") },
};

/// On one line, without the runs of blanks that could push the harmful end out of sight.
std::string shownCommand(std::string const& command)
{
    std::string shown;
    for (char const c : displayText(command)) {
        if (c != ' ' || !shown.ends_with(' '))
            shown += c;
    }
    if (graphemeCount(shown) <= longestCommand)
        return shown;
    auto const last = firstGraphemes(shown, longestCommand).back();
    return shown.substr(0, static_cast<std::size_t>(last.data() + last.size() - shown.data())) + "…";
}

} // namespace

Alert permissionAlert(std::string const& title)
{
    return { AlertStyle::warning, tr("%1 needs permission to control your Mac.", quoted(title)),
        // TRANSLATORS: Privacy & Security and Automation as the Mac’s System Settings name them
        tr("Allow Zanthe Vell to control System Events and the login window in Privacy & Security › Automation, then try again."),
        { tr("Open Automation Settings"), tr("Cancel") }, cancelButton };
}

Alert notCompletedAlert(std::string const& title, std::string const& failure)
{
    return { AlertStyle::warning, tr("%1 could not be completed.", quoted(title)), failure };
}

Alert shortcutAlert(std::string const& name, ShortcutsProvider::Failure const& failure)
{
    return { AlertStyle::warning, tr("%1 could not be run.", quoted(name)), failure.description() };
}

Alert trashQuestion(std::string const& name)
{
    return { AlertStyle::warning, tr("Do you want to move %1 to the Trash?", quoted(name)), "", { trc("button", "Move to Trash"), tr("Cancel") },
        cancelButton };
}

Alert trashAlert(std::string const& name, std::string const& reason)
{
    return { AlertStyle::warning, tr("%1 could not be moved to the Trash.", quoted(name)), reason };
}

Alert noTerminalAlert() { return { AlertStyle::warning, tr("No terminal could be opened."), tr("This desktop has no program for it.") }; }

Alert replaceQuestion(std::string const& name, std::string const& folder)
{
    return { AlertStyle::warning, tr("%1 is already in %2. Do you want to replace it?", quoted(name), quoted(folder)),
        tr("The one that is there goes to the Trash."), { trc("button", "Replace"), tr("Cancel") }, cancelButton };
}

std::string problemLine(std::string const& name, std::string const& reason)
{
    // TRANSLATORS: a file’s name in quotation marks, and why nothing was done with it
    return tr("%1: %2", quoted(name), reason) + "\n";
}

Alert dropAlert(std::string const& folder, std::string const& problems)
{
    return { AlertStyle::warning, tr("Some files could not be put into %1.", quoted(folder)), problems };
}

Alert locationAlert(std::string const& name)
{
    return { AlertStyle::warning, tr("%1 could not be selected.", quoted(name)), tr("Switching network location requires administrator rights.") };
}

std::optional<Alert> confirmationAlert(MenuItemKind const& kind)
{
    auto const* const question = std::find_if(std::begin(questions), std::end(questions), [&](auto const& candidate) { return kind == candidate.kind; });
    if (question == std::end(questions))
        return std::nullopt;
    return Alert { AlertStyle::warning, tr(question->message), tr("Applications are closed without asking. Unsaved changes are lost."),
        { tr(question->button), tr("Cancel") }, cancelButton };
}

Alert forceQuitNote()
{
    return { AlertStyle::informational, tr("Click a window to force its application to quit."),
        tr("Unsaved changes are lost. A click with the right mouse button cancels."), { trc("button", "Continue"), tr("Cancel") }, cancelButton };
}

Alert aboutComputerAlert(ComputerFacts const& facts)
{
    std::pair<Sentence, std::string const&> const lines[] = {
        { mark("Kernel: %1"), facts.kernel },
        { mark("Computer: %1"), facts.machine },
        { mark("Processor: %1"), facts.processor },
        { mark("Memory: %1"), facts.memory },
        { mark("Graphics: %1"), facts.graphics },
    };
    std::string text;
    for (auto const& [label, value] : lines) {
        if (!value.empty())
            text.append(text.empty() ? "" : "\n").append(tr(label, value));
    }
    return { AlertStyle::informational, facts.system.empty() ? tr("About This Computer") : facts.system, text };
}

Alert untrustedStartAlert(UntrustedStart const& start)
{
    auto text = tr("It would run:\n%1", shownCommand(start.command));
    std::vector<std::string> buttons { tr("Cancel"), trc("button", "Start") };
    if (start.canAlwaysStart) {
        text += "\n\n" + tr("“Always Start” marks the file as executable.");
        buttons.emplace_back(trc("button", "Always Start"));
    }
    return { AlertStyle::warning, tr("%1 was not installed as an application. Start it?", quoted(displayText(start.file.lastPathComponent()))), std::move(text),
        std::move(buttons), firstButton };
}

std::optional<StartConsent> consentOf(std::size_t button)
{
    if (button == firstButton)
        return std::nullopt;
    return button == 1 ? StartConsent::once : StartConsent::always;
}

bool AlertConfirmation::confirms(MenuItemKind const& kind)
{
    auto const alert = confirmationAlert(kind);
    return alert && ask(*alert);
}

bool AlertConfirmation::confirmsForceQuit() { return ask(forceQuitNote()); }

bool AlertConfirmation::ask(Alert const& alert)
{
    m_application.activate();
    return m_alerts.run(alert) == firstButton;
}

} // namespace zv
