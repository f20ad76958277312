# SPDX-License-Identifier: MIT
"""Measures the whole program on a virtual desktop: memory, CPU time, wake-ups, latencies.

Usage: whole_program.py PROGRAM LATENCY_TOOL WINDOW_CLIENT [--seconds N]

The desktop holds 30 applications with icons among 230 processes. Every figure is printed with the
limit that it should keep. CPU figures are per minute, scaled from N seconds (60 unless told); with
auto-quit they are always taken over a whole minute, which holds one of its checks.
"""

import argparse
import json
import os
import pathlib
import statistics
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "scripts"))

from popover_driver import PopoverDriver  # noqa: E402
from virtual_desktop import VirtualDesktop, process_table  # noqa: E402

APPLICATIONS, PROCESSES = 30, 230
MILLISECONDS = 1000


def cpu_seconds(*processes):
    """CPU time of processes, from their CPU clocks (clock_getcpuclockid(3))."""
    return sum(time.clock_gettime((~process << 3) | 2) for process in processes)


def status(process, field):
    """A number from /proc/PID/status."""
    for line in pathlib.Path(f"/proc/{process}/status").read_text().splitlines():
        if line.startswith(field + ":"):
            return int(line.split()[1])
    return 0


def waits(process):
    """How often the threads of a process have waited for something."""
    return {thread.name: status(f"{process}/task/{thread.name}", "voluntary_ctxt_switches")
            for thread in pathlib.Path(f"/proc/{process}/task").iterdir()}


def count_wakeups(process, seconds):
    """How often something woke a process in so many seconds. What it does then may wait for
    answers several times: all within 0.2 s counts once.
    """
    count, before, last = 0, waits(process), 0
    end = time.monotonic() + seconds
    while (now := time.monotonic()) < end:
        time.sleep(0.05)
        after = waits(process)
        if after != before:
            count += now - last > 0.2
            last = now
        before = after
    return count


def report(name, value, unit, limit):
    """Prints one figure beside its limit."""
    verdict = "" if limit is None else f"   (at most {limit} {unit})"
    print(f"{name:58} {value:8.2f} {unit}{verdict}", flush=True)


def latencies(desktop, *command):
    """What the latency tool prints: milliseconds, one figure a round."""
    done = subprocess.run([str(part) for part in command], env=desktop.environment,
                          capture_output=True, text=True, check=True)
    return [float(value) for value in done.stdout.split()]


def start_applications(desktop, client, count):
    """Applications with icons of their own that stay for as long as anything is measured."""
    for number in range(count):
        desktop.start(client, "--class", f"Client{number}", "--icon", "64", "--long-lived")


def report_closed(process, state, seconds, cpu_limit, wakeup_limit):
    """CPU time and wake-ups while nothing of the program is on screen but its icon."""
    before = cpu_seconds(process)
    woken = count_wakeups(process, seconds)
    report(f"CPU per minute, closed, {state}",
           (cpu_seconds(process) - before) * 60 / seconds * MILLISECONDS, "ms", cpu_limit)
    report(f"wake-ups per minute, closed, {state}", woken * 60 / seconds, "", wakeup_limit)


class Measured:
    """One run of Calmora on the desktop, at rest."""

    def __init__(self, desktop, program, preferences):
        folder = desktop.folder / "config" / "calmora"
        folder.mkdir(exist_ok=True)
        (folder / "preferences.json").write_text(json.dumps(preferences))
        self.desktop = desktop
        self.driver = PopoverDriver(desktop, program)
        self.process = self.driver.calmora.pid
        self.icon = desktop.wait_until(self.driver.settled_icon, "status icon")
        # The middle of the bar across the popover's top, below the icon: covered by its button.
        self.probe = (self.icon[0] - 100, self.icon[1] + 12 + 35)
        # The last look at what the tray has painted around the icon comes 5 s after it was shown.
        time.sleep(6)

    def memory(self):
        """VmRSS in MiB."""
        return status(self.process, "VmRSS") / 1024

    def end(self):
        """Ends it in order."""
        self.driver.calmora.terminate()
        self.driver.calmora.wait()


