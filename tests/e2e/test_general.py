"""The General pane with real clicks and keys: what its controls change in the popover and on disk."""

import os
import re
import signal
import subprocess
import time
import unittest

from gi.repository import Gio, GLib

from desktop_case import PROGRAM, DesktopCase, PopoverDriver


class PaneCase(DesktopCase):
    """Operates the General pane; the popover can be opened beside it."""

    def open_pane(self):
        """Opens the settings from the popover."""
        self.driver.open()
        self.driver.press("Settings")
        # The window manager moves a new window.
        self.desktop.wait_until(lambda: self.desktop.windows_of(self.driver.calmora.pid)
                                and not self.driver.is_open(), "settings")
        self.settled("Open Calmora at login")
        self.frame = self.desktop.wait_for_node(self.driver.calmora, "filler", "Calmora Settings")

    def controls(self):
        """The controls of the settings, with their states."""
        return [node for node in self.desktop.accessible(self.driver.calmora)
                if node["role"] in ("check box", "combo box", "push button")
                and "showing" in node["states"]]

    def states(self):
        """The state of each switch and the option of each picker, by label."""
        return {node["label"] or node["name"]: "checked" in node["states"] or node["name"]
                for node in self.controls() if node["role"] != "push button"}

    def protected(self):
        """The applications on the never-quit list."""
        return [node["description"] for node in self.controls()
                if node["name"] == "Remove from never-quit list"]

    def settled(self, name, description=""):
        """A control with that name or label, once it exists and has stopped moving."""
        def found():
            return next((node for node in self.controls() if name in (node["label"], node["name"])
                         and node["description"].startswith(description)), None)

        def still():
            node = found()
            time.sleep(0.1)
            return node if node and node == found() else None
        return self.desktop.wait_until(still, name)

    def control(self, name, description=""):
        """A control, scrolled into view with the wheel over switches and pickers."""
        # Another window may cover the settings.
        self.desktop.xdotool("search", "--name", "^Calmora Settings$", "windowactivate", "--sync")
        top, bottom = self.frame["y"] + 80, self.frame["y"] + self.frame["height"] - 10
        for _ in range(5):
            node = self.settled(name, description)
            too_low = node["y"] + node["height"] - bottom
            too_high = top - node["y"]
            if max(too_low, too_high) <= 0:
                return node
            self.desktop.xdotool("mousemove", self.frame["x"] + 385, self.frame["y"] + 300,
                                 "click", "--repeat", max(too_low, too_high) // 60 + 1,
                                 5 if too_low > 0 else 4)
        raise AssertionError(f"{name} cannot be reached")

    def change(self, name, option):
        """Toggles a switch, or picks the option with that index."""
        if option is None:
            self.desktop.click_node(self.control(name))
        else:
            self.click_for_window(name)
            self.desktop.xdotool("key", "Home", *["Down"] * option, "Return")

    def click_for_window(self, name):
        """Clicks a control and waits for the window that it opens."""
        node, process = self.control(name), self.driver.calmora.pid
        windows = len(self.desktop.windows_of(process))
        self.desktop.click_node(node)
        self.desktop.wait_until(lambda: len(self.desktop.windows_of(process)) > windows,
                                f"the window of {name}")

    def assert_popover(self, pattern):
        """Waits until the first row of the popover, opened for it, matches. "+" means ticked."""
        self.driver.open()

        def matches():
            # One look for all: each takes a second on a busy machine.
            nodes = self.driver.showing()
            rows = sorted((node for node in nodes if node["role"] == "list item"),
                          key=lambda row: row["y"])
            row = rows[0]["name"] if rows else ""
            is_ticked = any(node["role"] == "check box" and "checked" in node["states"]
                            and node["name"] == row.split(",")[0] for node in nodes)
            return re.fullmatch(pattern, ("+" if is_ticked else "-") + row)
        self.desktop.wait_until(matches, pattern)
        self.driver.click_icon()
        self.desktop.wait_until(lambda: not self.driver.is_open(), "closed popover")

    def autostart(self):
        return [file.read_text() for file in
                self.desktop.folder.glob("config/autostart/*.desktop")]


