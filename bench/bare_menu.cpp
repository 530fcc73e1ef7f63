// bare_menu [--icon]: the least that a menu can be, which bench/desktop measures others by. A window that is made at the
// start, shown and filled with one colour on SIGUSR1 or, with --icon, by a click on its status item, and hidden by Escape.
#include <X11/Xlib.h>
#include <X11/keysym.h>
#include <gio/gio.h>
#include <glib-unix.h>

#include <csignal>
#include <string_view>
#include <unistd.h>

namespace {

int wakeEnds[2];

void wake(int) { (void)!write(wakeEnds[1], "", 1); }

class BareMenu {
public:
    explicit BareMenu(Display* display)
        : m_display(display)
    {
        XSetWindowAttributes attributes {};
        attributes.override_redirect = True;
        m_window = XCreateWindow(
            display, DefaultRootWindow(display), 40, 40, 240, 600, 0, CopyFromParent, InputOutput, CopyFromParent, CWOverrideRedirect, &attributes);
        XSelectInput(display, m_window, KeyPressMask);
        m_gc = XCreateGC(display, m_window, 0, nullptr);
        XSetForeground(display, m_gc, WhitePixel(display, DefaultScreen(display)));
        XFlush(display);
    }

    void show()
    {
        XMapRaised(m_display, m_window);
        XFillRectangle(m_display, m_window, m_gc, 0, 0, 240, 600);
        XGrabKeyboard(m_display, m_window, True, GrabModeAsync, GrabModeAsync, CurrentTime);
        read();
    }

    void read()
    {
        while (XPending(m_display)) {
            XEvent event;
            XNextEvent(m_display, &event);
            if (event.type == KeyPress && XLookupKeysym(&event.xkey, 0) == XK_Escape) {
                XUngrabKeyboard(m_display, CurrentTime);
                XUnmapWindow(m_display, m_window);
            }
        }
        XFlush(m_display);
    }

private:
    Display* m_display;
    Window m_window;
    GC m_gc;
};

constexpr char const* itemInterface = R"xml(<node><interface name="org.kde.StatusNotifierItem">
<property name="Category" type="s" access="read"/><property name="Id" type="s" access="read"/>
<property name="Title" type="s" access="read"/><property name="Status" type="s" access="read"/>
<property name="IconName" type="s" access="read"/><property name="ItemIsMenu" type="b" access="read"/>
<method name="Activate"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
</interface></node>)xml";

GVariant* valueOf(GDBusConnection*, gchar const*, gchar const*, gchar const*, gchar const* property, GError**, gpointer)
{
    std::string_view const name = property;
    if (name == "ItemIsMenu")
        return g_variant_new_boolean(FALSE);
    return g_variant_new_string(name == "Category" ? "ApplicationStatus" : name == "Status" ? "Active" : name == "IconName" ? "folder" : "bare");
}

void called(GDBusConnection*, gchar const*, gchar const*, gchar const*, gchar const*, GVariant*, GDBusMethodInvocation* invocation, gpointer menu)
{
    static_cast<BareMenu*>(menu)->show();
    g_dbus_method_invocation_return_value(invocation, nullptr);
}

bool showIcon(BareMenu& menu)
{
    auto* const bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    auto* const interface = g_dbus_node_info_new_for_xml(itemInterface, nullptr);
    static constexpr GDBusInterfaceVTable calls { called, valueOf, nullptr, {} };
    return bus && g_dbus_connection_register_object(bus, "/StatusNotifierItem", interface->interfaces[0], &calls, &menu, nullptr, nullptr) != 0
        && g_dbus_connection_call_sync(bus, "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher",
               "RegisterStatusNotifierItem", g_variant_new("(s)", g_dbus_connection_get_unique_name(bus)), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr,
               nullptr)
        != nullptr;
}

gboolean signalled(gint descriptor, GIOCondition, gpointer menu)
{
    if (char byte = 0; read(descriptor, &byte, 1) == 1)
        static_cast<BareMenu*>(menu)->show();
    return G_SOURCE_CONTINUE;
}

gboolean displayed(gint, GIOCondition, gpointer menu)
{
    static_cast<BareMenu*>(menu)->read();
    return G_SOURCE_CONTINUE;
}

} // namespace

int main(int argc, char** argv)
{
    auto* const display = XOpenDisplay(nullptr);
    if (!display || pipe(wakeEnds) != 0)
        return 1;
    BareMenu menu(display);
    g_unix_fd_add(wakeEnds[0], G_IO_IN, signalled, &menu);
    g_unix_fd_add(ConnectionNumber(display), G_IO_IN, displayed, &menu);
    std::signal(SIGUSR1, wake);
    if (argc > 1 && std::string_view(argv[1]) == "--icon" && !showIcon(menu))
        return 1;
    g_main_loop_run(g_main_loop_new(nullptr, FALSE));
}
