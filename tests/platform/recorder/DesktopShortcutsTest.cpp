// SPDX-License-Identifier: MIT
// What desktops have bound: the real Xfce, and GNOME's settings.
#include "fakes/FakeKeys.h"
#include "platform/desktop/shortcuts/ShortcutSources.h"
#include "platform/x11/X11Connection.h"
#include "support/VirtualDesktop.h"

#include <cstdlib>
#include <dlfcn.h>

namespace calmora {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

const SymbolicHotKey altF4{true, 118, 0x800};

TEST(DesktopShortcuts, AreThoseOfGnome) {
    VirtualDesktop desktop({.windowManager = ""});
    const X11Connection connection(desktop.display());
    const FakeKeyboardLayout layout;
    DesktopShortcuts shortcuts(layout,
                               {gnomeShortcuts([&] { return windowManagerName(connection); })});
    const auto settings = desktop.home() / "config/glib-2.0/settings";
    std::filesystem::create_directories(settings);
    std::ofstream(settings / "keyfile")
        << "[org/gnome/desktop/wm/keybindings]\nclose=['<Super>F4', '<Alt>Above_Tab']\n"
           "[org/custom0]\nname='<Super>F7'\nbinding='<Super>F6'\n";
    std::ofstream(desktop.home() / "x.gschema.xml") << R"(<schemalist>
        <schema id="org.gnome.settings-daemon.plugins.media-keys" path="/org/media-keys/">
          <key name="www" type="as"><default>['&lt;Super&gt;F5']</default></key>
          <key name="active" type="b"><default>true</default></key>
          <key name="custom-keybindings" type="as"><default>['/org/custom0/', 'x']</default></key>
        </schema>
        <schema id="org.gnome.settings-daemon.plugins.media-keys.custom-keybinding">
          <key name="name" type="s"><default>''</default></key>
          <key name="binding" type="s"><default>''</default></key>
        </schema></schemalist>)";
    ASSERT_EQ(desktop.run({"glib-compile-schemas", desktop.home()}), 0) << desktop.log();
    desktop.enter();
    ::setenv("GSETTINGS_SCHEMA_DIR", desktop.home().c_str(), 1);
    ::setenv("GSETTINGS_BACKEND", "keyfile", 1);
    const auto nameWindowManager = [&](const char* name) {
        const std::string check = "_NET_SUPPORTING_WM_CHECK";
        ASSERT_EQ(desktop.run({"xprop", "-root", "-f", check, "32x", "-set", check,
                               std::to_string(connection.root())}),
                  0);
        ASSERT_EQ(desktop.run(
                      {"xprop", "-root", "-f", "_NET_WM_NAME", "8u", "-set", "_NET_WM_NAME", name}),
                  0);
    };
    nameWindowManager("Mutter (Muffin)");
    EXPECT_THAT(shortcuts.copySymbolicHotKeys(), IsEmpty()) << "another desktop's";
    EXPECT_EQ(::dlopen("libgio-2.0.so.0", RTLD_NOW | RTLD_NOLOAD), nullptr)
        << "GIO costs memory only where it is needed";
    nameWindowManager("GNOME Shell");
    const auto all = shortcuts.copySymbolicHotKeys();
    for (const SymbolicHotKey& expected :
         {SymbolicHotKey{true, 118, 0x100}, SymbolicHotKey{true, 50, 0x800},
          SymbolicHotKey{true, 96, 0x100}, SymbolicHotKey{true, 97, 0x100},
          SymbolicHotKey{true, 48, 0x800}}) {
        EXPECT_THAT(all, Contains(expected));
    }
    EXPECT_THAT(all, Not(Contains(altF4))) << "the user has changed it";
    EXPECT_THAT(all, Not(Contains(SymbolicHotKey{true, 98, 0x100}))) << "a command's name";
}

TEST(DesktopShortcuts, AreThoseOfXfce) {
    VirtualDesktop desktop({.windowManager = "xfwm4"});
    const auto bus = QDBusConnection::connectToBus(desktop.variable("DBUS_SESSION_BUS_ADDRESS"),
                                                   "shortcuts-test");
    ASSERT_TRUE(bus.isConnected());
    const FakeKeyboardLayout layout;
    DesktopShortcuts shortcuts(layout, {xfceShortcuts(bus)});
    const auto change = [&](std::vector<std::string> call) {
        std::vector<std::string> command{"dbus-send", "--session", "--print-reply",
                                         "--dest=org.xfce.Xfconf", "/org/xfce/Xfconf"};
        call.at(0).insert(0, "org.xfce.Xfconf.");
        call.insert(call.begin() + 1, "string:xfce4-keyboard-shortcuts");
        command.insert(command.end(), call.begin(), call.end());
        ASSERT_EQ(desktop.run(command), 0) << desktop.log();
    };
    EXPECT_THAT(shortcuts.copySymbolicHotKeys(), Contains(altF4));
    change({"SetProperty", "string:/xfwm4/custom/<Primary>F4", "variant:string:close_window_key"});
    change({"SetProperty", "string:/xfwm4/custom/override", "variant:boolean:true"});
    change({"ResetProperty", "string:/xfwm4/custom/<Alt>F4", "boolean:false"});
    const auto all = shortcuts.copySymbolicHotKeys();
    EXPECT_THAT(all, Contains(SymbolicHotKey{true, 118, 0x1000}));
    EXPECT_THAT(all, Not(Contains(altF4))) << "the user has taken it off the list";
    QDBusConnection::disconnectFromBus("shortcuts-test");
}

} // namespace
} // namespace calmora
