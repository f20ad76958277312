# SPDX-License-Identifier: MIT
"""Prints, as JSON, what a screen reader sees of a program: role, name, label, description, states,
actions, place on the screen, children. The options of a closed picker, which are nowhere, are left out.

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
    "modal": Atspi.StateType.MODAL,
}

ANSWER_TIME = 3000  # In milliseconds; a program that waits for quits is silent for up to 2 s.

# at-spi2 2.54 has renamed a role; what reads the tree uses the names from before.
OLD_NAMES = {"button": "push button"}


def label_of(node):
    """The name of what labels a node; empty where nothing does."""
    for relation in node.get_relation_set():
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            return relation.get_target(0).get_name()
    return ""


def describe(node):
    """One node with its children; None for a node that vanished meanwhile."""
    try:
        states = node.get_state_set()
        place = node.get_extents(Atspi.CoordType.SCREEN)
        children = 0 if node.get_role() == Atspi.Role.COMBO_BOX else node.get_child_count()
        return {
            "role": OLD_NAMES.get(node.get_role_name(), node.get_role_name()),
            "name": node.get_name(),
            "label": label_of(node),
            "description": node.get_description(),
            "states": [name for name, state in STATES.items() if states.contains(state)],
            "actions": [node.get_action_name(i) for i in range(node.get_n_actions())]
                       if node.get_action_iface() else [],
            "x": place.x, "y": place.y, "width": place.width, "height": place.height,
            "children": [child for child in (describe(node.get_child_at_index(i))
                                             for i in range(children)) if child],
        }
    except (GLib.Error, AttributeError):
        return None


def main():
    process = int(sys.argv[1])
    # A call to a node that goes at that moment may stay without an answer; by default each waits 15 s.
    Atspi.set_timeout(ANSWER_TIME, ANSWER_TIME)
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(i)
        if program is not None and program.get_process_id() == process:
            tree = describe(program)
            if tree is None:
                sys.exit("the program does not answer")
            print(json.dumps(tree))
            return
    sys.exit("the program is not known to the accessibility bus")


if __name__ == "__main__":
    main()
