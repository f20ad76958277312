// SPDX-License-Identifier: MIT
#include "fakes/FakeWindowSystem.h"
#include "platform/desktop/use/BusUses.h"
#include "platform/desktop/use/DesktopUseSources.h"
#include "platform/desktop/use/MediaStreams.h"
#include "platform/desktop/use/SessionAwayTime.h"
#include "platform/linux/proc/ProcessReader.h"

#include "PrivateBus.h"

#include <pulse/context.h>
#include <pulse/mainloop.h>
#include <pulse/stream.h>

#include <csignal>
#include <unistd.h>

namespace calmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using namespace std::chrono_literals;

constexpr auto loginPath = "/org/freedesktop/login1";

TEST(MediaStreams, AreUsesOfProgramsOfThisMachineUnlessTheyPause) {
    const HostNames host{.name = "here", .machineId = "3d12"};
    const StreamUse plays{.ownId = 7, .program = "player"};
    using Properties = std::map<std::string, std::string>;
    // As PulseAudio 16 tells a stream, and PipeWire 0.3 those of both kinds of clients.
    const Properties pulse{{"application.process.id", "7"},
                           {"application.process.binary", "player"},
                           {"application.process.host", "here"},
                           {"application.process.machine_id", "3d12"}};
    const auto with = [](Properties base, const Properties& more) {
        base.insert(more.begin(), more.end());
        return base;
    };
    const auto pipewire =
        with(pulse, {{"client.api", "pipewire-pulse"}, {"pipewire.sec.pid", "9"}});

    const struct {
        const char* what;
        MediaStream stream;
        std::optional<StreamUse> expected;
    } cases[] = {
        {"PulseAudio", {.properties = pulse}, plays},
        {"PipeWire, by way of its server", {.properties = pipewire}, plays},
        {"PipeWire alone",
         {.properties = {{"application.process.id", "7"}, {"pipewire.sec.pid", "9"}}},
         StreamUse{.ownId = 7, .peer = 9}},
        {"recording",
         {.kind = MediaStream::Kind::recordsSound, .properties = pulse},
         StreamUse{.kind = UseKind::recordsSound, .ownId = 7, .program = "player"}},
        {"pictures",
         {.kind = MediaStream::Kind::receivesPictures, .properties = {{"pipewire.sec.pid", "9"}}},
         StreamUse{.kind = UseKind::sharesScreen, .peer = 9}},
        {"paused", {.isPaused = true, .properties = pulse}, {}},
        {"PulseAudio's meter",
         {.kind = MediaStream::Kind::recordsSound, .isPeakMeter = true, .properties = pulse},
         {}},
        {"PipeWire's meter", {.properties = with(pipewire, {{"stream.monitor", "true"}})}, {}},
        {"the name for an id",
         {.properties = {{"application.process.id", "7"},
                         {"application.process.machine_id", "here"}}},
         StreamUse{.ownId = 7}},
        {"another machine with our name",
         {.properties = {{"application.process.id", "7"},
                         {"application.process.host", "here"},
                         {"application.process.machine_id", "aaaa"}}},
         {}},
        {"another name",
         {.properties = {{"pipewire.sec.pid", "7"}, {"application.process.host", "there"}}},
         {}},
        {"a loop in the server", {.properties = {{"media.name", "loop"}}}, {}},
        {"no number",
         {.properties = {{"application.process.id", "7x"}, {"pipewire.sec.pid", "-9"}}},
         {}},
    };

    for (const auto& test : cases) {
        EXPECT_EQ(useOf(test.stream, host), test.expected) << test.what;
    }
}

