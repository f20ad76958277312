# SPDX-License-Identifier: MIT
"""The whole road of a user: shortcuts recorded in the settings and used, quitting by force, what is
kept over a restart, automatic quitting switched on; on desktops with unlike trays.
"""

import os
import pathlib
import signal
import unittest

from desktop_case import DesktopCase

SHORTCUTS = {"Show/Hide Calmora:": "ctrl+alt+k", "Quit all:": "ctrl+alt+q",
             "Force quit all:": "ctrl+alt+f"}


class Road(DesktopCase):
    def open_popover(self):
        """By the icon, or where there is none by starting the program once more."""
        if self.desktop.tray:
            self.driver.open()
        else:
            # Too early, the second would be the first.
            self.desktop.accessible(self.driver.calmora)
            self.desktop.start(self.driver.program)
            self.driver.button("Quit All")

    def open_settings(self, tab):
        self.open_popover()
        self.driver.press("Settings")
        self.desktop.click_node(self.desktop.wait_for_node(self.driver.calmora, "page tab", tab))

    def close_settings(self):
        self.desktop.xdotool("key", "ctrl+w")
        self.desktop.wait_until(lambda: not self.driver.nodes("page tab"), "closed settings")

    def record_shortcuts(self):
        self.open_settings("Shortcuts")
        for name, keys in SHORTCUTS.items():
            self.desktop.click_node(self.desktop.wait_for_node(self.driver.calmora, "text", name))
            self.desktop.xdotool("key", keys)
        self.desktop.wait_until(
            lambda: len([key for key in self.preferences() if "KeyboardShortcuts" in key]) == 3,
            "three stored shortcuts")
        self.close_settings()

    def confirm(self):
        """Agrees to the question; an open popover may have a button of the same name before it."""
        self.driver.button("Cancel")
        self.desktop.click_node([node for node in self.driver.nodes("push button")
                                 if node["name"] == "Force Quit All"][-1])

    def force_quit_ticked(self):
        """A stopped program goes by force, the one without a tick stays."""
        spared = self.start_application("xterm")
        stopped = self.start_application("galculator")
        os.kill(stopped.pid, signal.SIGSTOP)
        self.open_popover()
        self.driver.wait_for_row("Galculator")
        self.desktop.click_node(self.desktop.wait_for_node(self.driver.calmora, "check box",
                                                           "XTerm"))
        for answer in ("cancel", "confirm"):
            self.driver.hold_option()
            self.driver.press("Force Quit All")
            self.driver.release_option()
            if answer == "cancel":
                self.driver.button("Cancel")
                self.desktop.xdotool("key", "Escape")
                self.desktop.wait_until(lambda: not self.driver.nodes("alert"), "closed question")
                self.assert_alive(spared, stopped)
        self.confirm()
        self.wait_for_exit(stopped)
        self.driver.wait_for_no_row("Galculator")
        self.assert_alive(spared)
        self.desktop.xdotool("key", "Escape")
        self.desktop.wait_until(lambda: not self.driver.is_open(), "closed popover")
        return spared

    def use_shortcuts(self, terminal):
        """Each of the three, the popover closed and open."""
        press = lambda name: self.desktop.xdotool("key", SHORTCUTS[name])  # noqa: E731
        press("Show/Hide Calmora:")
        self.driver.wait_for_row("XTerm")
        press("Show/Hide Calmora:")
        self.desktop.wait_until(lambda: not self.driver.is_open(), "closed popover")
        press("Quit all:")
        self.wait_for_exit(terminal)
        for opens in (False, True):
            stopped = self.start_application("galculator")
            os.kill(stopped.pid, signal.SIGSTOP)
            if opens:
                press("Show/Hide Calmora:")
                self.driver.wait_for_row("Galculator")
            press("Force quit all:")
            self.confirm()
            self.wait_for_exit(stopped)
        press("Show/Hide Calmora:")
        self.desktop.wait_until(lambda: not self.driver.is_open(), "closed popover")

    def walk(self, **desktop):
        self.open_desktop(**desktop).start("sh", "-c", "while :; do sleep 1; done")
        session = list(self.desktop.children)
        self.write_preferences({"autoQuitMinutes": 0})
        self.start_calmora()
        self.record_shortcuts()
        self.use_shortcuts(self.force_quit_ticked())
        self.driver.calmora.terminate()
        self.wait_for_exit(self.driver.calmora)
        self.assertEqual(self.driver.calmora.returncode, 0)
        self.start_calmora()
        self.use_shortcuts(self.force_quit_ticked())
        self.assert_alive(*session, self.driver.calmora)

    def test_xembed_tray_and_automatic_quitting(self):
        self.walk(window_manager="openbox", tray="trayer")
        self.open_settings("General")
        pane = self.desktop.wait_for_node(self.driver.calmora, "check box", "Open Calmora")
        self.desktop.xdotool("mousemove", pane["x"], pane["y"], "click", "--repeat", 30, 5)
        self.desktop.click_node(self.desktop.wait_for_node(self.driver.calmora, "check box",
                                                           "Auto-quit"))
        self.desktop.wait_until(lambda: self.preferences().get("autoQuitEnabled"), "the switch")
        self.close_settings()
        self.desktop.start("dbus-monitor", "interface='org.freedesktop.Notifications'")
        terminal = self.start_application("xterm")
        idle = self.start_application("galculator")
        self.wait_for_exit(idle, seconds=75)  # The check runs once a minute.
        self.desktop.wait_until(lambda: "GetCapabilities" in self.desktop.logs(), "a notice")
        self.assert_alive(terminal)

    def test_no_tray(self):
        self.walk(window_manager="openbox", tray=None)
        loaded = pathlib.Path(f"/proc/{self.driver.calmora.pid}/maps").read_text()
        self.assertIn("libQt6Core", loaded)
        self.assertNotIn("Network", loaded)  # Comes with the first look for updates.

    def test_panel_that_is_restarted(self):
        self.walk(window_manager="xfwm4", tray="lxqt-panel")
        self.desktop.panel.terminate()
        self.wait_for_exit(self.desktop.panel)
        self.desktop.start_tray()
        self.driver.open()


if __name__ == "__main__":
    unittest.main()
