# SPDX-License-Identifier: MIT
"""Shows Calmora on a virtual desktop with four real applications, driven by real clicks and keys.

Usage: tour.py PROGRAM FOLDER

Clicks the status icon, prints the list that the popover shows, quits one application through it,
saves screenshots to FOLDER and prints their paths. Exits 0 when all of that worked.
"""

import pathlib
import sys

from popover_driver import PopoverDriver
from virtual_desktop import TIMEOUT_SCALE, Timeout, VirtualDesktop

APPLICATIONS = {"xterm": "XTerm", "galculator": "Galculator", "mousepad": "Mousepad",
                "qpdfview": "qpdfview"}
VICTIM = "galculator"


def take_tour(program, folder, dark):
    """One tour in one colour scheme; prints as it goes."""
    scheme = "dark" if dark else "light"
    with VirtualDesktop(dark=dark) as desktop:
        try:
            running = {}
            for command in APPLICATIONS:
                running[command] = desktop.start(command)
            for child in running.values():
                desktop.wait_for_window(child)
            driver = PopoverDriver(desktop, program)
            driver.open()
            rows = desktop.wait_until(
                lambda: rows if len(rows := driver.rows()) >= len(APPLICATIONS) else None,
                "four applications in the popover")
            if not dark:
                print("The popover lists:")
                for row in rows:
                    print("   ", row)
            save(desktop, folder / f"popover-{scheme}.png")

            driver.hold_option()
            save(desktop, folder / f"force-{scheme}.png")
            driver.release_option()
            driver.button("Quit All")

            name = APPLICATIONS[VICTIM]
            driver.press(f"Quit {name}")
            running[VICTIM].wait(timeout=15 * TIMEOUT_SCALE)
            driver.wait_for_no_row(name)
            print(f"Quit {name} through the popover; its process is gone ({scheme}).")
            driver.calmora.terminate()
            driver.calmora.wait(timeout=15 * TIMEOUT_SCALE)
        except Timeout:
            save(desktop, folder / f"failed-{scheme}.png")
            print(desktop.logs(), file=sys.stderr)
            raise


def save(desktop, path):
    """Saves the screen and says where."""
    desktop.screenshot(path)
    print("Screenshot:", path)


def main():
    program, folder = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    for dark in (False, True):
        take_tour(str(program), folder, dark)


if __name__ == "__main__":
    try:
        main()
    except Timeout as missing:
        sys.exit(f"The tour failed: {missing}")