TEST(UseOwners, AreFoundByNamesAndByIdsInNamespaces) {
    const std::tuple<const char*, const char*, bool> names[] = {
        {"firefox", "org.mozilla.Firefox", true},
        {"org.mozilla.firefox", "firefox", true},
        {"/usr/bin/vlc", "VLC", true},
        {"Image_Viewer", "image-viewer", true},
        {"org.gnome.Totem", "totem", true},
        {"telegram", "org.telegram.desktop", true},
        {"chrome", "chromium", false},
        {"org.a.Editor", "org.b.Editor", false},
        {"", "", false},
        {".", "org.example.", false},
    };
    for (const auto& [name, known, expected] : names) {
        EXPECT_EQ(mayMean(name, known), expected) << name << " " << known;
    }

    // Two programs that call themselves 2, each in a pid namespace of its own.
    const ProcessReader reader;
    const UseOwners owners(reader, [] { return ApplicationSnapshot(); });
    const QTemporaryDir folder;
    QProcess sandboxes[2];
    const char* programs[] = {"calmora-first", "calmora-second"};
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(QFile::copy("/bin/sleep", folder.filePath(programs[i])));
        sandboxes[i].start("bwrap", {"--unshare-pid", "--die-with-parent", "--dev-bind", "/", "/",
                                     "--proc", "/proc", folder.filePath(programs[i]), "600"});
    }
    const auto only = [&](const char* program) {
        const auto found = owners.calling(2, program);
        return found.size() == 1 && reader.comm(found[0]) == program ? found[0] : 0;
    };
    EXPECT_TRUE(loopUntil([&] { return only(programs[0]) != 0 && only(programs[1]) != 0; }));
    const auto any = owners.calling(2, "a name that none has");
    EXPECT_THAT(any, testing::IsSupersetOf({only(programs[0]), only(programs[1])}));
    const std::string own =
        QFileInfo(QCoreApplication::applicationFilePath()).fileName().toStdString();
    EXPECT_THAT(owners.calling(::getpid(), own), ElementsAre(::getpid()));
    for (QProcess& sandbox : sandboxes) {
        sandbox.kill();
        sandbox.waitForFinished();
    }
}

QVariantList propertyAnswer(const QVariant& value) {
    return {QVariant::fromValue(QDBusVariant(value))};
}

struct UseSourcesTest : testing::Test {
    PrivateBus bus;
    QDBusConnection own = bus.connect();
    QDBusConnection other = bus.connect();
    const ProcessId self = ::getpid();
    FakeWindowSystem windows;
    ProcessReader reader;
    ApplicationSnapshot running;
    std::weak_ptr<const QDBusConnection> systemBus;
    BusOnDemand system = [this] {
        const auto open = std::make_shared<const QDBusConnection>(own);
        systemBus = open;
        return open;
    };
    DesktopUseSources sources{{.sessionBus = own,
                               .systemBus = system,
                               .windows = windows,
                               .reader = reader,
                               .running = [this] { return running; },
                               .applicationName = "test"}};

    UseSourcesTest() { qputenv("PULSE_SERVER", "unix:/nowhere"); }

    void serve(std::initializer_list<const char*> names) {
        for (const char* name : names) {
            ASSERT_TRUE(other.registerService(name)) << name;
        }
    }

    UseReport read() {
        std::optional<UseReport> report;
        const Subscription reading = sources.read([&](const UseReport& read) { report = read; });
        EXPECT_FALSE(report) << "never from within the call";
        EXPECT_TRUE(loopUntil([&] { return report.has_value(); }));
        EXPECT_TRUE(systemBus.expired()) << "nothing stays open";
        return report.value_or(UseReport());
    }

    std::vector<std::pair<ProcessId, UseKind>> uses() {
        std::vector<std::pair<ProcessId, UseKind>> result;
        const UseReport report = read();
        EXPECT_TRUE(report.isComplete);
        for (const ProcessUse& use : report.uses) {
            result.emplace_back(use.process, use.kind);
        }
        return result;
    }
};

