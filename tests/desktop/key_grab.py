"""Another client of the X server, which tries to hold a combination."""

import ctypes

K, CONTROL_ALT = 45, 4 | 8  # as the X server numbers them


class KeyGrab:
    HANDLER = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)

    def __init__(self, key=K, modifiers=CONTROL_ALT):
        self.key, self.modifiers = key, modifiers
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XSetErrorHandler.restype = ctypes.c_void_p
        self.errors = []
        self.handler = self.HANDLER(lambda *_: self.errors.append(True) or 0)

    def __enter__(self):
        """Holds the combination, unless another client has it."""
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        self.errors.clear()
        self.x11.XSetErrorHandler(self.handler)
        self.x11.XGrabKey(self.display, self.key, self.modifiers, root, 0, 1, 1)
        self.x11.XSync(self.display, 0)
        self.x11.XSetErrorHandler(None)
        return self

    def __exit__(self, *_):
        self.x11.XCloseDisplay(self.display)

    def is_free(self):
        with self:
            return not self.errors