def measure_popover(desktop, options, display):
    """The popover, and the program before and after its use."""
    scale = 60 / options.seconds
    run = Measured(desktop, options.program, {})
    report("memory at rest before the first opening, VmRSS", run.memory(), "MiB", 30)
    report_closed(run.process, "never opened", options.seconds, 2, 5)
    first, *warm = latencies(desktop, options.latency_tool, "click", *run.icon, *run.probe, 30)
    report("click to painted popover, first", first, "ms", 40)
    report("click to painted popover, warm, p50", statistics.median(warm), "ms", 8)
    report("click to painted popover, warm, p95", statistics.quantiles(warm, n=20)[-1], "ms", 16)

    run.driver.click_icon()
    time.sleep(4)
    before = cpu_seconds(run.process), cpu_seconds(display)
    time.sleep(options.seconds)
    own, server = cpu_seconds(run.process) - before[0], cpu_seconds(display) - before[1]
    report("CPU per minute, popover open, X server included",
           (own + server) * scale * MILLISECONDS, "ms", 75)
    report("  of that the program itself", own * scale * MILLISECONDS, "ms", None)
    run.driver.click_icon()
    time.sleep(2)
    report("memory after use with 30 icons, VmRSS", run.memory(), "MiB", 36)
    report_closed(run.process, "after use", options.seconds, 2, 5)
    run.end()


def measure_shortcut_and_auto_quit(desktop, options):
    """The global shortcut, and what watching for idle applications costs."""
    # Control+Option+K: the virtual key code with Carbon's masks, and X's key codes.
    run = Measured(desktop, options.program,
                   {"autoQuitEnabled": True, "autoQuitMinutes": 60,
                    "KeyboardShortcuts_activateMenu": '{"carbonKeyCode":40,"carbonModifiers":6144}'})
    report_closed(run.process, "with auto-quit", 60, 6, None)
    _, *presses = latencies(desktop, options.latency_tool, "key", "37,64,45", *run.probe, 30)
    report("press of the shortcut to painted popover, p50", statistics.median(presses), "ms", 20)
    run.end()


def measure_settings(desktop, options):
    """The settings window, on a desktop whose few windows stay: there it opens where another run
    did, and the popover has applications to list before.
    """
    start_applications(desktop, options.window_client, 3)
    time.sleep(1)
    scout = Measured(desktop, options.program, {})
    # The gear stands in the corner of the popover, whose right edge is the screen's.
    gear = 1280 - 24, scout.icon[1] + 12 + 483
    desktop.click(*scout.icon)
    time.sleep(1)
    desktop.click(*gear)
    time.sleep(2)
    places = [{name: int(value) for name, value in (line.split("=") for line in desktop.output(
        "xdotool", "getwindowgeometry", "--shell", window).split())}
        for window in desktop.windows_of(scout.process)]
    window = max(places, key=lambda place: place["HEIGHT"])
    probe = window["X"] + 12, window["Y"] + window["HEIGHT"] // 2
    scout.end()

    run = Measured(desktop, options.program, {})
    latencies(desktop, options.latency_tool, "click", *run.icon, *run.probe, 3)
    time.sleep(1)
    before = run.memory()
    openings = latencies(desktop, options.latency_tool, "settings", *run.icon, *gear, *probe, 10)
    time.sleep(2)
    report("gear to painted settings window, first", openings[0], "ms", 80)
    report("gear to painted settings window, p50", statistics.median(openings[1:]), "ms", 80)
    report("memory kept after ten openings of it, VmRSS", run.memory() - before, "MiB", 3)
    run.end()


def main():
    parser = argparse.ArgumentParser()
    # The programs start in the desktop's folder.
    for program in ("program", "latency_tool", "window_client"):
        parser.add_argument(program, type=os.path.abspath)
    parser.add_argument("--seconds", type=int, default=60)
    options = parser.parse_args()

    with VirtualDesktop(accessibility=False) as desktop:
        display = desktop.children[0].pid
        start_applications(desktop, options.window_client, APPLICATIONS)
        while len(process_table()) < PROCESSES:
            desktop.start("sleep", "3600")

        # Where trayer puts the first icon.
        starts = latencies(desktop, options.latency_tool, "start", 1268, 12, 15, options.program)
        report("exec to status item, p50", statistics.median(starts), "ms", 60)
        measure_popover(desktop, options, display)
        measure_shortcut_and_auto_quit(desktop, options)
    with VirtualDesktop(accessibility=False) as desktop:
        measure_settings(desktop, options)


if __name__ == "__main__":
    main()
