# SPDX-License-Identifier: MIT
"""The popover on a real desktop: what it lists, what its buttons quit, when it stays open."""

import os
import signal
import unittest

from desktop_case import PROGRAM, DesktopCase


class Quitting(DesktopCase):
    def test_unsaved_text_is_asked_for_and_never_lost(self):
        self.open_desktop()
        editor = self.edited_document()
        driver = self.start_calmora()
        driver.open()
        driver.press("Quit Mousepad")
        dialogs = self.desktop.wait_until(
            lambda: len(found := self.desktop.windows_of(editor.pid)) == 2 and found,
            "a dialog that asks to save")
        driver.is_open()  # It answers once the quit has given up,
        self.give_time(0.5)  # and the dialog may then close it.
        if not driver.is_open():
            driver.click_icon()
        driver.press("Quit Mousepad")
        self.give_time(0.5)
        self.assert_alive(editor)
        self.assertEqual(self.desktop.windows_of(editor.pid), dialogs,
                         "the second request disturbed the dialog")


class Together(DesktopCase):
    def test_what_stays_says_why(self):
        desktop = self.open_desktop()
        self.write_preferences({"extra.quitsTogether": True})
        editor = self.edited_document()
        hanging = self.start_application("galculator")
        ending = self.start_application("xterm", "-class", "UXTerm")
        desktop.start("sh", "-c", "for i in 1 2; do xterm; done")
        driver = self.start_calmora()
        driver.open()
        driver.wait_for_row("XTerm")
        os.kill(hanging.pid, signal.SIGSTOP)
        driver.press("Quit All")
        driver.wait_for_row("Mousepad, Quitting…")
        self.wait_for_exit(ending)
        # The dialog has taken the focus; the popover stays for the result.
        desktop.wait_for_node(driver.calmora, "label", "1 quit, 3 left")
        self.assertEqual(driver.rows(), ["Galculator, Does not answer", "Mousepad, Asks to save",
                                         "XTerm, Came back by itself"])
        self.assert_alive(editor, hanging)
        os.kill(hanging.pid, signal.SIGCONT)
        driver.wait_for_no_row("Galculator")
        self.give_time(0.5)  # A press right after rows have moved does nothing.
        dialog = desktop.output("xdotool", "search", "--onlyvisible", "--name", "^Save Changes$")
        driver.press("Mousepad, Asks to save")
        desktop.wait_until(lambda: desktop.output("xdotool", "getactivewindow") == dialog,
                           "the question in front")
        self.assertFalse(driver.is_open())


class ForceMode(DesktopCase):
    def force_quit_row(self, window_manager):
        self.open_desktop(window_manager=window_manager)
        # Its kind is not asked for a sign of life by xfwm4, whose question would take the focus.
        stubborn = self.start_application("xterm")
        os.kill(stubborn.pid, signal.SIGSTOP)
        calculator = self.start_application("galculator")
        driver = self.start_calmora()
        driver.open()
        # Iconic: a window that took the keyboard would rightly close the popover.
        started = self.desktop.start("xterm", "-iconic", "-class", "UXTerm")
        driver.wait_for_row("UXTerm")
        self.assert_read_well(driver)
        os.kill(started.pid, signal.SIGTERM)
        driver.wait_for_no_row("UXTerm")
        elsewhere = driver.button("Quit Galculator")
        driver.press("Quit XTerm")
        # While the quit waits for its 1.5 s, clicks pile up; they must hit nothing afterwards.
        self.desktop.click_node(elsewhere)
        self.give_time(2)
        self.assert_alive(stubborn, calculator)
        self.assertTrue(driver.is_open())
        driver.hold_option()
        driver.press("Force Quit XTerm")
        driver.button("Cancel")
        self.assertTrue(all("modal" in node["states"] for node in driver.nodes("alert")))
        self.assertEqual(driver.nodes("alert")[0]["name"], "Do you want to force \"XTerm\" to quit?")
        driver.release_option()
        driver.desktop.click_node([button for button in driver.nodes("push button")
                                   if button["name"] == "Force Quit"][0])
        self.wait_for_exit(stubborn)
        driver.wait_for_no_row("XTerm")
        self.assertTrue(driver.is_open())

    def assert_read_well(self, driver):
        """The popover as a screen reader sees it, whose rows came in another order."""
        self.assertIn("modal", driver.nodes("dialog")[0]["states"])
        self.assertEqual(driver.nodes("list")[0]["name"], "Running apps")
        rows = driver.nodes("list item")
        self.assertEqual([row["name"].split(",")[0] for row in rows],
                         ["Galculator", "UXTerm", "XTerm"])
        self.assertRegex(rows[0]["name"], r"CPU \d+\.\d %$")
        self.assertIn("protect", rows[0]["actions"])

    def test_option_click_under_openbox(self):
        self.force_quit_row("openbox")

    def test_option_click_under_xfwm4(self):
        self.force_quit_row("xfwm4")


