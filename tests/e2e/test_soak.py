# SPDX-License-Identifier: MIT
"""The running program over many openings and refreshes, and among windows that come and go: it takes
no more memory and no more files, and it goes on answering.

A few in every run; with CALMORA_SOAK for minutes, on a quiet machine.
"""

import os
import pathlib
import re
import statistics
import time
import unittest

from gi.repository import Gio, GLib

from desktop_case import DesktopCase
from virtual_desktop import TIMEOUT_SCALE

LONG = "CALMORA_SOAK" in os.environ
OPENINGS = 2000 if LONG else 40
REFRESHES = 5  # For each opening.
MOST_GROWTH = 1024  # In KiB, of memory that is the program's own.
STORM_SECONDS = 60 if LONG else 5
STORM_RATE = 200  # Windows a second: each is made, renamed and destroyed.
LONGEST_ANSWER = (100 if LONG else 2000) * TIMEOUT_SCALE  # In milliseconds.


class Soak(DesktopCase):
    def begin(self):
        """Calmora on a desktop without a screen reader, and a connection to its bus."""
        desktop = self.open_desktop(accessibility=False)
        kind = Gio.DBusConnectionFlags
        self.bus = Gio.DBusConnection.new_for_address_sync(
            desktop.environment["DBUS_SESSION_BUS_ADDRESS"],
            kind.AUTHENTICATION_CLIENT | kind.MESSAGE_BUS_CONNECTION, None, None)
        self.start_calmora()
        desktop.wait_until(self.driver.settled_icon, "status icon")
        return desktop

    def ask(self, option):
        """Lets the program carry out an option, as a command line of it would."""
        answer = self.bus.call_sync(
            "app.calmora.Calmora", "/app/calmora/Calmora/Commands", "app.calmora.Calmora.Commands",
            "Run", GLib.Variant("(as)", ([option],)), None, 0, 10000, None)
        self.assertEqual(answer.unpack()[0], 0, option)

    def open_and_close(self):
        pid = self.driver.calmora.pid
        for windows in (2, 1):  # The icon is one.
            self.ask("--toggle")
            self.desktop.wait_until(lambda: len(self.desktop.windows_of(pid)) == windows,
                                    "toggled popover")
        for _ in range(REFRESHES):
            self.ask("--list")

    def size(self):
        """Memory in KiB and open files of the program."""
        folder = pathlib.Path(f"/proc/{self.driver.calmora.pid}")
        memory = int(re.search(r"RssAnon:\s+(\d+)", (folder / "status").read_text())[1])
        return memory, len(list((folder / "fd").iterdir()))

    def assert_size_kept(self, before, what):
        """No more memory than it may take, and the files of an xterm that still runs at most."""
        self.ask("--list")  # It lets go of what has ended.
        after = self.size()
        print(f"{what}: {before[0]} → {after[0]} KiB, {before[1]} → {after[1]} files")
        self.assertLessEqual(after[0] - before[0], MOST_GROWTH)
        self.assertLessEqual(after[1], before[1] + 2)

    def test_keeps_its_size(self):
        desktop = self.begin()
        for _ in range(10):  # What is loaded once, and caches.
            self.open_and_close()
        before = self.size()
        for number in range(OPENINGS):
            if number % 10 == 0:
                passing = desktop.start("xterm")
                desktop.wait_for_window(passing)
            elif number % 10 == 5:
                passing.terminate()
                passing.wait()
            self.open_and_close()
        self.assert_size_kept(before, f"{OPENINGS} openings, {REFRESHES * OPENINGS} refreshes")

    def test_answers_in_a_storm_of_windows(self):
        desktop = self.begin()
        for is_open in (False, True):
            if is_open:
                self.ask("--toggle")
            self.ask("--list")
            before, answers = self.size(), []
            storm = desktop.start(os.environ["CALMORA_WINDOW_CLIENT"], "--storm", str(STORM_RATE),
                                  "--long-lived")
            end = time.monotonic() + STORM_SECONDS
            while time.monotonic() < end:
                start = time.monotonic()
                self.ask("--list")
                answers.append((time.monotonic() - start) * 1000)
                time.sleep(0.05)
            self.assertIsNone(storm.poll(), "the storm has ended early")
            storm.terminate()
            self.wait_for_exit(storm)
            print(f"{len(answers)} answers: p50 {statistics.median(answers):.1f}, "
                  f"p95 {statistics.quantiles(answers, n=20)[-1]:.1f}, "
                  f"the longest after {max(answers):.1f} ms")
            self.assert_size_kept(before, f"a storm of {STORM_SECONDS} s, popover open: {is_open}")
            self.assertLess(max(answers), LONGEST_ANSWER)


if __name__ == "__main__":
    unittest.main()
