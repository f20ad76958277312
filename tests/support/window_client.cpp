// A small program with real windows, for tests: each option is one habit that applications have.
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

namespace {

struct Options {
    std::string instance = "client";
    std::string className = "Client";
    std::string title = "client";
    std::string type;
    std::string machine;
    std::string icon;
    std::vector<std::string> children;
    long process = ::getpid();
    int windows = 1;
    bool hasNoDelete = false;
    bool skipsTaskbar = false;
    bool hasTransient = false;
    // What a request to close a window does.
    bool ignoresClosing = false;
    bool asksOnClosing = false;
    bool hidesOnClosing = false;
    bool ignoresTerm = false;
    bool isHelper = false;
    bool isTrayIcon = false;
};

class Client {
  public:
    explicit Client(Options options)
        : options_(std::move(options)), connection_(xcb_connect(nullptr, nullptr)) {}

    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    ~Client() { xcb_disconnect(connection_); }

    int run() {
        if (xcb_connection_has_error(connection_) != 0) {
            return 1;
        }
        screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        for (int i = 0; i < options_.windows; ++i) {
            windows_.push_back(open(XCB_NONE));
        }
        if (options_.hasTransient) {
            open(windows_.front());
        }
        if (options_.isTrayIcon) {
            dock(open(XCB_NONE, false));
        }
        const xcb_atom_t deleteWindow = atom("WM_DELETE_WINDOW");
        xcb_flush(connection_);
        while (std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event{
            xcb_wait_for_event(connection_), std::free}) {
            const auto* message = reinterpret_cast<xcb_client_message_event_t*>(event.get());
            if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE &&
                message->data.data32[0] == deleteWindow && !close(message->window)) {
                return 0;
            }
        }
        return 1;
    }

  private:
    xcb_atom_t atom(std::string_view name) {
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
            xcb_intern_atom_reply(connection_,
                                  xcb_intern_atom(connection_, 0,
                                                  static_cast<std::uint16_t>(name.size()),
                                                  name.data()),
                                  nullptr),
            std::free);
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    void setText(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                 std::string_view value) {
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, property, type, 8,
                            static_cast<std::uint32_t>(value.size()), value.data());
    }

    void set(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
             const std::vector<std::uint32_t>& values) {
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, property, type, 32,
                            static_cast<std::uint32_t>(values.size()), values.data());
    }

    xcb_window_t open(xcb_window_t parent, bool map = true) {
        const xcb_window_t window = xcb_generate_id(connection_);
        xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, screen_->root, 0, 0, 120, 80,
                          0, XCB_WINDOW_CLASS_INPUT_OUTPUT, screen_->root_visual, 0, nullptr);
        setText(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                options_.instance + '\0' + options_.className + '\0');
        setText(window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, options_.title);
        setText(window, atom("_NET_WM_NAME"), atom("UTF8_STRING"), options_.title);
        if (!options_.machine.empty()) {
            setText(window, XCB_ATOM_WM_CLIENT_MACHINE, XCB_ATOM_STRING, options_.machine);
        }
        if (options_.process > 0) {
            set(window, atom("_NET_WM_PID"), XCB_ATOM_CARDINAL,
                {static_cast<std::uint32_t>(options_.process)});
        }
        if (!options_.hasNoDelete) {
            set(window, atom("WM_PROTOCOLS"), XCB_ATOM_ATOM, {atom("WM_DELETE_WINDOW")});
        }
        if (parent != XCB_NONE) {
            set(window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, {parent});
        }
        if (!options_.type.empty()) {
            set(window, atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM,
                {atom("_NET_WM_WINDOW_TYPE_" + options_.type)});
        }
        if (options_.skipsTaskbar) {
            set(window, atom("_NET_WM_STATE"), XCB_ATOM_ATOM, {atom("_NET_WM_STATE_SKIP_TASKBAR")});
        }
        if (!options_.icon.empty()) {
            const auto size = static_cast<std::uint32_t>(std::stoul(options_.icon));
            std::vector<std::uint32_t> pixels(2 + std::size_t{size} * size, 0xff336699U);
            pixels[0] = size;
            pixels[1] = size;
            set(window, atom("_NET_WM_ICON"), XCB_ATOM_CARDINAL, pixels);
        }
        if (map) {
            xcb_map_window(connection_, window);
        }
        return window;
    }

    /// Asks the tray to embed the window (freedesktop System Tray Protocol).
    void dock(xcb_window_t window) {
        set(window, atom("_XEMBED_INFO"), atom("_XEMBED_INFO"), {0, 1});
        const std::unique_ptr<xcb_get_selection_owner_reply_t, decltype(&std::free)> owner(
            xcb_get_selection_owner_reply(
                connection_, xcb_get_selection_owner(connection_, atom("_NET_SYSTEM_TRAY_S0")),
                nullptr),
            std::free);
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = owner ? owner->owner : xcb_window_t{XCB_NONE};
        message.type = atom("_NET_SYSTEM_TRAY_OPCODE");
        message.data.data32[2] = window;
        xcb_send_event(connection_, 0, message.window, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&message));
    }

    /// False when the program ends.
    bool close(xcb_window_t window) {
        if (options_.ignoresClosing) {
            return true;
        }
        if (options_.asksOnClosing) {
            if (window == question_) {
                // The question was dismissed: say so and stay.
                set(windows_.front(), atom("CALMORA_TEST_DISMISSED"), XCB_ATOM_CARDINAL, {1});
            } else {
                question_ = open(window);
            }
            xcb_flush(connection_);
            return true;
        }
        xcb_unmap_window(connection_, window);
        std::erase(windows_, window);
        xcb_flush(connection_);
        return !windows_.empty() || options_.hidesOnClosing;
    }

    Options options_;
    xcb_connection_t* connection_;
    const xcb_screen_t* screen_ = nullptr;
    std::vector<xcb_window_t> windows_;
    xcb_window_t question_ = XCB_NONE;
};

