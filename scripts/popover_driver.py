# SPDX-License-Identifier: MIT
"""Drives Calmora on a virtual desktop as a user does: real clicks and keys, and what a screen
reader sees.
"""

import time


class PopoverDriver:
    """One running Calmora on a desktop."""

    def __init__(self, desktop, program, *wrapper, **options):
        """Starts it, by a wrapper that turns into it where one is given."""
        self.desktop = desktop
        self.program = str(program)
        self.calmora = desktop.start(*wrapper, self.program, **options)

    def icon(self):
        """The middle of Calmora's icon in the tray; None while there is none."""
        if self.desktop.tray != "trayer":
            buttons = [node for node in self.desktop.accessible(self.desktop.panel)
                       if node["role"] == "push button" and node["width"] > 0]
            return next(((node["x"] + node["width"] // 2, node["y"] + node["height"] // 2)
                         for node in buttons), None)
        tray = self.desktop.output("xdotool", "search", "--class", "^trayer$").split()
        tree = self.desktop.output("xwininfo", "-id", tray[-1], "-tree") if tray else ""
        for line in tree.splitlines():
            # "0x… "calmora": ("calmora" "calmora")  24x24+0+0  +1256+0"
            fields = line.split()
            if "calmora" in line.lower() and fields[-1].count("+") == 2:
                width, height = fields[-2].split("+")[0].split("x")
                _, x, y = fields[-1].split("+")
                return int(x) + int(width) // 2, int(y) + int(height) // 2
        return None

    def settled_icon(self):
        """The icon's place once the tray has stopped moving it; a click before that is lost."""
        place = self.icon()
        time.sleep(0.15)
        return place if place and place == self.icon() else None

    def click_icon(self, button=1):
        """Clicks the icon, waiting for it first."""
        self.desktop.click(*self.desktop.wait_until(self.settled_icon, "status icon"), button)

    def open(self):
        """Opens the popover by a click on the icon and waits for its list."""
        self.click_icon()
        self.button("Quit All")

    def is_open(self):
        """Whether the popover is on the screen."""
        return any("Quit All" in node["name"] for node in self.nodes("push button"))

    def showing(self):
        """Everything that is showing."""
        return [node for node in self.desktop.accessible(self.calmora)
                if "showing" in node["states"]]

    def nodes(self, role):
        """Everything of one role that is showing."""
        return [node for node in self.showing() if node["role"] == role]

    def button(self, name, seconds=15.0):
        """Waits for the button whose name begins so."""
        return self.desktop.wait_for_node(self.calmora, "push button", name, seconds)

    def press(self, name):
        """Clicks the button whose name begins so, once it stays where it is: the window manager may
        be placing its window."""
        button = None
        while button != (button := self.button(name)):
            time.sleep(0.15)
        self.desktop.click_node(button)

    def rows(self):
        """What the rows of the list say, from top to bottom."""
        return [node["name"] for node in sorted(self.nodes("list item"), key=lambda row: row["y"])]

    def wait_for_row(self, name, seconds=15.0):
        """Waits until a row begins so."""
        return self.desktop.wait_for_node(self.calmora, "list item", name, seconds)

    def wait_for_no_row(self, name, seconds=15.0):
        """Waits until no row begins so."""
        self.desktop.wait_until(lambda: not any(row.startswith(name) for row in self.rows()),
                                f"no row “{name}”", seconds)

    def protect(self, name):
        """Puts a row's application on the never-quit list, by its context menu."""
        self.desktop.click_node(self.wait_for_row(name), button=3)
        # A screen reader is not told of a popup menu before a key moves in it.
        self.desktop.xdotool("key", "Down", "Return")
        self.desktop.wait_until(lambda: any(row.startswith(name) and "Protected" in row
                                            for row in self.rows()), f"protected row “{name}”")

    def hold_option(self):
        """Presses Option and keeps it down."""
        self.desktop.xdotool("keydown", "Alt_L")
        self.button("Force Quit All")

    def release_option(self):
        """Lets Option go."""
        self.desktop.xdotool("keyup", "Alt_L")
