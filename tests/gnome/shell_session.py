# SPDX-License-Identifier: MIT
"""A GNOME session of its own: a headless GNOME Shell on private buses, with pointer and keys. Like the
virtual desktop that it extends, it ends what it started and touches nothing else. Not for root, as
whom GNOME Shell does not run.
"""

import json
import os
import pathlib
import subprocess
import sys
import time

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
from virtual_desktop import Timeout, VirtualDesktop  # noqa: E402

SETTINGS = """[org/gnome/shell]
enabled-extensions={enabled}
welcome-dialog-last-shown-version='999'
[org/gnome/desktop/interface]
enable-animations=false
enable-hot-corners=false
"""
# Of GNOME before 45, and since.
EXTENSIONS = ("calmora@calmora.app", "calmora-45@calmora.app")
REMOTE_DESKTOP = "org.gnome.Mutter.RemoteDesktop"
LEFT, RIGHT, MIDDLE = 0x110, 0x111, 0x112


class ShellSession(VirtualDesktop):
    """Use it in a `with` statement.

    prefix: where Calmora is installed; the shell finds the extension there. enabled: whether the user
    has enabled it. x11: a session on a virtual X server, in place of Wayland.
    """

    def __init__(self, prefix, enabled=True, x11=False, size="1024x768"):
        super().__init__(window_manager="gnome-shell", tray=None, accessibility=False, size=size)
        self.prefix = pathlib.Path(prefix)
        self.enabled = enabled
        self.x11 = x11
        self.bus = None

    def _start_display(self):
        share = self.environment["XDG_DATA_DIRS"]
        self.environment.update(
            XDG_DATA_DIRS=f"{self.prefix}/share:{share}", XDG_CURRENT_DESKTOP="GNOME",
            XDG_SESSION_TYPE="x11" if self.x11 else "wayland", GSETTINGS_BACKEND="keyfile",
            GNOME_SHELL_SESSION_MODE="user", LIBGL_ALWAYS_SOFTWARE="1")
        del self.environment["QT_QPA_PLATFORM"]
        settings = self.folder / "config/glib-2.0/settings"
        settings.mkdir(parents=True)
        (settings / "keyfile").write_text(
            SETTINGS.format(enabled=list(EXTENSIONS) if self.enabled else "@as []"))
        if self.x11:
            super()._start_display()

    def _start_bus(self):
        # The system's bus first: it has logind alone.
        super()._start_bus()
        self.environment["DBUS_SYSTEM_BUS_ADDRESS"] = self.environment["DBUS_SESSION_BUS_ADDRESS"]
        super()._start_bus()
        self.start("/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "logind")
        self.wait_until(lambda: self.output("gdbus", "introspect", "--system", "--dest",
                                            "org.freedesktop.login1", "--object-path",
                                            "/org/freedesktop/login1"), "logind")
        self.bus = Gio.DBusConnection.new_for_address_sync(
            self.environment["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
            Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        self.bus.set_exit_on_close(False)

    def _start_window_manager(self):
        self.start_shell()

    def start_shell(self):
        """Starts the shell and waits until it shows the desktop."""
        options = ["--x11"] if self.x11 else [
            "--headless", "--virtual-monitor", self.size, "--wayland",
            "--wayland-display", "wayland-calmora"]
        self.shell = self.start("gnome-shell", "--unsafe-mode", *options)
        self.wait_until(self._is_ready, "GNOME Shell", seconds=60)
        if not self.x11:
            self._find_servers()
        self._start_input()
        self.hide_overview()

    def _is_ready(self):
        if self.shell.poll() is not None:
            raise Timeout(f"GNOME Shell has ended\n{self.logs()}")
        try:
            return self.js("!Main.layoutManager._startingUp")
        except (GLib.Error, RuntimeError):
            return False

    def _find_servers(self):
        """Where applications connect to, as the shell tells those that it starts."""
        self.environment["WAYLAND_DISPLAY"] = "wayland-calmora"
        for variable in ("DISPLAY", "XAUTHORITY"):
            value = self.js(f"imports.gi.GLib.getenv('{variable}')")
            if value:
                self.environment[variable] = value

    def call(self, name, path, interface, method, arguments=None, seconds=15.0):
        """The reply of a method on the session bus, as a tuple; raises GLib.Error."""
        return self.bus.call_sync(name, path, interface, method, arguments, None,
                                  Gio.DBusCallFlags.NONE, int(1000 * seconds), None).unpack()

    def owner(self, name):
        """The connection that owns a name of the session bus; None without one."""
        try:
            return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                             "GetNameOwner", GLib.Variant("(s)", (name,)))[0]
        except GLib.Error:
            return None

    def js(self, code):
        """What an expression gives within the shell: the test's eyes, not its hands."""
        done, value = self.call("org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell", "Eval",
                                GLib.Variant("(s)", (code,)))
        if not done:
            raise RuntimeError(f"{code}: {value}")
        return json.loads(value) if value else None

    def wait_for_js(self, code, seconds=15.0):
        """Waits until an expression gives something true within the shell, and returns it."""
        return self.wait_until(lambda: self.js(code), code, seconds)

    def hide_overview(self):
        """Leaves the overview, where each session begins."""
        self.js("Main.overview.hide()")
        self.wait_for_js("!Main.overview.visible")

    def enable_extension(self, enabled=True):
        """Enables or disables the extension, as the user does in the Extensions application."""
        version, = self.call("org.gnome.Shell", "/org/gnome/Shell", "org.freedesktop.DBus.Properties",
                             "Get", GLib.Variant("(ss)", ("org.gnome.Shell", "ShellVersion")))
        self.call("org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell.Extensions",
                  "EnableExtension" if enabled else "DisableExtension",
                  GLib.Variant("(s)", (EXTENSIONS[int(version.split(".")[0]) >= 45],)))

    def windows(self):
        """Every window as the shell knows it, the override-redirect ones left out."""
        return self.js("""global.get_window_actors().map(a => a.meta_window)
            .filter(w => !w.is_override_redirect()).map(w => ({
                id: w.get_id(), pid: w.get_pid(), title: w.get_title(), type: w.get_window_type(),
                x11: w.get_client_type() === imports.gi.Meta.WindowClientType.X11,
                app: imports.gi.Shell.WindowTracker.get_default().get_window_app(w)?.get_id() ?? null,
                above: w.is_above(), focus: w.has_focus(),
                rect: (r => [r.x, r.y, r.width, r.height])(w.get_frame_rect())}))""")

    def windows_of(self, process):
        return [window for window in self.windows() if window["pid"] == process]

    def _start_input(self):
        """Gets pointer and keyboard. Early: the top bar shows an indicator of it from now on."""
        self._input, = self.call(REMOTE_DESKTOP, "/org/gnome/Mutter/RemoteDesktop", REMOTE_DESKTOP,
                                 "CreateSession")
        self._do("Start", "()")
        # The devices appear with their first event, which is lost; in Xwayland a moment later, so that
        # a click with the first motion would be lost as well.
        self.press_keys(0x2a)
        self._do("NotifyPointerMotionRelative", "(dd)", 1, 1)

    def _do(self, method, signature, *arguments):
        """One event of pointer or keyboard."""
        self.call(REMOTE_DESKTOP, self._input, f"{REMOTE_DESKTOP}.Session", method,
                  GLib.Variant(signature, arguments))

    def move(self, x, y):
        """Moves the pointer there."""
        at = self.js("global.get_pointer()")
        self._do("NotifyPointerMotionRelative", "(dd)", x - at[0], y - at[1])
        self.wait_until(lambda: self.js("global.get_pointer()")[:2] == [x, y], "the pointer's place")

    def click(self, x, y, button=LEFT):
        """Moves the pointer there and clicks."""
        self.move(x, y)
        time.sleep(0.1)  # The shell looks what is there when it draws again.
        for pressed in (True, False):
            self._do("NotifyPointerButton", "(ib)", button, pressed)

    def icon(self):
        """Where Calmora's icon is in the top bar, as [x, y, width, height]; None without one."""
        return self.js("""(b => b ? [...b.get_transformed_position(), b.width, b.height]
            .map(Math.round) : null)(Main.panel.statusArea.calmora)""")

    def click_icon(self, button=LEFT):
        """Clicks Calmora's icon."""
        x, y, width, height = self.icon()
        self.click(x + width // 2, y + height // 2, button)

    def press_keys(self, *codes):
        """Presses keys together, by their evdev codes, and lets them go."""
        for code in codes:
            self._do("NotifyKeyboardKeycode", "(ub)", code, True)
        for code in reversed(codes):
            self._do("NotifyKeyboardKeycode", "(ub)", code, False)

    def xdotool(self, *arguments):
        raise NotImplementedError("move(), click() and press_keys() act on the whole session")

    def screenshot(self, path, crop=None):
        assert crop is None
        self.call("org.gnome.Shell.Screenshot", "/org/gnome/Shell/Screenshot",
                  "org.gnome.Shell.Screenshot", "Screenshot",
                  GLib.Variant("(bbs)", (True, False, str(path))))

    def extension_faults(self):
        """Lines of the shell's log that name a file of the extension: exceptions and warnings."""
        log = "\n".join(file.read_text(errors="replace")
                        for file in self.folder.glob("*-gnome-shell.log"))
        return [line for line in log.splitlines() if "@calmora.app" in line]