class Shortcuts(DesktopCase):
    SHOW = "ctrl+shift+k"  # Without Alt, at which a panel's menu would close.

    def start(self, **options):
        """Calmora with recorded shortcuts, behind a terminal that has the keyboard."""
        desktop = self.open_desktop(**options)
        # Virtual key codes, and Carbon's masks of Control with Shift or Option.
        self.write_preferences({f"KeyboardShortcuts_{name}":
                                f'{{"carbonKeyCode":{key},"carbonModifiers":{modifiers}}}'
                                for name, key, modifiers in
                                (("activateMenu", 40, 0x1200), ("quitAll", 12, 0x1800),
                                 ("forceQuitAll", 3, 0x1800))})
        terminal = self.start_application("xterm")
        driver = self.start_calmora()
        desktop.wait_until(driver.icon, "status icon")
        desktop.xdotool("windowfocus", "--sync", desktop.windows_of(terminal.pid)[0])
        return desktop, driver, terminal

    def open_settings(self, desktop, driver):
        """The settings window; gives its tab of the shortcuts."""
        if not driver.is_open():
            desktop.xdotool("key", self.SHOW)
        driver.press("Settings")
        desktop.wait_until(lambda: self.on_screen(desktop), "settings window")
        return desktop.wait_for_node(driver.calmora, "page tab", "Shortcuts")

    def on_screen(self, desktop, title="Calmora Settings"):
        return desktop.output("xdotool", "search", "--onlyvisible", "--name", title).split()

    def open_menu(self, desktop, driver):
        """The status item's menu, drawn by us or by the panel."""
        drawing = driver.calmora if desktop.tray == "trayer" else desktop.panel
        windows = len(desktop.windows_of(drawing.pid))
        driver.click_icon(3)
        desktop.wait_until(lambda: len(desktop.windows_of(drawing.pid)) > windows, "menu")

    def test_quitting_from_another_application(self):
        desktop, driver, terminal = self.start()
        stubborn = self.start_application("galculator")
        os.kill(stubborn.pid, signal.SIGSTOP)
        desktop.xdotool("key", "ctrl+alt+f")
        driver.button("Cancel")
        desktop.xdotool("key", self.SHOW)
        desktop.xdotool("key", "Escape")
        self.give_time(0.5)
        self.assertFalse(driver.is_open(), "a press from the time of the question acted later")
        self.assert_alive(terminal)
        # The quit waits for the stubborn one when the second press comes.
        desktop.xdotool("key", "ctrl+alt+q", self.SHOW)
        self.wait_for_exit(terminal)
        self.give_time(2)
        self.assertFalse(driver.is_open(), "a press from the time of the quit acted later")
        desktop.xdotool("key", self.SHOW)
        driver.wait_for_row("Galculator")

    def test_the_settings_window_answers_to_its_menu(self):
        desktop, driver, terminal = self.start()
        for key in ("super+m", "ctrl+m", "super+w", "Escape"):
            self.open_settings(desktop, driver)
            desktop.xdotool("key", key)
            desktop.wait_until(lambda: not self.on_screen(desktop), key)
        self.open_menu(desktop, driver)
        desktop.xdotool("key", "Down", "Return")
        about = desktop.wait_until(lambda: self.on_screen(desktop, "About Calmora"), "About")
        desktop.xdotool("windowfocus", "--sync", about[0], "key", "super+w")
        desktop.wait_until(lambda: not self.on_screen(desktop, "About Calmora"), "closed About")
        desktop.click_node(self.open_settings(desktop, driver))
        # Even what the window manager has; while it is recorded no shortcut acts.
        desktop.click_node(desktop.wait_for_node(driver.calmora, "text", "Show/Hide Calmora:"))
        desktop.xdotool("key", "alt+Tab")
        driver.press("Use Anyway")
        stored = '{"carbonKeyCode":48,"carbonModifiers":2048}'
        desktop.wait_until(lambda: self.preferences()["KeyboardShortcuts_activateMenu"] == stored,
                           "recorded shortcut")
        self.assert_alive(terminal)
        desktop.xdotool("key", "ctrl+q")
        self.wait_for_exit(driver.calmora)

    def test_showing_from_our_open_menu(self):
        self.show_from_menu()

    def test_showing_from_the_panels_open_menu(self):
        self.show_from_menu(window_manager="xfwm4", tray="lxqt-panel")

    def show_from_menu(self, **options):
        desktop, driver, _ = self.start(**options)
        self.open_menu(desktop, driver)
        desktop.xdotool("key", self.SHOW)
        driver.wait_for_row("XTerm")
        if desktop.tray != "trayer":
            # Ours would have made way; the panel's takes the next key.
            windows = len(desktop.windows_of(desktop.panel.pid))
            desktop.xdotool("key", "Escape")
            desktop.wait_until(lambda: len(desktop.windows_of(desktop.panel.pid)) < windows,
                               "closed menu of the panel")
        desktop.xdotool("key", "Escape")
        desktop.wait_until(lambda: not driver.is_open(), "closed popover")


