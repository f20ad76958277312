# SPDX-License-Identifier: MIT
"""A desktop of its own on a virtual display: X server, session bus, accessibility, window manager,
tray. Everything that it started, and every orphan of that, is ended when it closes; it touches no
other process. Used by ./run where there is no display and by the end-to-end tests.
"""

import ctypes
import json
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time

BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir={directory}</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
LXQT_PANEL = """[General]
panels=panel1
[panel1]
panelSize=32
plugins=statusnotifier
position=Top
width=100
width-percent=true
[statusnotifier]
alignment=Right
type=statusnotifier
"""
# The programs that run here, by what the names of their desktop entries begin with.
INSTALLED = ("debian-uxterm", "debian-xterm", "galculator", "local.qpdfview", "org.xfce.mousepad.",
             "qpdfview")
SYSTEM_SETTINGS = ("openbox", "xfce4")
PR_SET_CHILD_SUBREAPER = 36
ACCESSIBILITY_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"


# Every time limit is multiplied by this, which slow machines set.
TIMEOUT_SCALE = float(os.environ.get("CALMORA_TEST_TIMEOUT_SCALE", 1))


class Timeout(Exception):
    """A condition did not come true before its deadline."""


def wait_until(condition, what, seconds=15.0, interval=0.02):
    """The first true value of `condition()`; raises Timeout after `seconds`, scaled."""
    seconds *= TIMEOUT_SCALE
    deadline = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() >= deadline:
            raise Timeout(f"{what}: not within {seconds:g} s")
        time.sleep(interval)


