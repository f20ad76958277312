# SPDX-License-Identifier: MIT
"""Calmora with its extension in a real GNOME Shell on Wayland, among real applications."""

import json
import os
import pathlib
import time
import unittest

from shell_session import LEFT, ShellSession
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
        self.session.press_keys(ALT)  # The shell now shows that it is controlled, which moves the icon.

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

    def icon(self):
        return self.session.js("""(b => b ? [...b.get_transformed_position(), b.width, b.height]
            .map(Math.round) : null)(Main.panel.statusArea.calmora)""")

    def click_icon(self):
        x, y, width, height = self.session.wait_until(self.icon, "the icon")
        self.click(x + width // 2, y + height // 2)

    def click(self, x, y):
        """A click as slow as a hand's: the pointer has to arrive first."""
        self.session.move(x, y)
        time.sleep(0.2)
        self.session.click(x, y, LEFT)

    def popover(self):
        """The popover's window; None while it is not shown."""
        return next((window for window in self.session.windows_of(self.calmora.pid)
                     if window["title"] == "Calmora"), None)

    def open_popover(self):
        """Opens it by its icon, below which it is; its window."""
        self.click_icon()
        popover = self.session.wait_until(
            lambda: (w := self.popover()) and w["focus"] and w["above"] and w, "the popover")
        x, y, width, height = self.icon()
        self.assertEqual(popover["rect"], [min(x + width // 2 - 180, 1024 - 360 - 8),
                                           y + height + 8, 360, 500])
        return popover

    def wait_for_no_popover(self, after):
        self.session.wait_until(lambda: not self.popover(), f"the end of the popover by {after}")
        time.sleep(0.3)  # It does not open again at once.

    def test_quits_what_can_be_quit(self):
        self.open_session()
        saved = self.start("mousepad", "--disable-server", __file__)
        deaf = self.start(WINDOW_CLIENT, "--no-delete", "--ignore-term")
        unsaved = self.start("mousepad", "--disable-server")
        window, = self.session.windows_of(unsaved.pid)
        self.session.js("global.get_window_actors().map(a => a.meta_window).find("
                        f"w => w.get_id() === {window['id']}).activate(0)")
        self.session.press_keys(A)
        self.session.wait_until(lambda: self.session.windows_of(unsaved.pid)[0]["title"][0] == "*",
                                "a change in the editor")
        self.wait_for_rows(self.calculator, saved, deaf, unsaved)
        self.assertEqual(self.command("--quit-all"), "2 of 4 ticked applications ended.")
        self.assertEqual((self.calculator.poll(), saved.poll()), (0, 0))
        question = self.session.windows_of(unsaved.pid)
        self.assertEqual(len(question), 2, "the editor asks")
        self.assertEqual(self.command("--quit-all"), "", "none ended, which is a failure")
        time.sleep(0.5 * TIMEOUT_SCALE)
        self.assertEqual(self.session.windows_of(unsaved.pid), question, "nor is it asked again")
        self.assertIsNone(deaf.poll(), "it can neither be asked nor is it killed")
        self.assertEqual(self.session.extension_faults(), [])

    def test_opens_and_closes_its_popover(self):
        self.open_session()
        self.wait_for_rows(self.calculator)
        x, y, width, height = self.session.windows_of(self.calculator.pid)[0]["rect"]
        for outside, place in (("the desktop", (30, 740)), ("the clock", (512, 15)),
                               ("a window", (x + width // 4, y + height - 12))):
            self.open_popover()
            self.click(*place)
            self.wait_for_no_popover(outside)
            if outside == "the clock":
                self.session.press_keys(ESCAPE)
        self.open_popover()
        self.session.press_keys(ESCAPE)
        self.wait_for_no_popover("Escape")
        self.open_popover()
        self.click_icon()
        self.wait_for_no_popover("its icon")
        self.session.press_keys(CONTROL, ALT, K)
        self.session.wait_until(self.popover, "the popover by its key")
        # As while the screen is locked: nothing more is known, and then everything again.
        self.session.enable_extension(False)
        self.wait_for_rows()
        self.session.enable_extension()
        self.wait_for_rows(self.calculator)
        self.assertEqual(self.session.extension_faults(), [])

    def test_offers_the_extension_once(self):
        self.open_session(enabled=False)
        self.session.wait_until(lambda: "windows" in self.command("--diagnose"), "an answer")
        self.command("--toggle")
        x, y, width, height = self.session.wait_until(self.popover, "the popover")["rect"]
        time.sleep(0.5 * TIMEOUT_SCALE)  # The offer has appeared.
        self.assertIsNone(self.icon())
        self.click(x + width - 42, y + height - 48)
        self.session.wait_until(self.icon, "the icon")
        self.wait_for_rows(self.calculator)


if __name__ == "__main__":
    unittest.main()
