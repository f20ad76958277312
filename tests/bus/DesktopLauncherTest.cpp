// SPDX-License-Identifier: MIT
#include "platform/desktop/launch/DesktopLauncher.h"

#include "PrivateBus.h"
#include "platform/linux/xdg/InstalledApplications.h"
#include "support/TempFolder.h"

namespace calmora {
namespace {

struct DesktopLauncherTest : testing::Test {
    DesktopLauncherTest() {
        data.write("my tool/run", "#!/bin/sh\nenv >\"$1\"\npwd >>\"$1\"\nmv \"$1\" \"$2\"\n");
        std::filesystem::permissions(data.path() / "my tool/run", std::filesystem::perms::all);
        const std::string exec =
            "Exec=run " + data.path().string() + "/part " + data.path().string() + "/ran %U\n";
        const std::pair<const char*, std::string> entries[] = {
            {"tool", exec + "Path=/usr/share\n"},
            {"org.example.Bus-App", exec + "DBusActivatable=true\n"},
            {"no-name", exec + "DBusActivatable=true\n"},
            {"terminal", exec + "Terminal=true\n"},
            {"try", exec + "TryExec=run\n"},
            {"tried", exec + "TryExec=/usr/share\n"},
            {"folder", "Exec=/usr/share\n"},
            {"relative", "Exec=./run x\n"},
            {"nothing", "Exec=no-such-program-anywhere\n"},
        };
        for (const auto& [id, lines] : entries) {
            data.write("applications/" + std::string(id) + ".desktop",
                       "[Desktop Entry]\nType=Application\nName=A Tool\n" + lines);
        }
        installed.refresh();
    }

    std::filesystem::path entry(const std::string& id) {
        return data.path() / "applications" / (id + ".desktop");
    }

    /// What the program wrote about itself; empty if it was not started in time.
    QStringList ran(std::chrono::milliseconds timeout = defaultTimeout) {
        const std::filesystem::path file = data.path() / "ran";
        if (!loopUntil([&] { return std::filesystem::exists(file); }, timeout)) {
            return {};
        }
        const std::string text = TempFolder::read(file);
        std::filesystem::remove(file);
        return QString::fromStdString(text).split('\n');
    }

