# SPDX-License-Identifier: MIT
"""The Debian package, unpacked into a root of its own: what it says, and the program in it."""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

from desktop_case import DesktopCase, PopoverDriver

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ["CALMORA_BUILD"])
APP_ID = "app.calmora.Calmora"


class Package(DesktopCase):
    @classmethod
    def setUpClass(cls):
        cls.deb = max((BUILD / "package").glob("*.deb"), key=lambda file: file.stat().st_mtime)
        folder = tempfile.TemporaryDirectory(prefix="calmora-package-")
        cls.addClassCleanup(folder.cleanup)
        cls.usr = pathlib.Path(folder.name) / "usr"
        subprocess.run(["dpkg-deb", "-x", cls.deb, folder.name], check=True)

    def test_tells_the_system_what_it_is(self):
        share = self.usr / "share"
        desktop = share / f"applications/{APP_ID}.desktop"
        metainfo = share / f"metainfo/{APP_ID}.metainfo.xml"
        subprocess.run(["desktop-file-validate", desktop], check=True)
        report = subprocess.run(["appstreamcli", "validate", "--no-net", metainfo], text=True,
                                capture_output=True, check=False).stdout
        self.assertIn("Validation", report)
        # Calmora has no home page to name; newer validators warn of that.
        self.assertEqual([line for line in re.findall("^[EW]: .*", report, re.MULTILINE)
                          if not line.endswith("url-homepage-missing")], [])
        tables = (ROOT / "resources/translations").glob("calmora_*.ts")
        languages = {file.stem.split("_", 1)[1] for file in tables} - {"en"}
        self.assertGreater(len(languages), 4)
        for key in ("GenericName", "Comment", "Keywords"):
            self.assertEqual(set(re.findall(rf"{key}\[(\w+)\]", desktop.read_text())), languages)
        for tag in ("summary", "p", "li"):
            found = set(re.findall(rf'<{tag} xml:lang="([\w-]+)"', metainfo.read_text()))
            self.assertEqual({tag.replace("-", "_") for tag in found}, languages)
        self.assertIn("<project_license>MIT<", metainfo.read_text())
        self.assertIn("License: MIT", (share / "doc/calmora/copyright").read_text())
        for extension in (share / "gnome-shell/extensions").iterdir():
            self.assertIn("'/usr/bin/calmora'", (extension / "program.js").read_text())

        control = subprocess.run(["dpkg-deb", "--field", self.deb], check=True, text=True,
                                 capture_output=True).stdout
        for field, packages in (("Depends", ("libqt6widgets6", "libqt6svg6", "qt6-svg-plugins",
                                             "qt6-wayland", "libqt6network6", "libxcb1",
                                             "libcanberra0", "libglib2.0-0")),
                                ("Recommends", ("libcanberra-pulse",))):
            line = re.search(rf"^{field}: (.*)$", control, re.MULTILINE)[1]
            # Debian 13 has some of them with "t64" at the end of the name.
            named = {name.removesuffix("t64") for name in re.split(r"[ ,]+", line)}
            self.assertEqual(set(packages) - named, set())

    def test_is_hardened(self):
        programs = [file for file in self.usr.rglob("*")
                    if file.is_file() and file.read_bytes()[:4] == b"\x7fELF"]
        self.assertEqual(len(programs), 6)
        marks = [r"Type:\s+DYN", r"GNU_RELRO", r"BIND_NOW|FLAGS_1.*NOW"]
        if "CMAKE_BUILD_TYPE:STRING=Debug" not in (BUILD / "CMakeCache.txt").read_text():
            marks += [r"__stack_chk_fail"]
        for file in programs:
            text = subprocess.run(["readelf", "-W", "-h", "-l", "-d", "-r", "--dyn-syms", file],
                                  text=True, capture_output=True, check=True).stdout
            # Qt knows its classes by address: a copy of one in the program makes it crash.
            self.assertNotRegex(text, r"R_X86_64_COPY.*@Qt_6", file)
            for mark in marks:
                self.assertRegex(text, mark, file)

    def test_runs_without_the_source_tree(self):
        files = [file for file in self.usr.rglob("*") if file.is_file()]
        for needed in ("bin/calmora", "lib/calmora/calmora_fetch",
                       "lib/calmora/calmora_sound.so", "lib/calmora/calmora_gsettings.so",
                       "lib/calmora/calmora_pulse.so", "lib/calmora/calmora_pipewire.so",
                       f"share/icons/hicolor/scalable/apps/{APP_ID}.svg",
                       f"share/icons/hicolor/48x48/apps/{APP_ID}.png"):
            self.assertIn(self.usr / needed, files)
        # What it cannot name it cannot reach: its environment and its folder are the desktop's.
        for file in files:
            for place in (ROOT, BUILD):
                self.assertFalse(str(place).encode() in file.read_bytes(), f"{file}: {place}")

        desktop = self.open_desktop()
        desktop.environment["LANG"] = "de_DE.UTF-8"
        mistyped = desktop.start(str(self.usr / "bin/calmora"), "--nonsense")
        self.wait_for_exit(mistyped)
        self.assertEqual(mistyped.returncode, 2)
        terminal = self.start_application("xterm")
        driver = self.driver = PopoverDriver(desktop, self.usr / "bin/calmora")
        driver.click_icon()
        driver.button("Alle beenden")
        driver.press("XTerm beenden")
        self.wait_for_exit(terminal)
        driver.press("Einstellungen")
        for tab, text in (("Tastenkürzel", "Tastenkürzel wirken"), ("Info", "Version ")):
            desktop.click_node(desktop.wait_for_node(driver.calmora, "page tab", tab))
            desktop.wait_for_node(driver.calmora, "label", text)
        opened = pathlib.Path(f"/proc/{driver.calmora.pid}/maps").read_text()
        self.assertIn(str(self.usr / "bin/calmora"), opened)
        self.assertNotIn(str(ROOT), opened)


if __name__ == "__main__":
    unittest.main()
