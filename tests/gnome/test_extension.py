# SPDX-License-Identifier: MIT
"""The extension in a real GNOME Shell, towards a client that stands for Calmora."""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import threading
import time
import unittest

from shell_session import MIDDLE, RIGHT, ShellSession
from virtual_desktop import TIMEOUT_SCALE

HERE = pathlib.Path(__file__).parent
INSTALLED = pathlib.Path(os.environ["CALMORA_INSTALLED"])
WINDOW_CLIENT = os.environ["CALMORA_WINDOW_CLIENT"]
NAME = "app.calmora.Calmora"
# Evdev codes.
ESCAPE, RETURN, CONTROL, ALT, K, L, F10, DOWN = 1, 28, 29, 56, 37, 38, 68, 108


class Client:
    """A process that calls the extension; `program` is its executable."""

    def __init__(self, session, program, name):
        self.session = session
        self.process = session.start(str(program), str(HERE / "shell_client.py"), name,
                                     stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                     environment={"GDK_BACKEND": "x11"})
        self.signals, self._replies = [], []
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            said = json.loads(line)
            if "signal" in said:
                self.signals.append(said["signal"])
            else:
                self._replies.append(said)

    def do(self, *command):
        """What the client got for a command; raises PermissionError for an error."""
        print(json.dumps(command), file=self.process.stdin, flush=True)
        self.session.wait_until(lambda: self._replies, f"a reply to {command}")
        said = self._replies.pop()
        if "error" in said:
            raise PermissionError(said["error"])
        return said["reply"]

    def call(self, method, signature="()", *arguments):
        """What a method of the extension gives."""
        return self.do("call", method, signature, arguments)

    def wait_for_signal(self, *wanted):
        """The next signal with this name and these first values; those before are forgotten."""
        def find():
            for at, signal in enumerate(self.signals):
                if signal[:len(wanted)] == list(wanted):
                    del self.signals[:at + 1]
                    return signal
            return None
        return self.session.wait_until(find, f"the signal {wanted}; there are {self.signals}")

    def end(self):
        """Kills it."""
        self.process.kill()
        self.process.wait()
        self.process.stdin.close()