void startHelper(const std::string& program, bool orphan) {
    const pid_t child = ::fork();
    if (child == 0) {
        if (orphan && ::fork() != 0) {
            ::_exit(0);
        }
        ::execl(program.c_str(), program.c_str(), "--helper", nullptr);
        ::_exit(127);
    }
    if (orphan) {
        ::waitpid(child, nullptr, 0);
    }
}

} // namespace

int main(int argc, char** argv) {
    Options options;
    const std::map<std::string_view, std::string Options::*> texts{
        {"--instance", &Options::instance}, {"--class", &Options::className},
        {"--title", &Options::title},       {"--type", &Options::type},
        {"--machine", &Options::machine},   {"--icon", &Options::icon},
    };
    const std::map<std::string_view, bool Options::*> habits{
        {"--skip-taskbar", &Options::skipsTaskbar},
        {"--transient", &Options::hasTransient},
        {"--ignore-close", &Options::ignoresClosing},
        {"--ask-on-close", &Options::asksOnClosing},
        {"--hide-on-close", &Options::hidesOnClosing},
        {"--ignore-term", &Options::ignoresTerm},
        {"--tray", &Options::isTrayIcon},
        {"--helper", &Options::isHelper},
        {"--no-delete", &Options::hasNoDelete},
    };
    for (int i = 1; i < argc; ++i) {
        const std::string_view option = argv[i];
        const auto value = [&] { return std::string(i + 1 < argc ? argv[++i] : ""); };
        if (texts.contains(option)) {
            options.*texts.at(option) = value();
        } else if (habits.contains(option)) {
            options.*habits.at(option) = true;
        } else if (option == "--pid") {
            options.process = std::stol(value());
        } else if (option == "--windows") {
            options.windows = std::stoi(value());
        } else if (option == "--child") {
            options.children.push_back(value());
        } else if (option == "--orphan") {
            startHelper(value(), true);
        } else if (option == "--busy") {
            std::thread([] {
                volatile unsigned rounds = 0;
                while (true) {
                    rounds = rounds + 1;
                }
            }).detach();
        } else {
            return 2;
        }
    }
    if (options.ignoresTerm || options.isHelper) {
        // A helper that does not even notice the polite signal.
        std::signal(SIGTERM, SIG_IGN);
    }
    if (options.isHelper) {
        ::alarm(60);
        while (true) {
            ::pause();
        }
    }
    for (const std::string& child : options.children) {
        startHelper(child, false);
    }
    ::alarm(120);
    return Client(std::move(options)).run();
}
