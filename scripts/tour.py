"""Shows Calmora on a virtual desktop with four real applications, driven by real clicks and keys.

Usage: tour.py PROGRAM FOLDER

Clicks the status icon, prints the list that the popover shows, quits one application through it,
saves screenshots to FOLDER and prints their paths. Exits 0 when all of that worked.
"""

import pathlib
import sys

from virtual_desktop import Timeout, VirtualDesktop

APPLICATIONS = {"xterm": "XTerm", "galculator": "Galculator", "mousepad": "Mousepad",
                "qpdfview": "qpdfview"}
VICTIM = "galculator"


def open_popover(desktop, calmora):
    """Clicks the icon in the tray and waits for the popover's list."""
    icon = desktop.wait_until(lambda: tray_icon(desktop), "status icon", seconds=10)
    desktop.click(*icon)
    return desktop.wait_for_node(calmora, "push button", "Quit All")


def tray_icon(desktop):
    """The middle of the tray's first icon; None while there is none."""
    tray = desktop.output("xdotool", "search", "--class", "^trayer$").split()
    for line in desktop.output("xwininfo", "-id", tray[-1], "-tree").splitlines() if tray else []:
        fields = line.split()
        if "calmora" in line.lower() and fields and "+" in fields[-1]:
            width, height = fields[-2].split("+")[0].split("x")
            _, x, y = fields[-1].split("+")
            return int(x) + int(width) // 2, int(y) + int(height) // 2
    return None


def shown_rows(desktop, calmora):
    """What the rows of the popover say, from top to bottom."""
    return [node for node in desktop.accessible(calmora)
            if node["role"] == "list item" and "showing" in node["states"]]


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
            calmora = desktop.start(program)
            open_popover(desktop, calmora)
            rows = desktop.wait_until(
                lambda: rows if len(rows := shown_rows(desktop, calmora)) >= 4 else None,
                "four applications in the popover")
            if not dark:
                print("The popover lists:")
                for row in rows:
                    print("   ", row["name"])
            save(desktop, folder / f"popover-{scheme}.png")

            desktop.xdotool("keydown", "Alt_L")
            desktop.wait_for_node(calmora, "push button", "Force Quit All")
            save(desktop, folder / f"force-{scheme}.png")
            desktop.xdotool("keyup", "Alt_L")
            desktop.wait_for_node(calmora, "push button", "Quit All")

            name = APPLICATIONS[VICTIM]
            desktop.click_node(desktop.wait_for_node(calmora, "push button", f"Quit {name}"))
            running[VICTIM].wait(timeout=5)
            desktop.wait_until(lambda: not any(row["name"].startswith(name)
                                               for row in shown_rows(desktop, calmora)),
                               f"{name} gone from the list")
            print(f"Quit {name} through the popover; its process is gone ({scheme}).")
            calmora.terminate()
            calmora.wait(timeout=5)
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