class Extension(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # Installed like the real one, but what it trusts is a copy of Python.
        prefix = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.program = prefix / "bin/calmora"
        cls.program.parent.mkdir()
        shutil.copy(os.path.realpath(sys.executable), cls.program)
        shutil.copytree(INSTALLED / "share/gnome-shell", prefix / "share/gnome-shell")
        for file in prefix.rglob("program.js"):
            file.write_text(file.read_text().replace(str(INSTALLED), str(prefix)))
        cls.session = cls.enterClassContext(
            ShellSession(prefix, x11=os.environ.get("CALMORA_SESSION") == "x11"))

    def setUp(self):
        self.wait_for_extension()

    def tearDown(self):
        self.assertIsNone(self.session.shell.poll(), "GNOME Shell has ended")
        self.assertEqual(self.session.extension_faults(), [])

    def wait_for_extension(self):
        self.session.wait_until(lambda: self.session.owner(NAME + ".Shell"), "the extension")

    def client(self, program=None, name=NAME):
        """A running client, ended with the test."""
        client = Client(self.session, program or self.program, name)
        self.addCleanup(client.end)
        return client

    def attach(self, client):
        """Attaches it, and gives it a menu and a popover; the state that it got."""
        state, = client.call("Attach", "(a{sv})", {})
        client.call("SetMenu", "(a(usb))", [(1, "About", False), (0, "", True), (2, "Quit", True)])
        client.call("SetPopover", "(ts)", 0, "Calmora popover")
        return state

    def application(self, *command):
        """A program and its first window; it is ended with the test."""
        child = self.session.start(*command)
        self.addCleanup(child.wait)
        self.addCleanup(child.kill)
        return child, self.session.wait_until(
            lambda: next((w for w in self.session.windows_of(child.pid) if w["rect"][2]), None),
            command[0])

    def refused(self, client, method, *arguments):
        """The client may not call this."""
        with self.assertRaisesRegex(PermissionError, "Only Calmora"):
            client.call(method, *arguments)

    def test_serves_the_installed_program_alone(self):
        attach = ("Attach", "(a{sv})", {})
        impostor, nameless = self.client("/usr/bin/python3"), self.client(name=NAME + "s")
        self.refused(impostor, *attach)
        self.refused(nameless, *attach)

        first = self.client()
        self.attach(first)
        second = self.client()  # Takes the name over.
        self.refused(second, "Windows")
        self.attach(second)
        self.refused(first, "Windows")
        self.refused(nameless, "GrabKeys", "(as)", ["<Control><Alt>k"])
        self.application("galculator")
        second.wait_for_signal("WindowsChanged")
        self.assertEqual(first.signals + nameless.signals, [])

        # An upgrade replaces the executable of the running program.
        new = self.program.with_suffix(".new")
        shutil.copy(self.program, new)
        new.rename(self.program)
        self.attach(second)

    def test_holds_nothing_without_the_program(self):
        grab = ("GrabKeys", "(as)", ["<Control><Alt>k"])
        lock = "Main.sessionMode.{}Mode('unlock-dialog')"
        endings = [(lambda: client.end(), None),
                   (lambda: self.session.enable_extension(False), self.session.enable_extension),
                   (lambda: self.session.js(lock.format("push")),
                    lambda: self.session.js(lock.format("pop")))]
        for end, undo in endings:
            client = self.client()
            self.attach(client)
            self.assertNotEqual(client.call(*grab), [[0]])
            client.do("show", 300, 300)
            self.session.wait_until(lambda: self.session.windows_of(client.process.pid), "popover")
            end()
            self.session.wait_until(lambda: not self.session.icon(), "the end of the icon")
            self.assertNotEqual(self.session.js("""(d => (a => (d.ungrab_accelerator(a), a))(
                d.grab_accelerator('<Control><Alt>k', 0)))(global.display)"""), 0)
            # What is left behind would now fail or tell the client.
            client.signals.clear()
            self.application("galculator")
            self.session.click(512, 15)
            self.session.press_keys(ESCAPE)
            self.assertEqual(client.signals, [])
            if undo:
                self.assertIsNone(self.session.owner(NAME + ".Shell"))
                undo()
                self.wait_for_extension()
                self.attach(client)
                self.assertTrue(self.session.icon())

    def test_lists_what_the_shell_lists(self):
        client = self.client()
        self.attach(client)
        xterm, _ = self.application("xterm")
        calculator, window = self.application("galculator")
        dialog, _ = self.application(WINDOW_CLIENT, "--transient")
        self.session.wait_until(lambda: len(self.session.windows_of(dialog.pid)) == 2, "a dialog")
        state = self.attach(client)

        def facts(windows):
            return {(w["id"], w["pid"], w["x11"], w["type"], w.get("app")) for w in windows}
        shown = [{**w, "app": None if (w["app"] or "").startswith("window:") else w["app"]}
                 for w in self.session.windows()]
        self.assertEqual(facts(state["windows"]), facts(shown))
        of_process = {w["pid"]: w for w in state["windows"]}  # The last of each.
        self.assertIn(str(of_process[xterm.pid]["xid"]),
                      self.session.output("xdotool", "search", "--pid", str(xterm.pid)).split())
        self.assertNotIn("xid", of_process[calculator.pid])

        def fills_the_screen():
            full = [w["pid"] for w in client.call("Windows")[0] if w["full"]]
            return calculator.pid in full
        window_js = f"global.display.list_all_windows().find(w => w.get_pid() === {calculator.pid})"
        space = "global.workspace_manager.get_workspace_by_index(%d).activate(0)"
        for code, expected in [(window_js + ".make_fullscreen()", True), (space % 1, False),
                               (space % 0, True), (window_js + ".unmake_fullscreen()", False)]:
            self.session.js(code)
            self.session.wait_until(lambda: fills_the_screen() == expected, code)
        self.assertIn(of_process[dialog.pid]["parent"],
                      [w["id"] for w in self.session.windows_of(dialog.pid)])

        client.call("Raise", "(t)", window["id"])
        client.wait_for_signal("FocusChanged", window["id"])
        self.session.wait_until(lambda: client.call("Windows")[1] == window["id"], "the focus")
        for key, windows in [(F10, 2), (ESCAPE, 1)] * 2:  # A menu is no window of the list.
            self.session.press_keys(key)
            self.session.wait_until(
                lambda: len(self.session.windows_of(calculator.pid)) == windows, "a menu")
            time.sleep(0.1 * TIMEOUT_SCALE)
        calculator.kill()

        def told():
            return [windows for name, windows in client.signals if name == "WindowsChanged"]
        self.session.wait_until(
            lambda: told() and calculator.pid not in [w["pid"] for w in told()[-1]], "the new list")
        self.assertNotIn(True, [before == after for before, after in zip(told(), told()[1:])])

    def test_asks_wayland_windows_alone_to_close(self):
        client = self.client()
        self.attach(client)
        stubborn, x_window = self.application(WINDOW_CLIENT, "--no-delete")
        calculator, window = self.application("galculator")
        self.assertEqual(client.call("Close", "(at)", [x_window["id"], window["id"]]),
                         [[window["id"]]])
        self.session.wait_until(lambda: calculator.poll() is not None, "the calculator's end")
        self.assertIsNone(stubborn.poll())

    def test_shows_an_icon_with_a_menu(self):
        client = self.client()
        self.attach(client)
        self.session.click_icon()
        self.assertEqual(client.wait_for_signal("IconActivated", 1)[2], self.session.icon())
        self.session.click_icon(MIDDLE)
        client.wait_for_signal("IconActivated", 2)
        self.assertNotIn(["MenuOpened", True], client.signals)

        self.session.click_icon(RIGHT)
        client.wait_for_signal("MenuOpened", True)
        for key in (DOWN, DOWN, RETURN):
            self.session.press_keys(key)
        client.wait_for_signal("MenuActivated", 2)
        client.wait_for_signal("MenuOpened", False)

    def test_grabs_keys(self):
        client = self.client()
        self.attach(client)
        # The second is the overview's, the third has the X keycode of L.
        (k, taken, by_code), = client.call("GrabKeys", "(as)", [
            "<Control><Alt>k", "<Super>s", "<Control><Alt>0x2e"])
        self.assertEqual((taken, bool(k), bool(by_code)), (0, True, True))
        self.session.press_keys(CONTROL, ALT, K)
        client.wait_for_signal("KeyPressed", k)
        self.session.js("Main.overview.show()")
        self.session.press_keys(CONTROL, ALT, L)
        client.wait_for_signal("KeyPressed", by_code)
        self.session.hide_overview()
        (only,), = client.call("GrabKeys", "(as)", ["<Control><Alt>k"])
        self.session.press_keys(CONTROL, ALT, L)
        self.session.press_keys(CONTROL, ALT, K)
        client.wait_for_signal("KeyPressed")
        self.assertEqual(client.signals, [])
        self.assertTrue(only)


if __name__ == "__main__":
    unittest.main()
