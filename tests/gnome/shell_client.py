# SPDX-License-Identifier: MIT
"""Plays Calmora towards the extension: does what it reads, one JSON list a line, and writes replies and
signals as JSON. Its name on the bus is the first argument.
"""

import json
import sys

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gio, GLib, Gtk  # noqa: E402

SHELL = "app.calmora.Calmora.Shell"
PATH = "/app/calmora/Calmora/Shell"

bus = Gio.bus_get_sync(Gio.BusType.SESSION)
popover = Gtk.Window(title="Calmora popover", decorated=False,
                     type_hint=Gdk.WindowTypeHint.UTILITY)


def call(method, signature, arguments):
    return bus.call_sync(SHELL, PATH, SHELL + "1", method, GLib.Variant(signature, arguments), None,
                         Gio.DBusCallFlags.NONE, 15000, None).unpack()


def show(width, height):
    popover.resize(width, height)
    popover.show_all()


def read(stream, _):
    line = stream.readline()
    if not line:
        Gtk.main_quit()
        return GLib.SOURCE_REMOVE
    command, *arguments = json.loads(line)
    try:
        reply = {"call": call, "show": show, "hide": popover.hide}[command](*arguments)
        print(json.dumps({"reply": reply}), flush=True)
    except GLib.Error as error:
        print(json.dumps({"error": error.message}), flush=True)
    return GLib.SOURCE_CONTINUE


def tell(_bus, _sender, _path, _interface, name, values):
    print(json.dumps({"signal": [name, *values.unpack()]}), flush=True)


# From anybody: also what the extension sends when it has left the bus.
bus.signal_subscribe(None, SHELL + "1", None, PATH, None, Gio.DBusSignalFlags.NONE, tell)
bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
              GLib.Variant("(su)", (sys.argv[1], 3)), None, Gio.DBusCallFlags.NONE, 15000, None)
GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, read)
Gtk.main()
