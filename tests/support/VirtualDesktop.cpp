// SPDX-License-Identifier: MIT
#include "support/VirtualDesktop.h"

#include "platform/x11/X11Connection.h"
#include "support/Sandbox.h"
#include "support/Waiting.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <sstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace calmora {

namespace {

namespace fs = std::filesystem;

/// Fills the folders that stand for /usr/share and /etc/xdg, so that other desktops on the machine
/// change nothing: only with the applications that tests run, without default applications,
/// autostart and settings.
void installSystem(const fs::path& data, const fs::path& config) {
    fs::create_directories(data / "applications");
    for (const auto& entry : fs::directory_iterator("/usr/share")) {
        if (entry.path().filename() != "applications") {
            fs::create_symlink(entry, data / entry.path().filename());
        }
    }
    for (const char* name :
         {"galculator.desktop", "org.xfce.mousepad.desktop", "pcmanfm.desktop"}) {
        fs::create_symlink(fs::path("/usr/share/applications") / name,
                           data / "applications" / name);
    }
    std::ofstream(data / "applications/mimeapps.list")
        << "[Default Applications]\ninode/directory=pcmanfm.desktop\n";
    fs::create_directory(config);
    for (const char* folder : {"libfm", "openbox", "pcmanfm", "xfce4"}) {
        fs::create_symlink(fs::path("/etc/xdg") / folder, config / folder);
    }
}

/// Whether a window manager manages windows. Some lose windows that are mapped while they
/// start, so only a window that made it into the list is proof.
bool isManaged(const X11Connection& server) {
    const auto isListed = [&](xcb_window_t window) {
        const auto list = server.atom(X11Atom::netClientList);
        const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            server.get(), server.requestProperty(server.root(), list, 1024), nullptr));
        return std::ranges::count(words(reply), window) > 0;
    };
    const xcb_window_t probe = xcb_generate_id(server.get());
    xcb_create_window(server.get(), XCB_COPY_FROM_PARENT, probe, server.root(), 0, 0, 9, 9, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(server.get(), probe);
    xcb_flush(server.get());
    const auto isTaken = [&] {
        const X11Reply<xcb_get_property_reply_t> state(xcb_get_property_reply(
            server.get(), server.requestProperty(probe, server.atom(X11Atom::wmState), 1),
            nullptr));
        return isListed(probe) || !words(state).empty();
    };
    const bool managed = waitFor(isTaken, std::chrono::milliseconds(100));
    xcb_destroy_window(server.get(), probe);
    return managed && waitFor([&] { return !isListed(probe); });
}

bool hasTray(const X11Connection& server) {
    const X11Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        server.get(), xcb_get_selection_owner(server.get(), server.atom(X11Atom::selectionTray)),
        nullptr));
    return reply && reply->owner != XCB_NONE;
}

} // namespace

std::string windowClient() {
    return (fs::read_symlink("/proc/self/exe").parent_path() / "calmora_window_client").string();
}

