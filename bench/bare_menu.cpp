// bare_menu: the least that a menu can be, which bench/desktop measures others by. A window that is made at the start,
// shown and filled with one colour on SIGUSR1, and hidden by Escape.
#include <X11/Xlib.h>
#include <X11/keysym.h>

#include <csignal>
#include <cstdlib>
#include <poll.h>
#include <unistd.h>

namespace {

int wakeEnds[2];

void wake(int) { (void)!write(wakeEnds[1], "", 1); }

} // namespace

int main()
{
    auto* const display = XOpenDisplay(nullptr);
    if (!display || pipe(wakeEnds) != 0)
        return 1;
    XSetWindowAttributes attributes {};
    attributes.override_redirect = True;
    auto const window = XCreateWindow(
        display, DefaultRootWindow(display), 40, 40, 240, 600, 0, CopyFromParent, InputOutput, CopyFromParent, CWOverrideRedirect, &attributes);
    XSelectInput(display, window, KeyPressMask);
    auto const gc = XCreateGC(display, window, 0, nullptr);
    XSetForeground(display, gc, WhitePixel(display, DefaultScreen(display)));
    XFlush(display);
    std::signal(SIGUSR1, wake);
    for (pollfd waits[] = { { wakeEnds[0], POLLIN, 0 }, { ConnectionNumber(display), POLLIN, 0 } };;) {
        if (!XPending(display))
            poll(waits, 2, -1);
        if (char byte = 0; (waits[0].revents & POLLIN) != 0 && read(wakeEnds[0], &byte, 1) == 1) {
            XMapRaised(display, window);
            XFillRectangle(display, window, gc, 0, 0, 240, 600);
            XGrabKeyboard(display, window, True, GrabModeAsync, GrabModeAsync, CurrentTime);
        }
        waits[0].revents = 0;
        while (XPending(display)) {
            XEvent event;
            XNextEvent(display, &event);
            if (event.type == KeyPress && XLookupKeysym(&event.xkey, 0) == XK_Escape) {
                XUngrabKeyboard(display, CurrentTime);
                XUnmapWindow(display, window);
            }
        }
        XFlush(display);
    }
}
