# SPDX-License-Identifier: MIT
"""What the end-to-end tests share: a virtual desktop per test and the installed program on it."""

import json
import os
import pathlib
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

from popover_driver import PopoverDriver  # noqa: E402
from virtual_desktop import TIMEOUT_SCALE, VirtualDesktop  # noqa: E402

PROGRAM = os.environ["CALMORA_PROGRAM"]


class DesktopCase(unittest.TestCase):
    """Opens a desktop in each test; a failing test keeps the screen and the logs."""

    def open_desktop(self, **options):
        """The test's desktop, ended with the test."""
        self.desktop = VirtualDesktop(**options)
        self.desktop.__enter__()
        self.addCleanup(self.desktop.__exit__)
        self.addCleanup(self.keep_evidence)
        return self.desktop

    def start_calmora(self):
        """Calmora on the test's desktop."""
        self.driver = PopoverDriver(self.desktop, PROGRAM)
        return self.driver

    def start_application(self, *command):
        """Starts a program and waits for its window."""
        child = self.desktop.start(*command)
        self.desktop.wait_for_window(child)
        return child

    def edited_document(self):
        """An editor with unsaved text."""
        editor = self.start_application("mousepad")
        self.desktop.xdotool("search", "--sync", "--pid", editor.pid, "windowfocus", "--sync")
        self.desktop.xdotool("type", "unsaved")  # The title gets a star.
        self.desktop.wait_until(lambda: self.desktop.output(
            "xdotool", "search", "--onlyvisible", "--name", r"^\*"), "an edited document")
        return editor

    def preferences(self):
        """Calmora's preferences as they are on disk; empty while there are none."""
        file = self.desktop.folder / "config" / "calmora" / "preferences.json"
        return json.loads(file.read_text()) if file.exists() else {}

    def write_preferences(self, values):
        """Sets the preferences before Calmora starts."""
        folder = self.desktop.folder / "config" / "calmora"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "preferences.json").write_text(json.dumps(values))

    def assert_alive(self, *children):
        """Every one of these programs still runs."""
        for child in children:
            self.assertIsNone(child.poll(), f"{child.args[0]} has ended")

    def wait_for_exit(self, child, seconds=15.0):
        """Waits until a program has ended."""
        self.desktop.wait_until(lambda: child.poll() is not None, f"end of {child.args[0]}",
                                seconds)

    @staticmethod
    def give_time(seconds):
        """Lets what must not happen happen; the check that follows says that it did not."""
        time.sleep(seconds * TIMEOUT_SCALE)

    def run(self, result=None):
        self.result = result
        return super().run(result)

    def keep_evidence(self):
        """The screen and the logs of a test that failed."""
        if not any(test is self for test, _ in self.result.failures + self.result.errors):
            return
        picture = pathlib.Path(os.environ.get("CALMORA_FAILURES", "."), f"{self.id()}.png")
        picture.parent.mkdir(parents=True, exist_ok=True)
        self.desktop.screenshot(picture)
        print(f"{self.id()}: screen in {picture}\n{self.desktop.logs()}", file=sys.stderr)


__all__ = ["DesktopCase", "PROGRAM", "PopoverDriver"]
