// What openbox and Xfce have bound, asked of the real ones.
#include "fakes/FakeKeyboardLayout.h"
#include "platform/linux/desktop_shortcuts/XfceShortcuts.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/VirtualDesktop.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace calmora {
namespace {

using testing::Contains;
using testing::Each;
using testing::Field;
using testing::IsEmpty;
using testing::Not;
using testing::Optional;

const SymbolicHotKey altF4{true, 118, 0x800};

TEST(DesktopShortcuts, AreThoseOfTheRunningOpenbox) {
    VirtualDesktopOptions options;
    options.windowManager.clear();
    VirtualDesktop desktop(options);
    const X11Connection connection(desktop.display());
    const FakeKeyboardLayout layout;
    const std::filesystem::path own = desktop.home() / "rc.xml";
    DesktopShortcuts shortcuts(layout,
                               {openboxShortcuts(connection, {own, "/etc/xdg/openbox/rc.xml"})});
    EXPECT_EQ(windowManagerName(connection), "");
    EXPECT_THAT(shortcuts.copySymbolicHotKeys(), IsEmpty()) << "it does not run";
    desktop.startWindowManager("openbox");
    EXPECT_EQ(windowManagerName(connection), "Openbox");
    const auto all = shortcuts.copySymbolicHotKeys();
    EXPECT_THAT(all, Contains(altF4));
    EXPECT_THAT(all, Contains(SymbolicHotKey{true, 48, 0x800})) << "Alt+Tab";
    EXPECT_THAT(all, Each(Field(&SymbolicHotKey::isEnabled, Optional(true))));
    std::ofstream(own) << "<keybind key=\"W-F4\"/>";
    EXPECT_THAT(shortcuts.copySymbolicHotKeys(),
                testing::ElementsAre(SymbolicHotKey{true, 118, 0x100}))
        << "the user's file goes first";
}

TEST(DesktopShortcuts, AreThoseOfXfce) {
    VirtualDesktopOptions options;
    options.windowManager = "xfwm4";
    VirtualDesktop desktop(options);
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
