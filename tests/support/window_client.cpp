// SPDX-License-Identifier: MIT
// A small program with real windows, for tests: each option is one habit that applications have.
#include "platform/x11/X11Connection.h"

#include <array>
#include <chrono>
#include <csignal>
#include <deque>
#include <map>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using calmora::X11Reply;

/// The connection to the X server, for the handler of a signal.
volatile std::sig_atomic_t connection = -1;

/// What the command line says: options with the word behind them, empty where there is none.
using Options = std::multimap<std::string, std::string>;

class Client {
  public:
    explicit Client(Options options) : options_(std::move(options)) {}

    int run() {
        if (!server_.isAlive()) {
            return 1;
        }
        while (has("--hand-over") && ::fork() != 0) {
            // The child has the connection as well, and keeps it when this process ends.
            ::pause();
        }
        if (has("--hang-up")) {
            connection = server_.descriptor();
            std::signal(SIGUSR1, [](int) { ::shutdown(connection, SHUT_RDWR); });
        }
        for (int i = std::stoi(value("--windows", "1")); i > 0; --i) {
            windows_.push_back(open(XCB_NONE));
        }
        if (has("--transient")) {
            open(windows_.front());
        }
        if (has("--tray")) {
            dock(open(XCB_NONE, false));
        }
        xcb_flush(server_.get());
        if (has("--storm")) {
            storm(std::stoi(value("--storm", "")));
        }
        while (const X11Reply<xcb_generic_event_t> event{xcb_wait_for_event(server_.get())}) {
            const auto* message = reinterpret_cast<xcb_client_message_event_t*>(event.get());
            if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE &&
                message->data.data32[0] == atom("WM_DELETE_WINDOW") && !close(message->window)) {
                return 0;
            }
        }
        while (has("--hang-up")) {
            ::pause();
        }
        return 1;
    }

  private:
    [[nodiscard]] bool has(const std::string& option) const { return options_.contains(option); }

    [[nodiscard]] std::string value(const std::string& option, const std::string& usual) const {
        const auto found = options_.find(option);
        return found != options_.end() ? found->second : usual;
    }

    xcb_atom_t atom(const std::string& name) {
        const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            server_.get(),
            xcb_intern_atom(server_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
            nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    template <typename Values = std::vector<std::uint32_t>>
    void set(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const Values& values) {
        xcb_change_property(server_.get(), XCB_PROP_MODE_REPLACE, window, property, type,
                            8 * sizeof values[0], static_cast<std::uint32_t>(values.size()),
                            values.data());
    }

    xcb_window_t open(xcb_window_t parent, bool map = true) {
        const xcb_window_t window = xcb_generate_id(server_.get());
        // A Wayland compositor shows only what has been drawn.
        const std::uint32_t background = 0xffffff;
        xcb_create_window(server_.get(), XCB_COPY_FROM_PARENT, window, server_.root(), 0, 0, 120,
                          80, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL, &background);
        set(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
            value("--instance", "client") + '\0' + value("--class", "Client") + '\0');
        set(window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, value("--title", "client"));
        set(window, XCB_ATOM_WM_CLIENT_MACHINE, XCB_ATOM_STRING, value("--machine", ""));
        if (const int process = std::stoi(value("--pid", std::to_string(::getpid())))) {
            set(window, atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, std::vector{process});
        }
        if (!has("--no-delete")) {
            set(window, atom("WM_PROTOCOLS"), XCB_ATOM_ATOM, {atom("WM_DELETE_WINDOW")});
        }
        if (parent != XCB_NONE) {
            set(window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, {parent});
        }
        if (has("--type")) {
            set(window, atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM,
                {atom("_NET_WM_WINDOW_TYPE_" + value("--type", ""))});
        }
        if (has("--modal") && parent != XCB_NONE) {
            set(window, atom("_NET_WM_STATE"), XCB_ATOM_ATOM, {atom("_NET_WM_STATE_MODAL")});
        }
        if (has("--skip-taskbar")) {
            set(window, atom("_NET_WM_STATE"), XCB_ATOM_ATOM, {atom("_NET_WM_STATE_SKIP_TASKBAR")});
        }
        if (has("--icon")) {
            const auto size = static_cast<std::uint32_t>(std::stoul(value("--icon", "")));
            std::vector<std::uint32_t> pixels(2 + size * size, 0xff336699U);
            pixels[0] = pixels[1] = size;
            set(window, atom("_NET_WM_ICON"), XCB_ATOM_CARDINAL, pixels);
        }
        if (has("--icon-bitmap")) {
            // Two pixels, of which a mask shows the second.
            const auto pixmapOf = [&](std::uint8_t depth, std::uint32_t left) {
                const xcb_pixmap_t pixmap = xcb_generate_id(server_.get());
                const xcb_gcontext_t pen = xcb_generate_id(server_.get());
                xcb_create_pixmap(server_.get(), depth, pixmap, window, 2, 1);
                const xcb_rectangle_t all{0, 0, 2, 1};
                const xcb_rectangle_t first{0, 0, 1, 1};
                const std::array<std::uint32_t, 2> colors{~left, left};
                xcb_create_gc(server_.get(), pen, pixmap, XCB_GC_FOREGROUND, &colors[0]);
                xcb_poly_fill_rectangle(server_.get(), pixmap, pen, 1, &all);
                xcb_change_gc(server_.get(), pen, XCB_GC_FOREGROUND, &colors[1]);
                xcb_poly_fill_rectangle(server_.get(), pixmap, pen, 1, &first);
                return pixmap;
            };
            const bool isColored = value("--icon-bitmap", "") == "colored";
            const xcb_pixmap_t picture = pixmapOf(isColored ? 24 : 1, isColored ? 0x112233 : 0);
            set(window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS,
                {isColored ? 0x24U : 0x4U, 0, 0, picture, 0, 0, 0, pixmapOf(1, 0), 0});
        }
        if (map) {
            xcb_map_window(server_.get(), window);
        }
        return window;
    }

    /// Opens so many windows a second, gives each another title and destroys it, until the end.
    [[noreturn]] void storm(int rate) {
        constexpr std::size_t open = 10;
        auto next = std::chrono::steady_clock::now();
        for (std::deque<xcb_window_t> windows;;) {
            windows.push_back(this->open(XCB_NONE));
            set(windows[windows.size() / 2], XCB_ATOM_WM_NAME, XCB_ATOM_STRING,
                std::string("renamed"));
            if (windows.size() > open) {
                xcb_destroy_window(server_.get(), windows.front());
                windows.pop_front();
            }
            xcb_flush(server_.get());
            std::this_thread::sleep_until(next += std::chrono::milliseconds(1000) / rate);
        }
    }

    /// Asks the tray to embed the window (freedesktop System Tray Protocol).
    void dock(xcb_window_t window) {
        set(window, atom("_XEMBED_INFO"), atom("_XEMBED_INFO"), {0, 1});
        const auto tray = xcb_get_selection_owner(server_.get(), atom("_NET_SYSTEM_TRAY_S0"));
        const X11Reply<xcb_get_selection_owner_reply_t> owner(
            xcb_get_selection_owner_reply(server_.get(), tray, nullptr));
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = owner ? owner->owner : xcb_window_t{XCB_NONE};
        message.type = atom("_NET_SYSTEM_TRAY_OPCODE");
        message.data.data32[2] = window;
        xcb_send_event(server_.get(), 0, message.window, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&message));
    }

    /// False when the program ends.
    bool close(xcb_window_t window) {
        if (has("--ask-on-close") && window == question_) {
            // The question was dismissed: say so and stay.
            set(windows_.front(), atom("CALMORA_TEST_DISMISSED"), XCB_ATOM_CARDINAL, {1});
        } else if (has("--ask-on-close")) {
            question_ = open(window);
        } else if (!has("--ignore-close")) {
            xcb_unmap_window(server_.get(), window);
            std::erase(windows_, window);
        }
        xcb_flush(server_.get());
        return !windows_.empty() || has("--hide-on-close");
    }

    const Options options_;
    const calmora::X11Connection server_;
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
    for (int i = 1; i < argc; ++i) {
        const bool hasValue = i + 1 < argc && !std::string(argv[i + 1]).starts_with("--");
        options.emplace(argv[i], hasValue ? argv[i + 1] : "");
        i += hasValue;
    }
    if (options.contains("--ignore-term") || options.contains("--helper")) {
        // A helper that does not even notice the polite signal.
        std::signal(SIGTERM, SIG_IGN);
    }
    ::alarm(options.contains("--long-lived") ? 7200 : 180);
    while (options.contains("--helper")) {
        ::pause();
    }
    for (const auto& [option, program] : options) {
        if (option == "--child" || option == "--orphan") {
            startHelper(program, option == "--orphan");
        }
    }
    return Client(std::move(options)).run();
}
