#include "platform/linux/doctor/DisplaySurvey.h"

#include "platform/linux/hotkeys/BindingLines.h"
#include "platform/linux/hotkeys/LinuxHotkeys.h"
#include "platform/linux/hotkeys/XkbKeymap.h"
#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/overlay/OverlayFrontEnd.h"
#include "platform/linux/posix/XdgDirectories.h"
#include "platform/linux/toolkit/CommandApplication.h"
#include "platform/linux/toolkit/SessionBus.h"
#include "platform/linux/x11/X11Connection.h"

#include <QDir>
#include <QLibraryInfo>
#include <QStandardPaths>

namespace zv {

namespace {

using Display = DesktopFindings::Display;

Display display(bool hasX, bool hasLayers, Environment const& environment)
{
    auto const drawnBy = displayServerFor(environment);
    if (drawnBy.starts_with("wayland"))
        return hasLayers ? Display::wayland : Display::waylandWithoutLayers;
    if (hasX)
        return sessionKindOf(environment) == SessionKind::wayland ? Display::x11WithinWayland : Display::x11;
    if (doesWaylandAnswer(environment))
        return Display::waylandWithoutPlugin;
    bool const isNamed = !valueOf(environment, "DISPLAY").empty() || !valueOf(environment, "WAYLAND_DISPLAY").empty();
    return isNamed ? Display::unreachable : Display::none;
}

/// Whether a window manager runs: its check window names itself, unlike a leftover.
bool hasWindowManager(X11Connection const& x)
{
    auto const namedBy = [&](xcb_window_t window) {
        auto const words = wordsOf(XProperty(xcb_get_property_reply(x.get(), requestWords(x, window, XAtom::netSupportingWmCheck), nullptr)));
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

void surveyDisplay(Environment const& environment, bool hasLayerShell, DesktopFindings& findings)
{
    CommandApplication const application;
    auto const session = sessionKindOf(environment);
    auto const x = X11Connection::open();
    findings.display = display(x != nullptr, hasLayerShell, environment);
    if (x) {
        findings.hasWindowManager = hasWindowManager(*x);
        findings.hasCornerPanel = OverlayFrontEnd::support(session) == OverlaySupport::onPanels;
    }
    findings.hasIconTheme
        = !desktopIconTheme({ .connection = x ? x->get() : nullptr, .configFolders = { XdgDirectories::of(environment).config } }, iconFolders()).isEmpty();
    findings.readsDrawings = readsDrawings();
    findings.hotkeys = LinuxHotkeys::support(sessionBus(BusAddresses::of(environment)), environment);
    if (auto const keymap = XkbKeymap::named(nullptr))
        findings.bindingOfShow = bindingLineFor(valueOf(environment, "XDG_CURRENT_DESKTOP"), chordOfShow, commandOfShow, keymap->layers(0));
}

} // namespace zv
