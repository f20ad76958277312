# SPDX-License-Identifier: MIT
"""The command line, answered by the running instance."""

import json
import subprocess
import unittest

from desktop_case import PROGRAM, DesktopCase
from popover_driver import PopoverDriver
from virtual_desktop import TIMEOUT_SCALE

SHELL_SCHEMA = """<schemalist><schema id="org.gnome.shell" path="/org/gnome/shell/">
<key name="enabled-extensions" type="as"><default>[]</default></key></schema></schemalist>"""


class Commands(DesktopCase):
    def ask(self, *arguments):
        """The exit status and the output of a command."""
        done = subprocess.run([PROGRAM, *arguments], env=self.desktop.environment,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              timeout=30 * TIMEOUT_SCALE, check=False)
        return done.returncode, done.stdout

    def test_the_running_instance_answers(self):
        desktop = self.open_desktop()
        application = self.start_application("galculator")
        for option in ("--list", "--quit-all", "--force-quit-all", "--diagnose"):
            self.assertEqual(self.ask(option), (3, ""), f"{option} starts nothing")
        self.assertEqual(self.ask("--list", "--xml")[0], 2)

        driver = self.driver = PopoverDriver(desktop, PROGRAM, "sh", "-c", 'exec "$0" --toggle')
        driver.button("Quit All")
        status, output = self.ask("--list", "--json")
        listed = {row["pid"]: row for row in json.loads(output)}
        self.assertEqual((status, list(listed)), (0, [application.pid]))
        self.assertEqual(listed[application.pid]["name"], "Galculator")
        self.assertGreater(listed[application.pid]["memory"], 1)
        self.assertIn(f"process {desktop.children[0].pid}: not listed, protected",
                      self.ask("--diagnose", str(desktop.children[0].pid))[1])
        self.assertEqual(self.ask("--toggle")[0], 0)
        desktop.wait_until(lambda: not driver.is_open(), "closed popover")

        forcing = desktop.start(PROGRAM, "--force-quit-all")
        driver.button("Cancel")
        self.assertEqual(self.ask("--quit-all")[0], 1, "only one question at a time")
        desktop.xdotool("key", "Escape")
        self.wait_for_exit(forcing)
        self.assertEqual(forcing.returncode, 1)
        self.assert_alive(application)
        self.assertEqual(self.ask("--quit-all")[0], 0)
        self.wait_for_exit(application)
        self.assertEqual(self.ask("--quit-all")[0], 1, "nothing is left")
        driver.calmora.terminate()
        self.wait_for_exit(driver.calmora)
        self.assertEqual(driver.calmora.returncode, 0, "it ends as with its Quit command")

    def test_leaves_nothing_that_acts(self):
        desktop = self.open_desktop()
        schemas, config = desktop.folder / "schemas", desktop.folder / "config"
        schemas.mkdir()
        (schemas / "shell.gschema.xml").write_text(SHELL_SCHEMA)
        subprocess.run(["glib-compile-schemas", schemas], check=True)
        desktop.environment.update(GSETTINGS_BACKEND="keyfile", GSETTINGS_SCHEMA_DIR=str(schemas))
        settings = ["gsettings", "get", "org.gnome.shell", "enabled-extensions"]
        subprocess.run(["gsettings", "set", *settings[2:],
                        "['calmora-45@calmora.app', 'a@b', 'calmora@calmora.app']"],
                       env=desktop.environment, check=True)
        self.write_preferences({"sortByCPU": True})
        (config / "autostart").mkdir()
        entry = config / "autostart/app.calmora.Calmora.desktop"
        entry.write_text("[Desktop Entry]\nType=Application\nExec=calmora\n")

        calmora = self.start_calmora().calmora
        desktop.wait_until(self.driver.icon, "status icon")
        self.assertEqual(self.ask("--leave"), (0, ""))
        self.wait_for_exit(calmora)
        self.assertEqual(desktop.output(*settings), "['a@b']")
        self.assertFalse(entry.exists())
        self.assertTrue(self.preferences()["sortByCPU"])
        self.assertEqual(self.ask("--leave"), (0, ""), "without an instance, too")


if __name__ == "__main__":
    unittest.main()
