#include "support/VirtualDesktop.h"

#include "support/FileDescriptor.h"
#include "support/Waiting.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <poll.h>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace calmora {

namespace {

namespace fs = std::filesystem;

/// The descriptor that a program reports its address to.
constexpr char reportTarget[] = "9";

/// The first line that arrives at the descriptor, or nothing at the deadline.
std::string readLine(int descriptor, std::chrono::milliseconds timeout) {
    std::string line;
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (line.find('\n') == std::string::npos && std::chrono::steady_clock::now() < deadline) {
        pollfd entry{descriptor, POLLIN, 0};
        std::array<char, 256> buffer{};
        if (::poll(&entry, 1, 50) > 0) {
            const ssize_t size = ::read(descriptor, buffer.data(), buffer.size());
            if (size <= 0) {
                break;
            }
            line.append(buffer.data(), static_cast<std::size_t>(size));
        }
    }
    return line.substr(0, line.find('\n'));
}

struct XConnection {
    explicit XConnection(const std::string& display)
        : connection(xcb_connect(display.c_str(), nullptr)) {}

    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    ~XConnection() { xcb_disconnect(connection); }

    [[nodiscard]] xcb_atom_t atom(std::string_view name) const {
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
            xcb_intern_atom_reply(connection,
                                  xcb_intern_atom(connection, 0,
                                                  static_cast<std::uint16_t>(name.size()),
                                                  name.data()),
                                  nullptr),
            std::free);
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    /// Whether a window manager manages windows. Some lose windows that are mapped while they
    /// start, so only a window that made it into the list is proof.
    [[nodiscard]] bool isManaged() const {
        const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
        const xcb_window_t probe = xcb_generate_id(connection);
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, probe, screen->root, 0, 0, 9, 9, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
        xcb_map_window(connection, probe);
        xcb_flush(connection);
        const bool managed =
            waitFor([&] { return isListed(probe); }, std::chrono::milliseconds(100));
        xcb_destroy_window(connection, probe);
        return managed && waitFor([&] { return !isListed(probe); });
    }

    [[nodiscard]] bool hasOwner(std::string_view selection) const {
        const std::unique_ptr<xcb_get_selection_owner_reply_t, decltype(&std::free)> reply(
            xcb_get_selection_owner_reply(
                connection, xcb_get_selection_owner(connection, atom(selection)), nullptr),
            std::free);
        return reply && reply->owner != XCB_NONE;
    }

    xcb_connection_t* connection;

  private:
    [[nodiscard]] bool isListed(xcb_window_t window) const {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
            xcb_get_property_reply(connection,
                                   xcb_get_property(connection, 0, root, atom("_NET_CLIENT_LIST"),
                                                    XCB_ATOM_WINDOW, 0, 1024),
                                   nullptr),
            std::free);
        if (!reply) {
            return false;
        }
        const auto* first = static_cast<xcb_window_t*>(xcb_get_property_value(reply.get()));
        return std::find(first, first + reply->value_len, window) != first + reply->value_len;
    }
};

/// The children of this process, from the kernel.
std::vector<pid_t> children() {
    std::vector<pid_t> result;
    const std::string self = std::to_string(::getpid());
    std::ifstream list("/proc/" + self + "/task/" + self + "/children");
    for (pid_t child = 0; list >> child;) {
        result.push_back(child);
    }
    return result;
}

} // namespace

std::string windowClient() {
    return (fs::read_symlink("/proc/self/exe").parent_path() / "calmora_window_client").string();
}

VirtualDesktop::VirtualDesktop(const VirtualDesktopOptions& options) {
    std::string pattern = (fs::temp_directory_path() / "calmora-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    home_ = pattern;
    // What loses its parent becomes a child of ours and cannot get away.
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    const fs::path runtime = home_ / "run";
    for (const char* folder : {"run", "config", "data", "cache", "state"}) {
        fs::create_directory(home_ / folder);
    }
    fs::permissions(runtime, fs::perms::owner_all);
    environment_ = {
        {"HOME", home_.string()},
        {"PATH", "/usr/local/bin:/usr/bin:/bin:/usr/games"},
        {"LANG", "C.UTF-8"},
        {"XDG_RUNTIME_DIR", runtime.string()},
        {"XDG_CONFIG_HOME", (home_ / "config").string()},
        {"XDG_DATA_HOME", (home_ / "data").string()},
        {"XDG_CACHE_HOME", (home_ / "cache").string()},
        {"XDG_STATE_HOME", (home_ / "state").string()},
        {"XDG_DATA_DIRS", "/usr/local/share:/usr/share"},
        {"XDG_SESSION_TYPE", "x11"},
        // No bus unless the test has one: nothing may start one by itself.
        {"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (runtime / "no-bus").string()},
        {"GSETTINGS_BACKEND", "memory"},
        {"NO_AT_BRIDGE", "1"},
    };
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"}) {
        if (const char* value = std::getenv(name)) {
            environment_[name] = value;
        }
    }
    try {
        startServer(options.screen);
        if (options.sessionBus) {
            startBus();
        }
        if (!options.windowManager.empty()) {
            startWindowManager(options.windowManager);
        }
        if (options.tray) {
            startTray();
        }
    } catch (...) {
        cleanUp();
        throw;
    }
}

VirtualDesktop::~VirtualDesktop() {
    cleanUp();
}

const char* VirtualDesktop::variable(const char* name) const {
    const auto found = environment_.find(name);
    return found == environment_.end() ? nullptr : found->second.c_str();
}

std::string VirtualDesktop::startReporting(pid_t& process,
                                           const std::vector<std::string>& command) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    const FileDescriptor reading(ends[0]);
    FileDescriptor writing(ends[1]);
    process = spawn(command, writing.get(), {});
    writing.reset();
    const std::string report = readLine(reading.get(), patience);
    if (report.empty()) {
        throw std::runtime_error(command.front() + " does not start");
    }
    return report;
}

