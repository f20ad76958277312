# SPDX-License-Identifier: MIT
"""The running program over many openings and refreshes: it takes no more memory and no more files.

Forty openings in every run; CALMORA_SOAK_OPENINGS=2000 is what the figures are meant for.
"""

import os
import pathlib
import re
import subprocess
import unittest

from desktop_case import PROGRAM, DesktopCase

OPENINGS = int(os.environ.get("CALMORA_SOAK_OPENINGS", "40"))
REFRESHES = 5  # For each opening.
MOST_GROWTH = 1024  # In KiB, of memory that is the program's own.


class Soak(DesktopCase):
    def ask(self, option):
        subprocess.run([PROGRAM, option], env=self.desktop.environment, check=True,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)

    def open_and_close(self):
        for is_open in (True, False):
            self.ask("--toggle")
            self.desktop.wait_until(lambda: self.driver.is_open() == is_open, "toggled popover")
        for _ in range(REFRESHES):
            self.ask("--list")

    def size(self):
        """Memory in KiB and open files of the program."""
        folder = pathlib.Path(f"/proc/{self.driver.calmora.pid}")
        memory = int(re.search(r"RssAnon:\s+(\d+)", (folder / "status").read_text())[1])
        return memory, len(list((folder / "fd").iterdir()))

    def test_keeps_its_size(self):
        desktop = self.open_desktop()
        self.start_calmora()
        for _ in range(10):  # What is loaded once, and caches.
            self.open_and_close()
        memory, files = self.size()
        for number in range(OPENINGS):
            if number % 10 == 0:
                passing = desktop.start("xterm")
                desktop.wait_for_window(passing)
            elif number % 10 == 5:
                passing.terminate()
                passing.wait()
            self.open_and_close()
        later_memory, later_files = self.size()
        print(f"{OPENINGS} openings: {memory} → {later_memory} KiB, {files} → {later_files} files")
        self.assertLessEqual(later_memory - memory, MOST_GROWTH)
        self.assertLessEqual(later_files, files + 2, "those of an xterm that still runs")


if __name__ == "__main__":
    unittest.main()
