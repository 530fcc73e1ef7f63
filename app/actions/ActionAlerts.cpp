#include "app/actions/ActionAlerts.h"

#include "app/menu/DisplayText.h"
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

std::string quoted(std::string const& text) { return "“" + text + "”"; }

struct Question {
    MenuItemKind::Case kind;
    std::string_view message;
    std::string_view button;
};

constexpr Question questions[] = {
    { MenuItemKind::restart, "Do you want to restart the computer now?", "Restart" },
    { MenuItemKind::shutdown, "Do you want to shut down the computer now?", "Shut Down" },
    { MenuItemKind::logOut, "Do you want to quit all applications and log out now?", "Log Out" },
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
    return { AlertStyle::warning, quoted(title) + " needs permission to control your Mac.",
        "Allow Zanthe Vell to control System Events and the login window in Privacy & Security › Automation, then try again.",
        { "Open Automation Settings", "Cancel" }, cancelButton };
}

Alert notCompletedAlert(std::string const& title, std::string const& failure)
{
    return { AlertStyle::warning, quoted(title) + " could not be completed.", failure };
}

Alert shortcutAlert(std::string const& name, ShortcutsProvider::Failure const& failure)
{
    return { AlertStyle::warning, quoted(name) + " could not be run.", failure.description() };
}

Alert trashQuestion(std::string const& name)
{
    return { AlertStyle::warning, "Do you want to move " + quoted(name) + " to the Trash?", "", { "Move to Trash", "Cancel" }, cancelButton };
}

Alert trashAlert(std::string const& name, std::string const& reason)
{
    return { AlertStyle::warning, quoted(name) + " could not be moved to the Trash.", reason };
}

Alert noTerminalAlert() { return { AlertStyle::warning, "No terminal could be opened.", "This desktop has no program for it." }; }

Alert replaceQuestion(std::string const& name, std::string const& folder)
{
    return { AlertStyle::warning, quoted(name) + " is already in " + quoted(folder) + ". Do you want to replace it?",
        "The one that is there goes to the Trash.", { "Replace", "Cancel" }, cancelButton };
}

std::string problemLine(std::string const& name, std::string const& reason) { return quoted(name) + ": " + reason + "\n"; }

Alert dropAlert(std::string const& folder, std::string const& problems)
{
    return { AlertStyle::warning, "Some files could not be put into " + quoted(folder) + ".", problems };
}

Alert locationAlert(std::string const& name)
{
    return { AlertStyle::warning, quoted(name) + " could not be selected.", "Switching network location requires administrator rights." };
}

std::optional<Alert> confirmationAlert(MenuItemKind const& kind)
{
    auto const* const question = std::find_if(std::begin(questions), std::end(questions), [&](auto const& candidate) { return kind == candidate.kind; });
    if (question == std::end(questions))
        return std::nullopt;
    return Alert { AlertStyle::warning, std::string(question->message), "Applications are closed without asking. Unsaved changes are lost.",
        { std::string(question->button), "Cancel" }, cancelButton };
}

Alert forceQuitNote()
{
    return { AlertStyle::informational, "Click a window to force its application to quit.",
        "Unsaved changes are lost. A click with the right mouse button cancels.", { "Continue", "Cancel" }, cancelButton };
}

Alert aboutComputerAlert(ComputerFacts const& facts)
{
    std::pair<std::string_view, std::string const&> const lines[] = {
        { "Kernel: ", facts.kernel },
        { "Computer: ", facts.machine },
        { "Processor: ", facts.processor },
        { "Memory: ", facts.memory },
        { "Graphics: ", facts.graphics },
    };
    std::string text;
    for (auto const& [label, value] : lines) {
        if (!value.empty())
            text.append(text.empty() ? "" : "\n").append(label).append(value);
    }
    return { AlertStyle::informational, facts.system.empty() ? "About This Computer" : facts.system, text };
}

Alert untrustedStartAlert(UntrustedStart const& start)
{
    auto text = "It would run:\n" + shownCommand(start.command);
    std::vector<std::string> buttons { "Cancel", "Start" };
    if (start.canAlwaysStart) {
        text += "\n\n“Always Start” marks the file as executable.";
        buttons.emplace_back("Always Start");
    }
    return { AlertStyle::warning, quoted(displayText(start.file.lastPathComponent())) + " was not installed as an application. Start it?", std::move(text),
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
