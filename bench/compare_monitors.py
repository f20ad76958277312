# SPDX-License-Identifier: MIT
"""Measures Calmora beside other programs that show processes, on one virtual desktop.

Usage: compare_monitors.py PROGRAM LATENCY_TOOL WINDOW_CLIENT [--seconds N]

Each of them shows 30 applications among 230 processes, looks every 3 s, and is measured alone for
N seconds (60 unless told): its CPU time scaled to a minute, that of the X server beside it, and
its VmRSS. One that is not installed is skipped with a line; the section [compare] of packages.txt
names their packages.
"""

import argparse
import os
import pathlib
import pty
import shutil
import threading
import time

from whole_program import (APPLICATIONS, MILLISECONDS, PROCESSES, Measured, cpu_seconds, latencies,
                           start_applications, status)
from virtual_desktop import VirtualDesktop, process_table

COLUMNS, LINES = 120, 40
# Each with what makes it look every 3 s: its arguments, or a line in its configuration.
IN_WINDOWS = {
    "lxtask": ("lxtask.conf", "[General]\nrefresh_interval=3\n"),
    "xfce4-taskmanager": ("xfce4/xfconf/xfce-perchannel-xml/xfce4-taskmanager.xml",
                          '<?xml version="1.0"?>\n<channel name="xfce4-taskmanager" version="1.0">'
                          '<property name="refresh-rate" type="uint" value="3000"/></channel>\n'),
    "gnome-system-monitor": ("glib-2.0/settings/keyfile",
                             "[org/gnome/gnome-system-monitor]\nupdate-interval=3000\n"
                             "current-tab='processes'\n"),
}
IN_TERMINALS = {"htop": ["--delay=30"], "top": ["-d", "3"]}


def report(name, seconds, process, own, server):
    """One row of the table."""
    scale = 60 / seconds * MILLISECONDS
    print(f"{name:22} {own * scale:8.0f} ms {server * scale:8.0f} ms "
          f"{status(process, 'VmRSS') / 1024:8.1f} MiB", flush=True)


def measure(name, seconds, process, display):
    """Measures a program that has settled."""
    before = cpu_seconds(process), cpu_seconds(display)
    time.sleep(seconds)
    report(name, seconds, process, cpu_seconds(process) - before[0],
           cpu_seconds(display) - before[1])


def write(desktop, file, text):
    """A file of the configuration folder."""
    path = desktop.folder / "config" / file
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text)


def drain(terminal):
    """Reads what is drawn in a terminal, as a terminal does, until its program ends."""
    try:
        while os.read(terminal, 65536):
            pass
    except OSError:
        pass


def in_terminal(desktop, name, arguments):
    """Starts a program in a terminal of its own."""
    master, slave = pty.openpty()
    os.set_blocking(master, True)
    child = desktop.start("/bin/sh", "-c", f"stty cols {COLUMNS} rows {LINES} <&0; exec \"$@\"",
                          "sh", name, *arguments, stdin=slave, stdout=slave, stderr=slave,
                          environment={"TERM": "xterm-256color"}, start_new_session=True)
    os.close(slave)
    threading.Thread(target=drain, args=(master,), daemon=True).start()
    return child


def main():
    parser = argparse.ArgumentParser()
    # The programs start in the desktop's folder.
    for program in ("program", "latency_tool", "window_client"):
        parser.add_argument(program, type=os.path.abspath)
    parser.add_argument("--seconds", type=int, default=60)
    options = parser.parse_args()

    with VirtualDesktop(accessibility=False) as desktop:
        display = desktop.children[0].pid
        desktop.environment["GSETTINGS_BACKEND"] = "keyfile"
        start_applications(desktop, options.window_client, APPLICATIONS)
        while len(process_table()) < PROCESSES:
            desktop.start("sleep", "3600")

        # It keeps the settings of the Xfce program; the desktop's bus starts nothing by itself.
        for daemon in pathlib.Path("/usr/lib").glob("*/xfce4/xfconf/xfconfd"):
            file, text = IN_WINDOWS["xfce4-taskmanager"]
            write(desktop, file, text)
            desktop.start(daemon)

        print(f"{'':22} {'own CPU':>11} {'X server':>11} {'VmRSS':>12}")
        calmora = Measured(desktop, options.program, {})
        latencies(desktop, options.latency_tool, "click", *calmora.icon, *calmora.probe, 1)
        calmora.driver.click_icon()
        time.sleep(4)
        measure("Calmora, popover open", options.seconds, calmora.process, display)
        calmora.driver.click_icon()
        time.sleep(2)
        measure("Calmora, closed", options.seconds, calmora.process, display)
        calmora.end()

        for name in (*IN_WINDOWS, *IN_TERMINALS):
            if not shutil.which(name):
                print(f"{name:22} not installed, skipped")
                continue
            if name in IN_WINDOWS:
                write(desktop, *IN_WINDOWS[name])
                child = desktop.start(name)
                desktop.wait_for_window(child)
            else:
                child = in_terminal(desktop, name, IN_TERMINALS[name])
            time.sleep(5)
            measure(name, options.seconds, child.pid, display)
            child.terminate()
            child.wait()
            time.sleep(1)


if __name__ == "__main__":
    main()