    TempFolder data;
    PrivateBus bus;
    QDBusConnection services = bus.connect();
    InstalledApplications installed{{{}, {}, {}, data.path(), {}, {}, {data.path() / "my tool"}},
                                    {}};
    DesktopLauncher launcher{
        {.sessionBus = bus.connect(),
         .installed = installed,
         .inheritance = {.environment = {"HOME=/usr", "LANG=C",
                                         "PATH=" + (data.path() / "my tool").string() + ":/bin",
                                         "INVOCATION_ID=1", "XDG_ACTIVATION_TOKEN=old"}},
         .activationToken = [] { return "id_TIME7"; }}};
};

TEST_F(DesktopLauncherTest, StartsOnlyWhatAnEntryNames) {
    const std::set<std::string> startable{"tool", "org.example.Bus-App", "no-name", "try"};
    for (const char* id : {"tool", "org.example.Bus-App", "no-name", "terminal", "try", "tried",
                           "folder", "relative", "nothing", "absent", ""}) {
        EXPECT_EQ(launcher.canLaunch(id), startable.contains(id)) << id;
        if (!startable.contains(id)) {
            EXPECT_FALSE(launcher.launch(id)) << id;
        }
    }
}

TEST_F(DesktopLauncherTest, PutsAProgramIntoAScopeAndRunsItWithoutOneToo) {
    ScriptedObject manager(services, "/org/freedesktop/systemd1", [](auto&&) {
        return QVariantList{QVariant::fromValue(QDBusObjectPath("/job/1"))};
    });
    AnsweringThread thread{&manager};
    for (const char* error : {"none runs", "", "org.freedesktop.systemd1.UnitExists"}) {
        SCOPED_TRACE(error);
        if (QString(error) != "none runs") {
            services.registerService("org.freedesktop.systemd1");
            manager.error = error;
        }
        EXPECT_TRUE(launcher.launch("tool"));
        const QStringList facts = ran();
        ASSERT_FALSE(facts.empty());
        EXPECT_EQ(facts[facts.size() - 2], "/usr/share") << "the working directory";
        QStringList variables = facts.first(facts.size() - 2);
        // A shell's own.
        variables.removeIf([](const QString& line) {
            return line.startsWith("PWD=") || line.startsWith("_=") || line.startsWith("OLDPWD=") ||
                   line.startsWith("SHLVL=") || line.startsWith("PATH=");
        });
        variables.sort();
        const QString pid = variables.filter("DESKTOP_FILE_PID").value(0).section('=', 1);
        EXPECT_EQ(variables, (QStringList{"DESKTOP_STARTUP_ID=id_TIME7",
                                          "GIO_LAUNCHED_DESKTOP_FILE=" +
                                              QString::fromStdString(entry("tool").string()),
                                          "GIO_LAUNCHED_DESKTOP_FILE_PID=" + pid, "HOME=/usr",
                                          "LANG=C", "XDG_ACTIVATION_TOKEN=id_TIME7"}));
        if (manager.calls.empty()) {
            continue;
        }
        const QDBusMessage call = std::exchange(manager.calls, {}).back();
        EXPECT_EQ(call.member(), "StartTransientUnit");
        ASSERT_EQ(call.signature(), "ssa(sv)a(sa(sv))");
        EXPECT_TRUE(QRegularExpression("^app-calmora-tool-[0-9a-f]+\\.scope$")
                        .match(call.arguments()[0].toString())
                        .hasMatch());
        EXPECT_EQ(call.arguments()[1], "fail");
        QVariantMap properties;
        const auto list = call.arguments()[2].value<QDBusArgument>();
        for (list.beginArray(); !list.atEnd();) {
            QString key;
            QDBusVariant value;
            list.beginStructure();
            list >> key >> value;
            list.endStructure();
            properties[key] = value.variant();
        }
        list.endArray();
        EXPECT_EQ(qdbus_cast<QList<uint>>(properties.take("PIDs")), QList<uint>{pid.toUInt()});
        EXPECT_EQ(properties, (QVariantMap{{"Description", "A Tool"},
                                           {"Slice", "app.slice"},
                                           {"CollectMode", "inactive-or-failed"}}));
    }
}

TEST_F(DesktopLauncherTest, AsksAnApplicationOnTheBusAndRunsItsProgramOnlyIfItWasNotStarted) {
    constexpr auto id = "org.example.Bus-App";
    const std::pair<const char*, bool> answers[] = {
        {"", false},
        {"org.freedesktop.DBus.Error.NoReply", false},
        {"org.freedesktop.DBus.Error.Failed", false},
        {"org.freedesktop.DBus.Error.UnknownMethod", true},
        {"org.freedesktop.DBus.Error.Spawn.ExecFailed", true},
    };
    EXPECT_TRUE(launcher.launch(id));
    EXPECT_FALSE(ran().empty()) << "no service";
    EXPECT_TRUE(launcher.launch("no-name"));
    EXPECT_FALSE(ran().empty()) << "its id is no bus name";
    ScriptedObject application(services, "/org/example/Bus_App");
    services.registerService(id);
    for (const auto& [error, runs] : answers) {
        application.error = error;
        EXPECT_TRUE(launcher.launch(id));
        using namespace std::chrono_literals;
        EXPECT_EQ(ran(runs ? defaultTimeout : 300ms).empty(), !runs) << error;
        ASSERT_EQ(application.calls.size(), 1U);
        const QDBusMessage call = std::exchange(application.calls, {}).back();
        EXPECT_EQ(call.interface() + '.' + call.member(), "org.freedesktop.Application.Activate");
        EXPECT_EQ(
            qdbus_cast<QVariantMap>(call.arguments().value(0)),
            (QVariantMap{{"activation-token", "id_TIME7"}, {"desktop-startup-id", "id_TIME7"}}));
    }
}

} // namespace
} // namespace calmora
