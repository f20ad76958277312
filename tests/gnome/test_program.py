# SPDX-License-Identifier: MIT
"""Calmora with its extension in a real GNOME Shell on Wayland, among real applications."""

import json
import os
import pathlib
import time
import unittest

from shell_session import ShellSession
from virtual_desktop import TIMEOUT_SCALE

INSTALLED = pathlib.Path(os.environ["CALMORA_INSTALLED"])
PROGRAM = str(INSTALLED / "bin/calmora")
WINDOW_CLIENT = os.environ["CALMORA_WINDOW_CLIENT"]
# Evdev codes.
ESCAPE, CONTROL, A, ALT, K = 1, 29, 30, 56, 37


class Program(unittest.TestCase):
    def open_session(self, enabled=True):
        """A session with a calculator and Calmora, which opens its popover with Control+Alt+K."""
        self.session = self.enterContext(ShellSession(INSTALLED, enabled=enabled))
        self.addCleanup(lambda: self.assertIsNone(self.session.shell.poll(), "GNOME Shell has ended"))
        folder = self.session.folder / "config/calmora"
        folder.mkdir()
        (folder / "preferences.json").write_text(json.dumps({
            "KeyboardShortcuts_activateMenu": '{"carbonKeyCode":40,"carbonModifiers":6144}'}))
        self.calculator = self.start("galculator")
        self.calmora = self.session.start(PROGRAM)

    def start(self, *command):
        """An application, when its window is there."""
        child = self.session.start(*command)
        self.session.wait_until(lambda: self.session.windows_of(child.pid), f"window of {command}")
        return child

    def command(self, *arguments):
        return self.session.output(PROGRAM, *arguments)

    def wait_for_rows(self, *children):
        """Waits until the list has these applications and no others."""
        pids = sorted(str(child.pid) for child in children)
        self.session.wait_until(lambda: sorted(
            row.split("\t")[0] for row in self.command("--list").splitlines()) == pids, "the rows")

    def popover(self):
        """The popover's window; None while it is not shown."""
        return next((window for window in self.session.windows_of(self.calmora.pid)
                     if window["title"] == "Calmora"), None)

    def popover_is_open(self):
        """Whether it is below the icon and above all windows, and has the keyboard."""
        x, y, width, height = self.session.icon()
        place = [min(x + width // 2 - 180, 1024 - 360 - 8), y + height + 8, 360, 500]
        window = self.popover()
        return window and window["above"] and window["rect"] == place and str(self.calmora.pid) == \
            self.session.output("xdotool", "getwindowfocus", "getwindowpid")

    def wait_for_no_popover(self, after):
        self.session.wait_until(lambda: not self.popover(), f"the end of the popover by {after}")
        time.sleep(0.3)  # It does not open again at once.

    def test_quits_what_can_be_quit(self):
        self.open_session()
        saved = self.start("mousepad", "--disable-server", __file__)
        deaf = self.start(WINDOW_CLIENT, "--no-delete", "--ignore-term")
        unsaved = self.start("mousepad", "--disable-server")
        window, = self.session.windows_of(unsaved.pid)
        self.session.js("Main.activateWindow(global.get_window_actors().map(a => a.meta_window).find("
                        f"w => w.get_id() === {window['id']}), "
                        "global.display.get_current_time_roundtrip())")
        self.session.wait_until(lambda: self.session.windows_of(unsaved.pid)[0]["focus"], "focus")
        self.session.press_keys(A)
        self.session.wait_until(lambda: self.session.windows_of(unsaved.pid)[0]["title"][0] == "*",
                                "a change in the editor")
        self.wait_for_rows(self.calculator, saved, deaf, unsaved)

        def have_ended():
            self.command("--quit-all")
            return (self.calculator.poll(), saved.poll()) == (0, 0)

        # Nothing is asked for ten seconds after a call that a busy shell has left unanswered.
        self.session.wait_until(have_ended, "two ends", seconds=40)
        self.session.wait_until(lambda: len(self.session.windows_of(unsaved.pid)) == 2, "a question")
        question = self.session.windows_of(unsaved.pid)
        self.assertEqual(self.command("--quit-all"), "", "none ended, which is a failure")
        time.sleep(0.5 * TIMEOUT_SCALE)
        self.assertEqual(self.session.windows_of(unsaved.pid), question, "nor is it asked again")
        self.assertIsNone(deaf.poll(), "it can neither be asked nor is it killed")
        self.assertEqual(self.session.extension_faults(), [])

    def test_opens_and_closes_its_popover(self):
        self.open_session()
        self.wait_for_rows(self.calculator)
        calculator, = self.session.windows_of(self.calculator.pid)
        x, y, width, height = calculator["rect"]
        ways = {"its icon": self.session.click_icon,
                "Escape": lambda: self.session.press_keys(ESCAPE),
                "the desktop": lambda: self.session.click(30, 740),
                "the clock": lambda: self.session.click(512, 15),
                "a window": lambda: self.session.click(x + width // 4, y + height - 12)}
        self.session.js("Main.overview.show()")
        for way in [*ways] * 4:
            self.session.click_icon()
            self.session.wait_until(self.popover_is_open, f"the popover before {way} closes it")
            # It is not among the windows that the user switches between.
            self.assertEqual(self.session.js("""[Main.overview.visible,
                global.display.get_tab_list(0, null).map(w => w.get_id()),
                imports.gi.Shell.AppSystem.get_default().get_running().map(a => a.get_id())]"""),
                             [False, [calculator["id"]], ["galculator.desktop"]])
            ways[way]()
            self.wait_for_no_popover(way)
            if way == "the clock":
                self.session.press_keys(ESCAPE)
        self.session.press_keys(CONTROL, ALT, K)
        self.session.wait_until(self.popover, "the popover by its key")
        # As while the screen is locked: less is known, and then everything again.
        for enabled in False, True:
            self.session.enable_extension(enabled)
            self.session.wait_until(lambda: ("others may exist" in self.command("--diagnose"))
                                    is not enabled, "a list that says whether it is complete")
        self.wait_for_rows(self.calculator)
        self.assertEqual(self.session.extension_faults(), [])

    def test_offers_the_extension_once(self):
        self.open_session(enabled=False)
        self.wait_for_rows(self.calculator)
        self.assertEqual(self.command("--quit-all"), "", "it is not ticked")
        self.command("--toggle")
        x, y, width, height = self.session.wait_until(self.popover, "the popover")["rect"]
        time.sleep(2 * TIMEOUT_SCALE)  # The offer has appeared.
        self.assertIsNone(self.session.icon())
        self.session.click(x + width - 42, y + height - 48)
        self.session.wait_until(self.session.icon, "the icon")
        self.assertIsNone(self.calculator.poll())
        self.session.wait_until(lambda: "others may exist" not in self.command("--diagnose"),
                                "the whole list")


if __name__ == "__main__":
    unittest.main()
