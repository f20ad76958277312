"""Measures the whole program on a virtual desktop: memory, CPU time, wake-ups, latencies.

Usage: whole_program.py PROGRAM LATENCY_TOOL WINDOW_CLIENT [--seconds N]

The desktop holds 30 applications with icons among 230 processes. Every figure is printed with the
limit that it should keep. CPU figures are per minute, scaled from N seconds (60 unless told).
"""

import argparse
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


def report(name, value, unit, limit):
    """Prints one figure beside its limit."""
    verdict = "" if limit is None else f"   (at most {limit} {unit})"
    print(f"{name:58} {value:8.2f} {unit}{verdict}", flush=True)


def latencies(desktop, *command):
    """What the latency tool prints: milliseconds, one figure a round."""
    done = subprocess.run([str(part) for part in command], env=desktop.environment,
                          capture_output=True, text=True, check=True)
    return [float(value) for value in done.stdout.split()]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("latency_tool")
    parser.add_argument("window_client")
    parser.add_argument("--seconds", type=int, default=60)
    options = parser.parse_args()
    scale = 60 / options.seconds

    with VirtualDesktop(accessibility=False) as desktop:
        display = desktop.children[0].pid
        for number in range(APPLICATIONS):
            desktop.start(options.window_client, "--class", f"Client{number}", "--icon")
        while len(process_table()) < PROCESSES:
            desktop.start("sleep", "3600")

        # Where trayer puts the first icon.
        starts = latencies(desktop, options.latency_tool, "start", 1268, 12, 15, options.program)
        report("exec to status item, p50", statistics.median(starts), "ms", 60)

        driver = PopoverDriver(desktop, options.program)
        process = driver.calmora.pid
        icon = desktop.wait_until(driver.icon, "status icon")
        time.sleep(3)
        report("memory at rest before the first opening, VmRSS", status(process, "VmRSS") / 1024,
               "MiB", 30)

        before = cpu_seconds(process)
        woken = status(process, "voluntary_ctxt_switches")
        time.sleep(options.seconds)
        report("CPU per minute, closed, never opened",
               (cpu_seconds(process) - before) * scale * MILLISECONDS, "ms", 2)
        report("wake-ups per minute, closed, never opened",
               (status(process, "voluntary_ctxt_switches") - woken) * scale, "", 5)

        # The middle of the bar across the popover's top, below the icon: covered by its button.
        probe = (icon[0] - 100, icon[1] + 12 + 35)
        first, *warm = latencies(desktop, options.latency_tool, "click", *icon, *probe, 30)
        report("click to painted popover, first", first, "ms", 40)
        report("click to painted popover, warm, p50", statistics.median(warm), "ms", 8)
        report("click to painted popover, warm, p95",
               statistics.quantiles(warm, n=20)[-1], "ms", 16)

        driver.click_icon()
        time.sleep(4)
        before = cpu_seconds(process), cpu_seconds(display)
        time.sleep(options.seconds)
        own, server = cpu_seconds(process) - before[0], cpu_seconds(display) - before[1]
        report("CPU per minute, popover open, X server included",
               (own + server) * scale * MILLISECONDS, "ms", 75)
        report("  of that the program itself", own * scale * MILLISECONDS, "ms", None)
        driver.click_icon()
        time.sleep(2)
        report("memory after use with 30 icons, VmRSS", status(process, "VmRSS") / 1024, "MiB", 36)

        before = cpu_seconds(process)
        woken = status(process, "voluntary_ctxt_switches")
        time.sleep(options.seconds)
        report("CPU per minute, closed, after use",
               (cpu_seconds(process) - before) * scale * MILLISECONDS, "ms", 2)
        report("wake-ups per minute, closed, after use",
               (status(process, "voluntary_ctxt_switches") - woken) * scale, "", 5)


if __name__ == "__main__":
    main()
