#include "platform/linux/windows/LinuxApplication.h"

#include "platform/linux/icons/LaurelIcon.h"
#include "platform/linux/menu/MenuStyle.h"
#include "platform/linux/menu/MenuWindow.h"

#include <QLocale>
#include <QSessionManager>
#include <QWidget>

namespace zv {

namespace {

bool isOrdinaryWindow(QWidget const& widget)
{
    auto const type = widget.windowType();
    return type == Qt::Window || type == Qt::Dialog;
}

bool changesWindows(QEvent::Type type) { return type == QEvent::Show || type == QEvent::Hide || type == QEvent::WindowStateChange || type == QEvent::Close; }

/// Gives a window the program's icon, before it is seen: as one for all windows its sizes would be drawn at the start.
void giveIcon(QWidget& widget)
{
    if (widget.isWindow() && isOrdinaryWindow(widget) && widget.windowIcon().isNull())
        widget.setWindowIcon(laurelApplicationIcon());
}

/// Whether a menu is open, which the toolkit must not close. It closes menus when the program
/// becomes inactive, but learns of that late after a menu gave the keyboard back, when the next
/// menu may just have opened. An open menu holds the keyboard, so there is no reason to close it.
bool isMenuOpen() { return qobject_cast<MenuWindow const*>(QApplication::activePopupWidget()); }

} // namespace

LinuxApplication::LinuxApplication(int& count, char** arguments)
    : QApplication(count, arguments)
{
    setApplicationName(QStringLiteral("zanthe-vell"));
    setApplicationVersion(QStringLiteral(ZV_VERSION));
    setDesktopFileName(QStringLiteral("org.zanthevell.ZantheVell"));
    setQuitOnLastWindowClosed(false);
    setStyle(new MenuStyle);
    setLayoutDirection(QLocale::system().textDirection());
    // The session must not restart the program: only the settings choose what starts at login,
    // and a second start would open them.
    connect(this, &QGuiApplication::saveStateRequest, this, [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); });
}

void LinuxApplication::activate()
{
    for (auto* widget : topLevelWidgets()) {
        if (isOrdinaryWindow(*widget) && widget->isVisible()) {
            widget->raise();
            widget->activateWindow();
        }
    }
}

void LinuxApplication::terminate()
{
    m_isTerminating = true;
    // Not quit(), which asks the open windows: none of ours has anything to keep.
    exit(0);
}

bool LinuxApplication::isActive() const
{
    // The toolkit's own state stays active when our last window closes and no other program's takes over.
    auto const* window = activeWindow();
    return window && window->isVisible() && isOrdinaryWindow(*window);
}

std::vector<WindowState> LinuxApplication::windows() const
{
    std::vector<WindowState> states;
    for (auto const* widget : topLevelWidgets()) {
        if (isOrdinaryWindow(*widget))
            states.push_back(
                { !widget->windowFlags().testFlag(Qt::FramelessWindowHint), widget->isVisible() && !widget->isMinimized(), widget->isMinimized() });
    }
    return states;
}

bool LinuxApplication::event(QEvent* event)
{
    // The session ends: the toolkit would ask the windows first, and ignore it before the loop runs.
    if (event->type() == QEvent::Quit) {
        terminate();
        return true;
    }
    return QApplication::event(event);
}

bool LinuxApplication::notify(QObject* receiver, QEvent* event)
{
    auto const type = event->type(); // the event may be destroyed by the call
    if (type == QEvent::ApplicationDeactivate && isMenuOpen())
        return true;
    if (type == QEvent::Polish && receiver->isWidgetType())
        giveIcon(static_cast<QWidget&>(*receiver));
    auto const* widget = changesWindows(type) && receiver->isWidgetType() ? static_cast<QWidget const*>(receiver) : nullptr;
    bool const tells = widget && widget->isWindow() && isOrdinaryWindow(*widget);
    bool const handled = QApplication::notify(receiver, event);
    if (tells && onWindowsChanged)
        onWindowsChanged();
    return handled;
}

} // namespace zv