TEST_F(UseSourcesTest, CollectWhatInhibitorsAndWindowsTell) {
    EXPECT_EQ(read().sinceInput, std::nullopt) << "nobody is there";
    qDBusRegisterMetaType<LogindInhibitor>();
    qDBusRegisterMetaType<QList<LogindInhibitor>>();
    const std::uint32_t user = ::getuid();
    const QList<LogindInhibitor> inhibitors{
        {"shutdown:sleep", "a", "b", "block", user, 11},
        {"handle-lid-switch:idle", "a", "b", "block-weak", user, 12},
        {"sleep", "a", "b", "delay", user, 13},
        {"shutdown:handle-power-key", "a", "b", "block", user, 14},
        {"sleep", "a", "b", "block", user + 1, 15},
    };
    ScriptedObject login(other, loginPath,
                         [&](auto&&) { return QVariantList{QVariant::fromValue(inhibitors)}; });

    // The four ways to tell the process of one that forbids sleep or idleness; the last is other.
    const auto path = [](const QString& text) {
        return QVariant::fromValue(QDBusObjectPath(text));
    };
    const std::map<QString, std::map<QString, QVariant>> objects{
        {"/one", {{"GetFlags", 8U}, {"GetClientId", path("/client")}}},
        {"/client", {{"GetUnixProcessId", 21U}}},
        {"/two", {{"GetFlags", 4U}, {"GetToplevelXid", 0x2200001U}}},
        {"/three", {{"GetFlags", 12U}, {"GetAppId", "org.example.Player"}}},
        {"/four", {{"GetFlags", 3U}, {"GetClientId", path("/client")}}},
    };
    std::vector<std::unique_ptr<ScriptedObject>> scripted;
    QList<QDBusObjectPath> paths;
    for (const auto& [name, answers] : objects) {
        const auto answer = [&answers = answers](const QDBusMessage& call) {
            const auto found = answers.find(call.member());
            return found == answers.end() ? QVariantList() : QVariantList{found->second};
        };
        scripted.push_back(std::make_unique<ScriptedObject>(other, name, answer));
        paths.append(QDBusObjectPath(name));
    }
    ScriptedObject manager(other, "/org/gnome/SessionManager",
                           [&](auto&&) { return QVariantList{QVariant::fromValue(paths)}; });
    QStringList names{"editor", "none"};
    ScriptedObject xfce(other, "/org/freedesktop/PowerManagement/Inhibit",
                        [&](auto&&) { return QVariantList{names}; });
    ScriptedObject idle(other, "/org/gnome/Mutter/IdleMonitor/Core",
                        [](auto&&) { return QVariantList{QVariant(qulonglong{4200})}; });
    serve({"org.freedesktop.login1", "org.gnome.SessionManager", "org.freedesktop.PowerManagement",
           "org.gnome.Mutter.IdleMonitor"});
    running.resize(2);
    running[0].processIdentifier = 23;
    running[0].bundleIdentifier = "org.example.Player";
    running[1].processIdentifier = 31;
    running[1].localizedName = "Editor";
    windows.all = {{.id = 0x2200001, .process = 22},
                   {.id = 2, .process = 41, .isFullScreen = true},
                   {.id = 3, .candidates = {42, 43}, .isFullScreen = true}};

    EXPECT_THAT(uses(),
                UnorderedElementsAre(
                    std::pair(11, UseKind::inhibitsSleep), std::pair(12, UseKind::inhibitsSleep),
                    std::pair(21, UseKind::inhibitsSleep), std::pair(22, UseKind::inhibitsSleep),
                    std::pair(23, UseKind::inhibitsSleep), std::pair(31, UseKind::inhibitsSleep),
                    std::pair(41, UseKind::isFullScreen), std::pair(42, UseKind::isFullScreen),
                    std::pair(43, UseKind::isFullScreen)));
    EXPECT_EQ(read().sinceInput, 4200ms);
    names = QStringList(300, "leak");
    EXPECT_FALSE(read().isComplete) << "who else is among so many?";
}