class Surroundings(DesktopCase):
    def test_without_session_bus_or_window_manager(self):
        desktop = self.open_desktop(window_manager=None, accessibility=False)
        del desktop.environment["DBUS_SESSION_BUS_ADDRESS"]
        driver = self.start_calmora()
        desktop.wait_until(driver.icon, "status icon")
        closed = desktop.windows_of(driver.calmora.pid)
        driver.click_icon()
        desktop.wait_until(lambda: len(desktop.windows_of(driver.calmora.pid)) > len(closed),
                           "popover")
        second = desktop.start(driver.program)
        self.wait_for_exit(second)
        self.assertEqual(second.returncode, 0)
        self.assert_alive(driver.calmora)

    def test_follows_font_and_theme_of_the_desktop(self):
        desktop = self.open_desktop(accessibility=False)
        settings = desktop.folder / "xsettingsd"
        settings.write_text('Gtk/FontName "Sans 10"\nNet/ThemeName "Adwaita"\n')
        manager = desktop.start("xsettingsd", "-c", str(settings))
        desktop.start(PROGRAM, "--settings")

        def looks(width, is_dark):
            """Whether the settings window looks so on the screen."""
            window = desktop.output("xdotool", "search", "--onlyvisible", "--name",
                                    "Calmora Settings")
            seen = window and desktop.output("import", "-window", window, "-format",
                                             "%w %[fx:mean<0.5]", "info:")
            return seen == f"{width} {int(is_dark)}"
        desktop.wait_until(lambda: looks(450, False), "the usual look")
        settings.write_text('Gtk/FontName "Sans Bold 16"\nNet/ThemeName "Adwaita-dark"\n')
        manager.send_signal(signal.SIGHUP)
        desktop.wait_until(lambda: looks(720, True), "another look")

    def test_a_display_that_dies_ends_it_in_order(self):
        desktop = self.open_desktop()
        self.start_application("galculator")
        driver = self.start_calmora()
        driver.open()
        driver.protect("Galculator")
        desktop.children[0].kill()
        self.wait_for_exit(driver.calmora)
        self.assertGreater(driver.calmora.returncode, 0, "ended by a signal or as if all was well")
        self.assertEqual(self.preferences().get("neverQuitApps"), ["galculator"])


if __name__ == "__main__":
    unittest.main()
