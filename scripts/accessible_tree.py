"""Prints, as JSON, what a screen reader sees of a program: role, name, description, states, place
on the screen, children.

Usage: accessible_tree.py PROCESS_ID
"""

import json
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

STATES = {
    "checked": Atspi.StateType.CHECKED,
    "enabled": Atspi.StateType.ENABLED,
    "focused": Atspi.StateType.FOCUSED,
    "showing": Atspi.StateType.SHOWING,
    "expanded": Atspi.StateType.EXPANDED,
}


def describe(node):
    """One node with its children; None for a node that vanished meanwhile."""
    try:
        states = node.get_state_set()
        place = node.get_extents(Atspi.CoordType.SCREEN)
        return {
            "role": node.get_role_name(),
            "name": node.get_name(),
            "description": node.get_description(),
            "states": [name for name, state in STATES.items() if states.contains(state)],
            "x": place.x, "y": place.y, "width": place.width, "height": place.height,
            "children": [child for child in (describe(node.get_child_at_index(i))
                                             for i in range(node.get_child_count())) if child],
        }
    except (GLib.Error, AttributeError):
        return None


def main():
    process = int(sys.argv[1])
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(i)
        if program is not None and program.get_process_id() == process:
            print(json.dumps(describe(program)))
            return
    sys.exit("the program is not known to the accessibility bus")


if __name__ == "__main__":
    main()