TEST_F(UseSourcesTest, AskOnlyWhenAskedAndWaitForNobodyLong) {
    QString status = "Paused";
    ScriptedObject player(other, "/org/mpris/MediaPlayer2",
                          [&](auto&&) { return propertyAnswer(status); });
    serve({"org.mpris.MediaPlayer2.one"});
    EXPECT_THAT(uses(), IsEmpty());
    status = "Playing";
    EXPECT_THAT(uses(), ElementsAre(std::pair(self, UseKind::playsMedia)));
    EXPECT_EQ(player.calls.size(), 2U);
    sources.read([](auto&&) { ADD_FAILURE() << "the token has ended"; }).reset();

    ScriptedObject plasma(other, "/org/kde/Solid/PowerManagement/PolicyAgent");
    plasma.isSilent = true;
    serve({"org.kde.Solid.PowerManagement.PolicyAgent"});
    const auto begin = std::chrono::steady_clock::now();
    const UseReport report = read();
    EXPECT_FALSE(report.isComplete);
    EXPECT_THAT(report.uses, ElementsAre(ProcessUse{self, UseKind::playsMedia}));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, scaled(1s) + 500ms);
}

/// A stream of ours that is there and does not run, as of a player that pauses.
class PausedPlayer {
  public:
    PausedPlayer() {
        pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
        while (pa_context_get_state(context_) != PA_CONTEXT_READY) {
            pa_mainloop_iterate(loop_, 1, nullptr);
        }
        const pa_sample_spec format{.format = PA_SAMPLE_S16LE, .rate = 44100, .channels = 2};
        stream_ = pa_stream_new(context_, "paused", &format, nullptr);
        pa_stream_connect_playback(stream_, nullptr, nullptr, PA_STREAM_START_CORKED, nullptr,
                                   nullptr);
        while (pa_stream_get_state(stream_) == PA_STREAM_CREATING) {
            pa_mainloop_iterate(loop_, 1, nullptr);
        }
    }

    PausedPlayer(const PausedPlayer&) = delete;
    PausedPlayer& operator=(const PausedPlayer&) = delete;

    ~PausedPlayer() {
        pa_stream_unref(stream_);
        pa_context_unref(context_);
        pa_mainloop_free(loop_);
    }

  private:
    pa_mainloop* loop_ = pa_mainloop_new();
    pa_context* context_ = pa_context_new(pa_mainloop_get_api(loop_), "paused");
    pa_stream* stream_ = nullptr;
};

TEST_F(UseSourcesTest, HearRealPlayersOfARealServer) {
    const QTemporaryDir folder;
    const QString socket = folder.filePath("native");
    qputenv("PULSE_SERVER", "unix:" + socket.toUtf8());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", folder.path());
    environment.insert("XDG_RUNTIME_DIR", folder.path());
    const auto start = [&](const char* program, const QStringList& arguments) {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment);
        process->setStandardOutputFile(QProcess::nullDevice());
        process->setStandardErrorFile(QProcess::nullDevice());
        process->start(program, arguments);
        return process;
    };
    const auto server =
        start("pulseaudio", {"-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                             "-L", "module-null-sink", "-L",
                             "module-native-protocol-unix auth-anonymous=1 socket=" + socket});
    ASSERT_TRUE(loopUntil([&] { return QFile::exists(socket); }));
    EXPECT_THAT(uses(), IsEmpty());

    const PausedPlayer paused;
    const auto elsewhere = start("pacat", {"--property=application.process.machine_id=aaaa",
                                           "--client-name=elsewhere", "/dev/zero"});
    const auto streams = [&](const char* kind) {
        QProcess list;
        list.start("pactl", {"list", "short", kind});
        list.waitForFinished();
        return list.readAllStandardOutput().count('\n');
    };
    EXPECT_TRUE(loopUntil([&] { return streams("sink-inputs") == 2; }));
    EXPECT_THAT(uses(), IsEmpty()) << "one pauses, and one is on another machine";

    const auto player = start("pacat", {"/dev/zero"});
    const auto recorder = start("pacat", {"--record"});
    const std::pair plays{static_cast<ProcessId>(player->processId()), UseKind::playsSound};
    const std::pair records{static_cast<ProcessId>(recorder->processId()), UseKind::recordsSound};
    EXPECT_TRUE(loopUntil([&] { return uses().size() == 2; }));
    EXPECT_THAT(uses(), UnorderedElementsAre(plays, records));
    player->kill();
    EXPECT_TRUE(loopUntil([&] { return uses() == std::vector{records}; }));

    const auto hung = static_cast<pid_t>(server->processId());
    ::kill(hung, SIGSTOP);
    EXPECT_FALSE(read().isComplete);
    ::kill(hung, SIGCONT);
    for (const auto* process : {&recorder, &elsewhere, &server}) {
        (*process)->kill();
        (*process)->waitForFinished();
    }
    EXPECT_THAT(uses(), IsEmpty()) << "a server that is gone counts as nothing";
}

