#include "platform/linux/doctor/DisplaySurvey.h"

#include "platform/linux/hotkeys/LinuxHotkeys.h"
#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/overlay/OverlayFrontEnd.h"
#include "platform/linux/toolkit/CommandApplication.h"
#include "platform/linux/toolkit/DisplayServer.h"
#include "platform/linux/x11/X11Connection.h"

#include <QDir>
#include <QLibraryInfo>
#include <QStandardPaths>

namespace zv {

namespace {

using Display = DesktopFindings::Display;

Display display(bool hasX)
{
    if (hasX)
        return isWaylandSession() ? Display::x11WithinWayland : Display::x11;
    if (doesWaylandAnswer())
        return hasWaylandPlugin() ? Display::wayland : Display::waylandWithoutPlugin;
    bool const isNamed = !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    return isNamed ? Display::unreachable : Display::none;
}

/// Its window names itself: what an ended one left behind does not.
bool hasWindowManager(X11Connection const& x)
{
    auto const namedBy = [&](xcb_window_t window) {
        XReply<xcb_get_property_reply_t> const reply(xcb_get_property_reply(x.get(), requestWords(x, window, XAtom::netSupportingWmCheck), nullptr));
        auto const words = wordsOf(reply.get());
        return words.empty() ? xcb_window_t { XCB_WINDOW_NONE } : words.front();
    };
    auto const window = namedBy(x.root());
    return window != XCB_WINDOW_NONE && namedBy(window) == window;
}

bool readsDrawings()
{
    QDir const plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath));
    return plugins.exists(QStringLiteral("iconengines/libqsvgicon.so")) && plugins.exists(QStringLiteral("imageformats/libqsvg.so"));
}

QStringList iconFolders()
{
    auto folders = QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QStringLiteral("icons"), QStandardPaths::LocateDirectory);
    folders.prepend(QDir::homePath() + QStringLiteral("/.icons"));
    return folders;
}

} // namespace

void surveyDisplay(DesktopFindings& findings)
{
    CommandApplication const application;
    auto const x = X11Connection::open();
    findings.display = display(x != nullptr);
    if (x) {
        findings.hasWindowManager = hasWindowManager(*x);
        findings.hasPanelAtTop = OverlayFrontEnd::support() == OverlaySupport::onPanels;
    }
    findings.hasIconTheme = !desktopIconTheme(x ? x->get() : nullptr, iconFolders()).isEmpty();
    findings.readsDrawings = readsDrawings();
    findings.hotkeys = LinuxHotkeys::support();
}

} // namespace zv