class General(PaneCase):
    def test_controls_act_at_once_and_last(self):
        desktop = self.open_desktop()
        self.start_application("galculator")
        self.start_calmora()
        self.assert_popover(r"\+Galculator, [\d.]+%")
        self.open_pane()
        at_first, stored = self.states(), {"openAtLogin": False}
        for name, option, key, value in (
                ("Open Calmora at login", None, "openAtLogin", True),
                ("Deselect apps by default", None, "deselectAppsByDefault", True),
                ("Show resources", 2, "resourceDisplay", "both")):
            self.change(name, option)
            stored[key] = value
            desktop.wait_until(lambda: self.preferences() == stored, f"{stored} on disk")
        self.assert_popover(r"\+Galculator, [\d.]+%, [\d.]+ MB")
        changed = self.states()
        self.assertIn(PROGRAM, *self.autostart())

        self.driver.calmora.terminate()
        self.wait_for_exit(self.driver.calmora)
        self.start_calmora()
        self.assert_popover(r"-Galculator, [\d.]+%, [\d.]+ MB")
        self.open_pane()
        self.assertEqual(self.states(), changed)
        desktop.click_node(self.control("Reset All Settings"))
        desktop.wait_until(lambda: self.states() == at_first, "the first states")
        self.assertEqual(self.autostart(), [])

    def test_the_never_quit_list_protects_and_lasts(self):
        desktop = self.open_desktop()
        calculator = self.start_application("galculator")
        terminal = self.start_application("xterm")
        driver = self.start_calmora()
        self.open_pane()
        self.click_for_window("Add App")
        # By keyboard: the toolkit may know the sheet at another place than the display does.
        desktop.wait_until(lambda: [node for node in self.controls() if node["name"] == "Done"
                                    and "focused" in node["states"]], "the sheet")
        desktop.xdotool("key", "Tab", "Tab", "space")
        desktop.wait_for_node(driver.calmora, "label", "Added")
        desktop.xdotool("key", "Escape")
        desktop.wait_until(lambda: "Done" not in str(self.controls()), "closed sheet")
        driver.open()
        driver.protect("Galculator")
        desktop.wait_until(lambda: self.protected() == ["Galculator", "XTerm"], "both in the pane")

        driver.calmora.terminate()
        self.wait_for_exit(driver.calmora)
        driver = self.start_calmora()
        self.open_pane()
        self.assertEqual(self.protected(), ["Galculator", "XTerm"])
        desktop.click_node(self.control("Remove from never-quit list", "XTerm"))
        driver.open()
        driver.button("Quit XTerm")
        self.assertNotIn("Quit Galculator", str(driver.nodes("push button")))
        desktop.click_node(driver.nodes("check box")[0])
        driver.press("Quit All")
        self.wait_for_exit(terminal)
        self.assert_alive(calculator)


class NotificationServer:
    """A notification service that records the texts of the notifications."""

    NAME, PATH = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
    INTERFACE = """<node><interface name="org.freedesktop.Notifications">
      <method name="GetCapabilities"><arg type="as" direction="out"/></method>
      <method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/>
        <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
        <arg type="as" direction="in"/><arg type="a{sv}" direction="in"/>
        <arg type="i" direction="in"/><arg type="u" direction="out"/></method>
    </interface></node>"""

    def __init__(self, bus):
        flags = Gio.DBusConnectionFlags
        self.notices = []
        self.connection = Gio.DBusConnection.new_for_address_sync(
            bus, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None)
        self.connection.register_object(
            self.PATH, Gio.DBusNodeInfo.new_for_xml(self.INTERFACE).interfaces[0], self.answer)
        Gio.bus_own_name_on_connection(self.connection, self.NAME, Gio.BusNameOwnerFlags.NONE)

    def answer(self, _connection, _sender, _path, _interface, method, parameters, invocation):
        if method == "Notify":
            self.notices.append(parameters.unpack()[3:5])
        invocation.return_value(GLib.Variant("(u)", (1,)) if method == "Notify"
                                else GLib.Variant("(as)", (["body"],)))

    def heard(self):
        """Titles and bodies of all notices so far."""
        while GLib.MainContext.default().iteration(False):
            pass
        return self.notices


class AutoQuit(DesktopCase):
    def test_what_is_idle_goes_after_a_minute_with_a_notice(self):
        desktop = self.open_desktop()
        server = NotificationServer(desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.write_preferences({"autoQuitEnabled": True, "autoQuitMinutes": 0})
        never_in_front = self.start_application("xterm")
        driver = self.start_calmora()
        desktop.wait_until(driver.icon, "status icon")
        calculator = self.start_application("galculator")
        self.wait_for_exit(calculator, seconds=80)
        desktop.wait_until(server.heard, "a notice")
        self.assert_alive(never_in_front)
        self.assertEqual(server.heard(), [
            ("Calmora", "Galculator was quit after 0 minutes without use.")])


class Unwritable(PaneCase):
    """Neither a read-only folder nor a full disk damages existing files."""

    def try_to_save(self, *wrapper, mode=0o755, **options):
        """Toggles switches while nothing can be written; `mode` is the mode of the folders."""
        self.write_preferences({"sortOrder": "cpuUsage", "neverQuitApps": ["x" * 200]})
        config = self.desktop.folder / "config"
        (config / "autostart").mkdir(exist_ok=True)
        before = {file: file.read_bytes() for file in config.rglob("*") if file.is_file()}
        for folder in ("autostart", "calmora"):
            (config / folder).chmod(mode)
        self.driver = PopoverDriver(self.desktop, PROGRAM, *wrapper, **options)
        self.open_pane()
        self.change("Open Calmora at login", None)
        self.change("Play sound on quit", None)
        self.desktop.wait_until(lambda: self.states()["Play sound on quit"], "a turned switch")
        self.assertIsNot(self.states()["Open Calmora at login"], True, "not sprung back")
        self.driver.calmora.send_signal(signal.SIGTERM)
        self.wait_for_exit(self.driver.calmora)
        self.assertEqual(self.driver.calmora.returncode, 0)
        self.assertEqual({file: file.read_bytes() for file in config.rglob("*")
                          if file.is_file()}, before)

    def test_read_only_folders(self):
        self.open_desktop()
        # Root may write anywhere, so drop that right.
        ordinary = ("setpriv", "--bounding-set=-dac_override") if os.geteuid() == 0 else ()
        self.try_to_save(*ordinary, mode=0o555)

    def test_full_disk(self):
        self.open_desktop()
        # Calmora inherits that SIGXFSZ is ignored, as Python ignores it.
        self.try_to_save("prlimit", "--fsize=0", restore_signals=False,
                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


if __name__ == "__main__":
    unittest.main()