TEST_F(UseSourcesTest, AwayTimeCountsSleepAndLocksOnceWhileFollowed) {
    AwakeAndAsleep clock{.awake = 100h, .asleep = 50h};
    SessionAwayTime away(own, system, [&] { return clock; });
    bool isActive = false;
    ScriptedObject saver(other, "/org/gnome/ScreenSaver",
                         [&](auto&&) { return QVariantList{QVariant(isActive)}; });
    ScriptedObject session(other, "/session/c1", [&](auto&&) { return propertyAnswer(false); });
    ScriptedObject caller(other, "/org/freedesktop/login1/session/auto",
                          [&](auto&&) { return propertyAnswer("c1"); });
    ScriptedObject login(other, loginPath, [](auto&&) {
        return QVariantList{QVariant::fromValue(QDBusObjectPath("/session/c1"))};
    });
    serve({"org.gnome.ScreenSaver", "org.freedesktop.login1"});
    const auto passed = [&](std::chrono::hours awake, std::chrono::hours asleep) {
        const auto before = away.total();
        clock.awake += awake;
        clock.asleep += asleep;
        return std::chrono::duration_cast<std::chrono::hours>(away.total() - before).count();
    };
    const auto becomes = [&](bool isAway) {
        return loopUntil([&] { return (passed(1h, 0h) == 1) == isAway; });
    };
    const auto say = [&](bool isLocked) {
        session.emitSignal("org.freedesktop.DBus.Properties", "PropertiesChanged",
                           {"org.freedesktop.login1.Session", QVariantMap{{"LockedHint", isLocked}},
                            QStringList()});
    };
    EXPECT_EQ(passed(1h, 8h), 0) << "not followed";

    away.setFollowing(true);
    EXPECT_TRUE(loopUntil([&] { return session.count("Get") == 1; }));
    EXPECT_EQ(passed(1h, 8h), 8);
    saver.emitSignal("org.gnome.ScreenSaver", "ActiveChanged", {true});
    EXPECT_TRUE(becomes(true));
    EXPECT_EQ(passed(1h, 8h), 9) << "nine hours have passed in all";
    say(true);
    saver.emitSignal("org.gnome.ScreenSaver", "ActiveChanged", {false});
    loopFor(100ms);
    EXPECT_EQ(passed(1h, 0h), 1) << "still locked";
    say(false);
    EXPECT_TRUE(becomes(false));

    saver.emitSignal("org.gnome.ScreenSaver", "ActiveChanged", {true});
    EXPECT_TRUE(becomes(true));
    ASSERT_TRUE(other.unregisterService("org.gnome.ScreenSaver"));
    EXPECT_TRUE(becomes(false)) << "its program has ended";
    isActive = true;
    ASSERT_TRUE(other.registerService("org.gnome.ScreenSaver"));
    EXPECT_TRUE(becomes(true)) << "a new one is active from the start";

    away.setFollowing(false);
    EXPECT_EQ(passed(1h, 8h), 0);
    away.setFollowing(true);
    EXPECT_TRUE(becomes(true)) << "it was locked before";
}

} // namespace
} // namespace calmora