VirtualDesktop::VirtualDesktop(Bare) {
    // What loses its parent becomes a child of ours and cannot get away.
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    environment_ = {
        {"HOME", home().string()},
        {"PATH", "/usr/local/bin:/usr/bin:/bin:/usr/games"},
        {"LANG", "C.UTF-8"},
        {"SHELL", "/bin/bash"},
        {"XDG_RUNTIME_DIR", (home() / "run").string()},
        {"XDG_CONFIG_HOME", (home() / "config").string()},
        {"XDG_CONFIG_DIRS", (home() / "system").string()},
        {"XDG_DATA_HOME", (home() / "data").string()},
        {"XDG_CACHE_HOME", (home() / "cache").string()},
        {"XDG_STATE_HOME", (home() / "state").string()},
        {"XDG_DATA_DIRS", (home() / "share").string()},
        {"XDG_SESSION_TYPE", "x11"},
        // No bus unless the test has one: nothing may start one by itself.
        {"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (home() / "run/no-bus").string()},
        {"GSETTINGS_BACKEND", "memory"},
        {"NO_AT_BRIDGE", "1"},
    };
    for (const char* folder : {"run", "config", "data", "cache", "state"}) {
        fs::create_directory(home() / folder);
    }
    fs::permissions(home() / "run", fs::perms::owner_all);
    installSystem(home() / "share", home() / "system");
    for (const char* name :
         {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS", "CALMORA_TEST_TIMEOUT_SCALE"}) {
        if (const char* value = std::getenv(name)) {
            environment_[name] = value;
        }
    }
}

VirtualDesktop::VirtualDesktop(const VirtualDesktopOptions& options) : VirtualDesktop(Bare()) {
    if (options.sway) {
        startSway();
        return;
    }
    if (options.kwin) {
        startBus();
        startKwin();
        return;
    }
    display_ = ":" + startReporting(server_, "Xvfb -displayfd 9 -screen 0 1280x800x24 "
                                             "-nolisten tcp -noreset -ac -maxclients 1024");
    environment_["DISPLAY"] = display_;
    if (options.sessionBus) {
        startBus();
    }
    if (!options.windowManager.empty()) {
        startWindowManager(options.windowManager);
    }
    if (options.tray) {
        tray_ = start({"trayer", "--edge", "top", "--align", "right", "--widthtype", "request",
                       "--height", "24"});
        const X11Connection server(display_);
        require([&] { return hasTray(server); }, "trayer");
    }
}

VirtualDesktop::~VirtualDesktop() {
    // Ends children until there are none: each one's end hands its own children to us. None of
    // them can be another process meanwhile, since a child keeps its id until it is collected.
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    for (auto left = childrenOf(::getpid());
         !left.empty() && std::chrono::steady_clock::now() < deadline;
         left = childrenOf(::getpid())) {
        for (const pid_t child : left) {
            ::kill(child, SIGKILL);
        }
        for (const pid_t child : left) {
            ::waitpid(child, nullptr, 0);
        }
    }
}

const char* VirtualDesktop::variable(const char* name) const {
    const auto found = environment_.find(name);
    return found == environment_.end() ? nullptr : found->second.c_str();
}

void VirtualDesktop::enter() const {
    ::clearenv();
    for (const auto& [name, value] : environment_) {
        ::setenv(name.c_str(), value.c_str(), 1);
    }
}

void VirtualDesktop::require(const std::function<bool()>& condition, const std::string& what) {
    if (!waitFor(condition)) {
        throw std::runtime_error(what + " does not start: " + log());
    }
}

std::string VirtualDesktop::startReporting(pid_t& process, const std::string& command) {
    fs::remove(report_);
    process = start({"/bin/sh", "-c", "exec " + command + " 9>'" + report_.string() + "'"});
    return awaitReport(command);
}

std::string VirtualDesktop::awaitReport(const std::string& program) {
    std::string report;
    require([&] { return (report = TempFolder::read(report_)).ends_with('\n'); }, program);
    return report.substr(0, report.find('\n'));
}

void VirtualDesktop::startSway() {
    const fs::path config =
        folder_.write("sway.conf", "output HEADLESS-1 resolution 1280x800\nfocus_follows_mouse no\n"
                                   "exec echo $SWAYSOCK $WAYLAND_DISPLAY $DISPLAY > '" +
                                       report_.string() + "'\n");
    environment_["XDG_SESSION_TYPE"] = "wayland";
    server_ = start({"sway", "-c", config.string()}, {{"WLR_BACKENDS", "headless"},
                                                      {"WLR_LIBINPUT_NO_DEVICES", "1"},
                                                      {"WLR_RENDERER", "pixman"}});
    std::istringstream words(awaitReport("sway"));
    words >> environment_["SWAYSOCK"] >> environment_["WAYLAND_DISPLAY"] >> display_;
    environment_["DISPLAY"] = display_;
}

void VirtualDesktop::startKwin() {
    const fs::path program = home() / "kwin_wayland";
    const fs::path session =
        folder_.write("kwin-session", "#!/bin/sh\necho $WAYLAND_DISPLAY $DISPLAY $XAUTHORITY > '" +
                                          report_.string() + "'\nexec sleep infinity\n");
    fs::permissions(session, fs::perms::owner_all);
    // A program with capabilities, which a copy has not, runs only with rights that tests lack.
    fs::copy_file("/usr/bin/kwin_wayland", program, fs::copy_options::overwrite_existing);
    fs::remove(report_);
    environment_["XDG_SESSION_TYPE"] = "wayland";
    environment_["XDG_CURRENT_DESKTOP"] = "KDE";
    server_ = start({program.string(), "--virtual", "--width", "1280", "--height", "800",
                     "--xwayland", "--socket", "wayland-kwin", "--no-lockscreen", session.string()},
                    {{"KWIN_COMPOSE", "Q"}});
    std::istringstream words(awaitReport("KWin"));
    words >> environment_["WAYLAND_DISPLAY"] >> display_;
    environment_["DISPLAY"] = display_;
    if (std::string authority; words >> authority) {
        environment_["XAUTHORITY"] = authority;
    }
}

void VirtualDesktop::startBus() {
    const fs::path config = folder_.write(
        "bus.conf",
        "<busconfig><type>session</type><listen>unix:dir=" + (home() / "run").string() +
            "</listen><auth>EXTERNAL</auth><policy context=\"default\">"
            "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
            "<allow own=\"*\"/></policy></busconfig>\n");
    environment_["DBUS_SESSION_BUS_ADDRESS"] = startReporting(
        sessionBus_,
        "dbus-daemon --nofork --nopidfile --print-address=9 --config-file=" + config.string());
}

void VirtualDesktop::startWindowManager(const std::string& name) {
    std::vector<std::string> command{name};
    if (name == "xfwm4") {
        command.emplace_back("--compositor=off");
        startSettingsDaemon();
    }
    windowManager_ = start(command);
    const X11Connection server(display_);
    require([&] { return isManaged(server); }, name);
}

/// xfwm4 reads its settings over the bus, which starts nothing by itself here.
void VirtualDesktop::startSettingsDaemon() {
    if (sessionBus_ == 0) {
        startBus();
    }
    start({"/bin/sh", "-c", "exec /usr/lib/*/xfce4/xfconf/xfconfd"});
    const std::string ask = "dbus-send --session --print-reply --dest=org.freedesktop.DBus / "
                            "org.freedesktop.DBus.GetNameOwner string:org.xfce.Xfconf";
    require([&] { return run({"/bin/sh", "-c", ask}) == 0; }, "xfconfd");
}

pid_t VirtualDesktop::start(const std::vector<std::string>& command, const Environment& extra) {
    std::vector<std::string> words = command;
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    const pid_t child = ::fork();
    if (child != 0) {
        statuses_.insert_or_assign(child, std::nullopt); // The id may be an earlier one's.
        return child;
    }
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    // Whatever ran the test may have ignored or blocked signals, which children inherit.
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGCHLD}) {
        std::signal(signal, SIG_DFL);
    }
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    enter();
    for (const auto& [name, value] : extra) {
        ::setenv(name.c_str(), value.c_str(), 1);
    }
    const int null = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    const int output =
        ::open((home() / "log").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (::chdir(home().c_str()) == 0 && ::dup2(null, 0) == 0 && ::dup2(output, 1) == 1 &&
        ::dup2(output, 2) == 2) {
        ::execvp(arguments.front(), arguments.data());
    }
    ::_exit(127);
}

std::optional<int> VirtualDesktop::exitStatus(pid_t process) {
    const auto found = statuses_.find(process);
    if (found == statuses_.end()) {
        return {};
    }
    int status = 0;
    if (!found->second && ::waitpid(process, &status, WNOHANG) == process) {
        found->second = status;
    }
    return found->second;
}

std::optional<int> VirtualDesktop::run(const std::vector<std::string>& command) {
    const pid_t process = start(command);
    if (!waitFor([&] { return exitStatus(process).has_value(); })) {
        end(process);
        return {};
    }
    const int status = exitStatus(process).value_or(0);
    return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

void VirtualDesktop::end(pid_t process) {
    if (statuses_.contains(process) && !exitStatus(process)) {
        ::kill(process, SIGKILL);
        waitFor([&] { return exitStatus(process).has_value(); });
    }
}

} // namespace calmora
