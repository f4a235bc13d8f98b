#!/usr/bin/env python3
"""Ends with 1 when no window can be opened on the display that DISPLAY names. Else says whether a window
manager is there, which draws title bars: "managed" or "bare"."""

import ctypes
import sys


def main() -> int:
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XDefaultRootWindow.restype = x11.XInternAtom.restype = ctypes.c_ulong
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    if not display:
        return 1
    # Every window manager of today leaves this property on the root window.
    property_name = ctypes.c_ulong(x11.XInternAtom(display, b"_NET_SUPPORTING_WM_CHECK", 0))
    root = ctypes.c_ulong(x11.XDefaultRootWindow(display))
    kind, form, count, rest, value = (ctypes.c_ulong(), ctypes.c_int(), ctypes.c_ulong(), ctypes.c_ulong(),
                                      ctypes.c_void_p())
    x11.XGetWindowProperty(display, root, property_name, ctypes.c_long(0), ctypes.c_long(1), 0, ctypes.c_ulong(0),
                           *(ctypes.byref(field) for field in (kind, form, count, rest, value)))
    print("managed" if kind.value else "bare")
    return 0


if __name__ == "__main__":
    sys.exit(main())