class VirtualDesktop:
    """Use it in a `with` statement.

    window_manager: "openbox", "xfwm4" or None. tray: "trayer" (XEmbed), "lxqt-panel" (a host of
    StatusNotifierItems) or None. dark: what the desktop's settings portal answers when it is asked
    for the colour scheme; None runs no portal.
    """

    def __init__(self, window_manager="openbox", tray="trayer", accessibility=True, dark=None,
                 size="1280x800"):
        self.window_manager = window_manager
        self.tray = tray
        self.accessibility = accessibility
        self.dark = dark
        self.size = size
        self.children = []

    def __enter__(self):
        # Orphans of what runs here come back to this process, so that they can be ended.
        ctypes.CDLL(None, use_errno=True).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="calmora-desktop-"))
        try:
            self._open()
        except BaseException:
            self.__exit__()
            raise
        return self

    def _open(self):
        self.environment = {k: v for k, v in os.environ.items()
                            if k in ("USER", "LOGNAME", "ASAN_OPTIONS", "UBSAN_OPTIONS",
                                     "LSAN_OPTIONS")}
        self.environment.update(LANG="C.UTF-8", HOME=str(self.folder), XDG_SESSION_TYPE="x11",
                                PATH="/usr/local/bin:/usr/bin:/bin:/usr/games", SHELL="/bin/bash",
                                GSETTINGS_BACKEND="memory", NO_AT_BRIDGE="1",
                                QT_QPA_PLATFORM="xcb")
        for name in ("CONFIG", "DATA", "CACHE", "STATE"):
            place = self.folder / name.lower()
            place.mkdir()
            self.environment[f"XDG_{name}_HOME"] = str(place)
        self._install_system()
        runtime = self.folder / "runtime"
        runtime.mkdir(mode=0o700)
        self.environment["XDG_RUNTIME_DIR"] = str(runtime)
        self._start_display()
        self._start_bus()
        if self.accessibility:
            self._start_accessibility()
        if self.dark is not None:
            self._start_portal()
        if self.window_manager:
            self._start_window_manager()
        if self.tray:
            self.start_tray()

    def _install_system(self):
        """Fills the folders that stand for /usr/share and /etc/xdg, so that other desktops on the
        machine change nothing: without their applications, default applications, autostart and
        settings.
        """
        system = self.folder / "system"
        applications, config = system / "share/applications", system / "xdg"
        applications.mkdir(parents=True)
        config.mkdir()
        for entry in pathlib.Path("/usr/share").iterdir():
            if entry.name != "applications":
                (system / "share" / entry.name).symlink_to(entry)
        for entry in pathlib.Path("/usr/share/applications").iterdir():
            if entry.name.startswith(INSTALLED):
                (applications / entry.name).symlink_to(entry)
        for name in SYSTEM_SETTINGS:
            (config / name).symlink_to(pathlib.Path("/etc/xdg", name))
        self.environment.update(XDG_DATA_DIRS=str(system / "share"), XDG_CONFIG_DIRS=str(config))

    def _start_window_manager(self):
        """Managers lose windows that are mapped while they start, so only one that made it into
        the list is proof that it runs.
        """
        self.start(self.window_manager)

        def has_windows():
            return "0x" in self.output("xprop", "-root", "_NET_CLIENT_LIST")

        def manages():
            with subprocess.Popen("xev", env=self.environment, stdout=subprocess.DEVNULL) as probe:
                try:
                    return self.wait_until(has_windows, "managed window", 0.3)
                except Timeout:
                    return False
                finally:
                    probe.kill()
        self.wait_until(manages, self.window_manager)
        self.wait_until(lambda: not has_windows(), "the end of the first window")

    def start_tray(self):
        """Starts the tray, also one that was ended or that was not there."""
        self.tray = self.tray or "trayer"
        if self.tray == "trayer":
            self.panel = self.start("trayer", "--edge", "top", "--align", "right", "--widthtype",
                                    "request", "--height", "24", "--transparent", "true",
                                    "--alpha", "0", "--tint", "0xf0f0f0")
        else:
            folder = self.folder / "config" / "lxqt"
            folder.mkdir(exist_ok=True)
            (folder / "panel.conf").write_text(LXQT_PANEL)
            self.panel = self.start(self.tray)
        self.wait_until(lambda: self.output("xdotool", "search", "--class",
                                            f"^{self.tray}$"), "tray")

    def _start_display(self):
        reader, writer = os.pipe()
        self.start("Xvfb", "-displayfd", str(writer), "-screen", "0", f"{self.size}x24",
                   "-nolisten", "tcp", "-noreset", "-maxclients", "1024", pass_fds=(writer,))
        os.close(writer)
        with os.fdopen(reader) as number:
            self.display = ":" + number.readline().strip()
        self.environment["DISPLAY"] = self.display

    def _start_bus(self):
        configuration = self.folder / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION.format(directory=self.folder / "runtime"))
        reader, writer = os.pipe()
        self.start("dbus-daemon", f"--config-file={configuration}", "--nofork",
                   f"--print-address={writer}", pass_fds=(writer,))
        os.close(writer)
        with os.fdopen(reader) as address:
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = address.readline().strip()

    def _start_accessibility(self):
        # The launcher first, then the switch, then the programs; the other way round Qt is silent.
        self.start(ACCESSIBILITY_LAUNCHER, "--launch-immediately")
        switch = ["gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path",
                  "/org/a11y/bus", "--method", "org.freedesktop.DBus.Properties.Set",
                  "org.a11y.Status", "IsEnabled", "<true>"]
        self.wait_until(lambda: subprocess.run(switch, env=self.environment, capture_output=True,
                                               check=False).returncode == 0, "accessibility bus")
        self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"

    def _start_portal(self):
        script = pathlib.Path(__file__).with_name("settings_portal.py")
        portal = self.start("/usr/bin/python3", str(script), "1" if self.dark else "2",
                            stdout=subprocess.PIPE)
        portal.stdout.readline()

    def start(self, *command, **options):
        """Starts a program on this desktop; it is ended with the desktop."""
        environment = {**self.environment, **options.pop("environment", {})}
        log = open(self.folder / f"{len(self.children)}-{pathlib.Path(command[0]).name}.log", "wb")
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("stdout", log)
        options.setdefault("stderr", log)
        with log:
            child = subprocess.Popen(command, env=environment, cwd=self.folder, **options)
        self.children.append(child)
        return child

    def output(self, *command, seconds=15):
        """What a command prints on this desktop; empty when it fails."""
        try:
            done = subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL,
                                  capture_output=True, text=True, timeout=seconds * TIMEOUT_SCALE, check=False)
        except subprocess.TimeoutExpired:
            return ""
        return done.stdout.strip() if done.returncode == 0 else ""

    def wait_until(self, condition, what, seconds=15.0):
        """See wait_until() above."""
        return wait_until(condition, what, seconds)

    def windows_of(self, process):
        """The visible windows of a process, by id."""
        return self.output("xdotool", "search", "--onlyvisible", "--pid", str(process)).split()

    def wait_for_window(self, child, seconds=15.0):
        """Waits for the first visible window of a program."""
        return self.wait_until(lambda: self.windows_of(child.pid),
                               f"a window of {child.args[0]}", seconds)

    def xdotool(self, *arguments):
        """Real pointer movements, clicks and key presses."""
        self.output("xdotool", *[str(a) for a in arguments])

    def click(self, x, y, button=1):
        """Moves the pointer there and clicks."""
        self.xdotool("mousemove", x, y, "click", button)

    def accessible(self, child):
        """Every node that a screen reader sees of a program, the program itself first."""
        script = pathlib.Path(__file__).with_name("accessible_tree.py")
        # While a quit blocks the program it does not answer; that is no empty window.
        text = self.wait_until(
            lambda: self.output("/usr/bin/python3", str(script), str(child.pid)),
            f"{child.args[0]} on the accessibility bus")
        nodes, queue = [], [json.loads(text)]
        while queue:
            node = queue.pop(0)
            nodes.append(node)
            queue = node["children"] + queue
        return nodes

    def wait_for_node(self, child, role, name, seconds=15.0):
        """Waits for a node that is showing, has this role and whose name begins with `name`."""
        return self.wait_until(
            lambda: next((node for node in self.accessible(child)
                          if node["role"] == role and node["name"].startswith(name) and
                          "showing" in node["states"]), None), f"{role} “{name}”", seconds)

    def click_node(self, node, button=1):
        """Clicks the middle of a node with the real pointer."""
        self.click(node["x"] + node["width"] // 2, node["y"] + node["height"] // 2, button)

    def screenshot(self, path, crop=None):
        """Saves the screen, or the rectangle WIDTHxHEIGHT+X+Y of it, as a PNG."""
        cropping = ["-crop", crop, "+repage"] if crop else []
        self.output("import", "-window", "root", *cropping, str(path))

    def logs(self):
        """What the programs have written so far."""
        return "\n".join(f"== {log.name}\n{log.read_text(errors='replace')}"
                         for log in sorted(self.folder.glob("*.log")) if log.stat().st_size)

    def __exit__(self, *_):
        for signum in (signal.SIGTERM, signal.SIGKILL):
            self._end_descendants(signum, seconds=1.0)
        for child in self.children:
            child.wait()
            if child.stdout:
                child.stdout.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _end_descendants(self, signum, seconds):
        deadline = time.monotonic() + seconds
        asked = set()
        while True:
            self._reap()
            alive = descendants(os.getpid())
            if not alive or time.monotonic() >= deadline:
                return
            # The newest first: the display goes last, and programs do not complain about it.
            for process in sorted(alive - asked, reverse=True):
                try:
                    os.kill(process, signal.SIGCONT)
                    os.kill(process, signum)
                except ProcessLookupError:
                    pass
            asked |= alive
            time.sleep(0.02)

    def _reap(self):
        for child in self.children:
            child.poll()
        known = {child.pid for child in self.children}
        for process in children_of(os.getpid()) - known:
            try:
                os.waitpid(process, os.WNOHANG)
            except ChildProcessError:
                pass


def process_table():
    """Parent and state of every process."""
    table = {}
    for entry in os.listdir("/proc"):
        if entry.isdigit():
            try:
                stat = pathlib.Path("/proc", entry, "stat").read_bytes()
            except OSError:
                continue
            state, parent = stat[stat.rindex(b")") + 2:].split()[:2]
            table[int(entry)] = (int(parent), state.decode())
    return table


def children_of(process):
    """The direct children of a process."""
    return {pid for pid, (parent, _) in process_table().items() if parent == process}


def descendants(process):
    """The living processes below a process; ended ones that nobody has reaped do not count."""
    table = process_table()
    found, queue = set(), [process]
    while queue:
        current = queue.pop()
        for pid, (parent, state) in table.items():
            if parent == current and pid not in found:
                queue.append(pid)
                if state != "Z":
                    found.add(pid)
    return found