void VirtualDesktop::startServer(const std::string& screen) {
    display_ = ":" + startReporting(server_,
                                    {"Xvfb", "-displayfd", reportTarget, "-screen", "0", screen,
                                     "-nolisten", "tcp", "-noreset", "-ac", "-maxclients", "1024"});
    environment_["DISPLAY"] = display_;
}

void VirtualDesktop::startBus() {
    const fs::path config = home_ / "bus.conf";
    std::ofstream(config)
        << "<busconfig><type>session</type><listen>unix:dir=" << (home_ / "run").string()
        << "</listen><auth>EXTERNAL</auth><policy context=\"default\">"
           "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
           "<allow own=\"*\"/></policy></busconfig>\n";
    environment_["DBUS_SESSION_BUS_ADDRESS"] = startReporting(
        sessionBus_, {"dbus-daemon", "--nofork", "--nopidfile", "--config-file=" + config.string(),
                      std::string("--print-address=") + reportTarget});
}

void VirtualDesktop::startWindowManager(const std::string& name) {
    std::vector<std::string> command{name};
    if (name == "xfwm4") {
        command.emplace_back("--compositor=off");
        startSettingsDaemon();
    }
    windowManager_ = start(command);
    const XConnection server(display_);
    if (!waitFor([&] { return server.isManaged(); })) {
        throw std::runtime_error(name + " does not start: " + log());
    }
}

/// xfwm4 reads its settings over the bus, which starts nothing by itself here.
void VirtualDesktop::startSettingsDaemon() {
    if (sessionBus_ == 0) {
        startBus();
    }
    start({"/bin/sh", "-c", "exec /usr/lib/*/xfce4/xfconf/xfconfd"});
    const std::vector<std::string> ask{"dbus-send",
                                       "--session",
                                       "--print-reply",
                                       "--dest=org.freedesktop.DBus",
                                       "/org/freedesktop/DBus",
                                       "org.freedesktop.DBus.GetNameOwner",
                                       "string:org.xfce.Xfconf"};
    if (!waitFor([&] { return run(ask) == 0; })) {
        throw std::runtime_error("xfconfd does not start: " + log());
    }
}

void VirtualDesktop::startTray() {
    tray_ = start({"trayer", "--edge", "top", "--align", "right", "--widthtype", "request",
                   "--height", "24"});
    const XConnection server(display_);
    if (!waitFor([&] { return server.hasOwner("_NET_SYSTEM_TRAY_S0"); })) {
        throw std::runtime_error("trayer does not start: " + log());
    }
}

pid_t VirtualDesktop::start(const std::vector<std::string>& command, const Environment& extra) {
    return spawn(command, -1, extra);
}

pid_t VirtualDesktop::spawn(const std::vector<std::string>& command, int reportDescriptor,
                            const Environment& extra) {
    Environment all = environment_;
    for (const auto& [name, value] : extra) {
        all[name] = value;
    }
    std::vector<std::string> variables;
    for (const auto& [name, value] : all) {
        variables.push_back(name + "=" + value);
    }
    std::vector<std::string> arguments = command;
    std::vector<char*> argv;
    for (std::string& argument : arguments) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
    std::vector<char*> envp;
    for (std::string& variable : variables) {
        envp.push_back(variable.data());
    }
    envp.push_back(nullptr);
    const std::string logFile = (home_ / "log").string();
    const std::string path = all["PATH"];
    const std::string folder = home_.string();

    const pid_t child = ::fork();
    if (child != 0) {
        statuses_.emplace(child, std::nullopt);
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
    const int null = ::open("/dev/null", O_RDONLY);
    const int output = ::open(logFile.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    ::dup2(null, 0);
    ::dup2(output, 1);
    ::dup2(output, 2);
    if (reportDescriptor >= 0) {
        ::dup2(reportDescriptor, reportTarget[0] - '0');
    }
    if (::chdir(folder.c_str()) == 0) {
        ::setenv("PATH", path.c_str(), 1);
        ::execvpe(argv.front(), argv.data(), envp.data());
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

std::optional<int> VirtualDesktop::run(const std::vector<std::string>& command,
                                       std::chrono::milliseconds timeout) {
    const pid_t process = start(command);
    if (!waitFor([&] { return exitStatus(process).has_value(); }, timeout)) {
        end(process);
        return {};
    }
    const int status = exitStatus(process).value_or(0);
    return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

void VirtualDesktop::end(pid_t process, int signal) {
    if (statuses_.contains(process) && !exitStatus(process)) {
        ::kill(process, signal);
        waitFor([&] { return exitStatus(process).has_value(); });
    }
}

std::string VirtualDesktop::log() const {
    std::ostringstream text;
    text << std::ifstream(home_ / "log").rdbuf();
    return text.str();
}

void VirtualDesktop::cleanUp() noexcept {
    // Ends children until there are none: each one's end hands its own children to us. None of
    // them can be another process meanwhile, since a child keeps its id until it is collected.
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    for (auto left = children(); !left.empty() && std::chrono::steady_clock::now() < deadline;
         left = children()) {
        for (const pid_t child : left) {
            ::kill(child, SIGKILL);
        }
        for (const pid_t child : left) {
            int status = 0;
            if (::waitpid(child, &status, 0) == child && statuses_.contains(child)) {
                statuses_[child] = status;
            }
        }
    }
    std::error_code ignored;
    fs::remove_all(home_, ignored);
}

} // namespace calmora
