# SPDX-License-Identifier: MIT
"""The desktop's settings portal, reduced to the colour scheme, for a virtual desktop.

Usage: settings_portal.py SCHEME      1 prefers dark, 2 prefers light (XDG Desktop Portal, Settings)
"""

import sys

from gi.repository import Gio, GLib

INTERFACE = """<node><interface name="org.freedesktop.portal.Settings">
  <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="v" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""
NAMESPACE, KEY = "org.freedesktop.appearance", "color-scheme"


def main():
    scheme = int(sys.argv[1])
    loop = GLib.MainLoop()

    def answer(_connection, _sender, _path, _interface, _method, parameters, invocation):
        if parameters.unpack() == (NAMESPACE, KEY):
            # Read() wraps its variant in another one; ReadOne() of later versions does not.
            value = GLib.Variant("v", GLib.Variant("u", scheme))
            invocation.return_value(GLib.Variant("(v)", (value,)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")

    def acquired(connection, _name):
        description = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        connection.register_object("/org/freedesktop/portal/desktop", description, answer)

    Gio.bus_own_name(Gio.BusType.SESSION, "org.freedesktop.portal.Desktop",
                     Gio.BusNameOwnerFlags.NONE, acquired,
                     lambda *_: print("ready", flush=True), lambda *_: loop.quit())
    loop.run()


if __name__ == "__main__":
    main()
