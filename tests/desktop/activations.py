"""Says that windows become active, one after the other and in turn, as a window manager does.

    activations.py COUNT WINDOW…

The last window is the last to be active. Each change is seen by the server before the next is made.
"""

import ctypes
import sys

XA_WINDOW, REPLACE = 33, 0


def main():
    count, *windows = map(int, sys.argv[1:])
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XDefaultRootWindow.restype = x11.XInternAtom.restype = ctypes.c_ulong
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    root = ctypes.c_ulong(x11.XDefaultRootWindow(display))
    active = ctypes.c_ulong(x11.XInternAtom(display, b"_NET_ACTIVE_WINDOW", 0))
    for number in range(count):
        window = (ctypes.c_long * 1)(windows[(number - count) % len(windows)])
        x11.XChangeProperty(display, root, active, ctypes.c_ulong(XA_WINDOW), 32, REPLACE,
                            window, 1)
        x11.XSync(display, 0)


if __name__ == "__main__":
    main()
