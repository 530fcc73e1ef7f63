#include "platform/linux/x11/X11ClientWindows.h"

#include "platform/linux/x11/XReply.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace zv {

namespace {

/// Extended Window Manager Hints: https://specifications.freedesktop.org/wm-spec. The
/// application's name is GTK's own addition.
constexpr std::array atomNames { "_NET_CLIENT_LIST", "_NET_CLIENT_LIST_STACKING", "_NET_ACTIVE_WINDOW", "_NET_CLOSE_WINDOW", "_NET_WM_WINDOW_TYPE",
    "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_PID", "_NET_WM_NAME", "_GTK_APPLICATION_ID", "UTF8_STRING" };
constexpr std::array foreignTypeNames { "_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP", "_NET_WM_WINDOW_TYPE_SPLASH", "_NET_WM_WINDOW_TYPE_MENU",
    "_NET_WM_WINDOW_TYPE_NOTIFICATION", "_NET_WM_WINDOW_TYPE_TOOLTIP", "_NET_WM_WINDOW_TYPE_POPUP_MENU", "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU" };

constexpr std::uint32_t longestText = 256; // in units of four bytes
constexpr std::uint32_t mostWindows = 4096;
/// The pager's "Source indication in requests" there: the user asked, and the window manager obeys.
constexpr std::uint32_t sourceIsPager = 2;

std::uint32_t firstNumber(XProperty const& property)
{
    auto const all = wordsOf(property);
    return all.empty() ? 0 : all.front();
}

/// The title; older programs have only the plain one, without UTF-8.
std::string_view titleOf(XProperty const& title, XProperty const& oldTitle)
{
    auto const text = bytesOf(title);
    return text.empty() ? bytesOf(oldTitle) : text;
}

/// The properties of a window that are requested together.
enum Asked { askedType, askedState, askedClass, askedApplicationId, askedPid, askedTitle, askedOldTitle, askedCount };

} // namespace

X11ClientWindows::X11ClientWindows(xcb_connection_t* connection, xcb_window_t root)
    : m_connection(connection)
    , m_root(root)
    , m_atoms(internAtoms(connection, atomNames))
    , m_foreignTypes(internAtoms(connection, foreignTypeNames))
{
}

std::vector<xcb_window_t> X11ClientWindows::managedWindows() const
{
    auto const ask = [this](Name name) { return xcb_get_property(m_connection, 0, m_root, m_atoms[name], XCB_ATOM_WINDOW, 0, mostWindows); };
    auto const stackingCookie = ask(clientListStacking);
    auto const listCookie = ask(clientList);
    XProperty const stacking(xcb_get_property_reply(m_connection, stackingCookie, nullptr));
    XProperty const list(xcb_get_property_reply(m_connection, listCookie, nullptr));
    auto const stacked = wordsOf(stacking);
    return stacked.empty() ? wordsOf(list) : stacked;
}

bool X11ClientWindows::isOrdinary(std::vector<xcb_atom_t> const& types, std::vector<xcb_atom_t> const& states) const
{
    if (std::find(states.begin(), states.end(), m_atoms[skipTaskbar]) != states.end())
        return false;
    return types.empty() || std::find(m_foreignTypes.begin(), m_foreignTypes.end(), types.front()) == m_foreignTypes.end();
}

X11ClientWindows::List X11ClientWindows::list() const
{
    auto const windows = managedWindows();
    if (windows.empty()) {
        // An empty list counts; a missing property means that no window manager keeps one.
        XProperty const listed(
            xcb_get_property_reply(m_connection, xcb_get_property(m_connection, 0, m_root, m_atoms[clientList], XCB_ATOM_WINDOW, 0, 1), nullptr));
        return listed && listed->type == XCB_ATOM_WINDOW ? std::optional(std::vector<ClientWindow> {}) : std::nullopt;
    }

    std::array<xcb_atom_t, askedCount> const properties { m_atoms[windowType], m_atoms[windowState], XCB_ATOM_WM_CLASS, m_atoms[gtkApplicationId], m_atoms[pid],
        m_atoms[title], XCB_ATOM_WM_NAME };
    std::vector<std::array<xcb_get_property_cookie_t, askedCount>> cookies(windows.size());
    for (std::size_t i = 0; i < windows.size(); ++i) {
        for (std::size_t j = 0; j < askedCount; ++j)
            cookies[i][j] = xcb_get_property(m_connection, 0, windows[i], properties[j], XCB_GET_PROPERTY_TYPE_ANY, 0, longestText);
    }

    // The program's path, as commands in terminals are other processes of it.
    auto const ownProgram = programOfProcess(static_cast<std::uint32_t>(getpid()));
    std::vector<ClientWindow> found;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        std::array<XProperty, askedCount> answers;
        for (std::size_t j = 0; j < askedCount; ++j)
            answers[j].reset(xcb_get_property_reply(m_connection, cookies[i][j], nullptr));
        auto const processId = firstNumber(answers[askedPid]);
        auto program = programOfProcess(processId);
        bool const isOurs = !program.empty() && program == ownProgram;
        if (isOurs || !isOrdinary(wordsOf(answers[askedType]), wordsOf(answers[askedState])))
            continue;
        // WM_CLASS is the instance and the class, each ended by a zero.
        auto const names = bytesOf(answers[askedClass]);
        auto const instance = names.substr(0, names.find('\0'));
        auto const rest = names.substr(std::min(instance.size() + 1, names.size()));
        found.push_back({ windows[i], std::string(rest.substr(0, rest.find('\0'))), std::string(instance), std::string(bytesOf(answers[askedApplicationId])),
            std::string(titleOf(answers[askedTitle], answers[askedOldTitle])), processId, std::move(program) });
    }
    return found;
}

void X11ClientWindows::activate(xcb_window_t window) { ask(window, activeWindow, { sourceIsPager, XCB_CURRENT_TIME }); }

void X11ClientWindows::close(xcb_window_t window) { ask(window, closeWindow, { XCB_CURRENT_TIME, sourceIsPager }); }

/// Sends the window manager a message about the window.
void X11ClientWindows::ask(xcb_window_t window, Name message, std::array<std::uint32_t, 2> data) const
{
    xcb_client_message_event_t event {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = m_atoms[message];
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(m_connection, 0, m_root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT, reinterpret_cast<char const*>(&event));
    xcb_flush(m_connection);
}

} // namespace zv
