// SPDX-License-Identifier: MIT
// Measures how long something takes to appear on the screen, by watching one pixel.
//
// popover_latency click ICON_X ICON_Y PROBE_X PROBE_Y ROUNDS
//     Clicks a status icon with the real pointer. The popover must be closed at the start and is
//     closed at the end.
// popover_latency key KEYCODE,KEYCODE,... PROBE_X PROBE_Y ROUNDS
//     Presses a global shortcut: key codes of X, the timed one last. Otherwise the same.
// popover_latency settings ICON_X ICON_Y GEAR_X GEAR_Y PROBE_X PROBE_Y ROUNDS
//     Opens the popover, times a click on its gear, and closes the settings window with Ctrl+W.
// popover_latency start PROBE_X PROBE_Y ROUNDS PROGRAM
//     Starts a program and ends it again.
//
// Prints one line a round: milliseconds to the first change of the probed pixel.

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <csignal>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;
using Steady = std::chrono::steady_clock;

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

class Screen {
  public:
    Screen() : connection_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(connection_.get()) == 0) {
            root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
        }
    }

    [[nodiscard]] bool isOpen() const { return root_ != 0; }

    [[nodiscard]] std::uint32_t pixel(std::int16_t x, std::int16_t y) {
        const auto cookie =
            xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, root_, x, y, 1, 1, ~0U);
        const std::unique_ptr<xcb_get_image_reply_t, Free> image(
            xcb_get_image_reply(connection_.get(), cookie, nullptr));
        if (!image) {
            return 0;
        }
        const std::span bytes(xcb_get_image_data(image.get()), 3);
        return static_cast<std::uint32_t>(bytes[0] | bytes[1] << 8 | bytes[2] << 16);
    }

    void click(std::int16_t x, std::int16_t y) {
        send(XCB_MOTION_NOTIFY, 0, x, y);
        send(XCB_BUTTON_PRESS, 1, 0, 0);
        send(XCB_BUTTON_RELEASE, 1, 0, 0);
        xcb_flush(connection_.get());
    }

    /// Presses the keys in this order and lets them go.
    void press(std::span<const std::uint8_t> keys) {
        for (const std::uint8_t key : keys) {
            send(XCB_KEY_PRESS, key, 0, 0);
        }
        for (std::size_t i = keys.size(); i > 0; --i) {
            send(XCB_KEY_RELEASE, keys[i - 1], 0, 0);
        }
        xcb_flush(connection_.get());
    }

  private:
    void send(std::uint8_t type, std::uint8_t detail, std::int16_t x, std::int16_t y) {
        xcb_test_fake_input(connection_.get(), type, detail, XCB_CURRENT_TIME, root_, x, y, 0);
    }

    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t root_ = 0;
};

/// Time until the pixel differs from (or equals) `reference`; absent after two seconds.
std::optional<Milliseconds> waitForPixel(Screen& screen, std::int16_t x, std::int16_t y,
                                         std::uint32_t reference, bool differs) {
    const auto start = Steady::now();
    while (Steady::now() - start < std::chrono::seconds(2)) {
        if ((screen.pixel(x, y) != reference) == differs) {
            return Steady::now() - start;
        }
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    return std::nullopt;
}

std::int16_t number(std::string_view text) {
    std::int16_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// Opens and closes something several times. `rest` is what the arguments still hold: the probed
/// pixel and the number of rounds.
template <typename Prepare, typename Open, typename Close>
int measureOpenings(Screen& screen, std::span<char*> rest, Prepare prepare, Open open,
                    Close close) {
    const std::int16_t probeX = number(rest[0]);
    const std::int16_t probeY = number(rest[1]);
    // Longer than any guard against double clicks, and long enough to become idle.
    constexpr auto pause = std::chrono::milliseconds(600);
    for (int round = number(rest[2]); round > 0; --round) {
        prepare(pause);
        const std::uint32_t before = screen.pixel(probeX, probeY);
        open();
        const auto painted = waitForPixel(screen, probeX, probeY, before, true);
        if (!painted) {
            std::fputs("it did not open\n", stderr);
            return EXIT_FAILURE;
        }
        std::printf("%.2f\n", painted->count());
        std::this_thread::sleep_for(pause);
        close();
        if (!waitForPixel(screen, probeX, probeY, before, false)) {
            std::fputs("it did not close\n", stderr);
            return EXIT_FAILURE;
        }
        std::this_thread::sleep_for(pause);
    }
    return EXIT_SUCCESS;
}

constexpr auto nothingToPrepare = [](auto) {};

int measureClicks(Screen& screen, std::span<char*> arguments) {
    const auto toggle = [&] { screen.click(number(arguments[0]), number(arguments[1])); };
    return measureOpenings(screen, arguments.subspan(2), nothingToPrepare, toggle, toggle);
}

int measureKeys(Screen& screen, std::span<char*> arguments) {
    std::vector<std::uint8_t> keys;
    std::string_view list(arguments[0]);
    while (!list.empty()) {
        const std::string_view key = list.substr(0, list.find(','));
        keys.push_back(static_cast<std::uint8_t>(number(key)));
        list.remove_prefix(std::min(list.size(), key.size() + 1));
    }
    const auto toggle = [&] { screen.press(keys); };
    return measureOpenings(screen, arguments.subspan(1), nothingToPrepare, toggle, toggle);
}

int measureSettings(Screen& screen, std::span<char*> arguments) {
    constexpr std::array<std::uint8_t, 2> controlW{37, 25};
    return measureOpenings(
        screen, arguments.subspan(4),
        [&](auto pause) {
            screen.click(number(arguments[0]), number(arguments[1]));
            std::this_thread::sleep_for(pause);
        },
        [&] { screen.click(number(arguments[2]), number(arguments[3])); },
        [&] { screen.press(controlW); });
}

int measureStarts(Screen& screen, std::span<char*> arguments) {
    const std::int16_t probeX = number(arguments[0]);
    const std::int16_t probeY = number(arguments[1]);
    std::array<char*, 2> command{arguments[3], nullptr};
    for (int round = number(arguments[2]); round > 0; --round) {
        const std::uint32_t before = screen.pixel(probeX, probeY);
        pid_t child = 0;
        if (posix_spawn(&child, command[0], nullptr, nullptr, command.data(), environ) != 0) {
            std::fputs("the program does not start\n", stderr);
            return EXIT_FAILURE;
        }
        const auto shown = waitForPixel(screen, probeX, probeY, before, true);
        kill(child, SIGTERM);
        waitpid(child, nullptr, 0);
        if (!shown || !waitForPixel(screen, probeX, probeY, before, false)) {
            std::fputs("the icon did not come and go\n", stderr);
            return EXIT_FAILURE;
        }
        std::printf("%.2f\n", shown->count());
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    const std::string_view mode = argc > 1 ? argv[1] : "";
    Screen screen;
    if (!screen.isOpen()) {
        std::fputs("no display\n", stderr);
        return EXIT_FAILURE;
    }
    if (mode == "click" && argc == 7) {
        return measureClicks(screen, arguments.subspan(2));
    }
    if (mode == "key" && argc == 6) {
        return measureKeys(screen, arguments.subspan(2));
    }
    if (mode == "settings" && argc == 9) {
        return measureSettings(screen, arguments.subspan(2));
    }
    if (mode == "start" && argc == 6) {
        return measureStarts(screen, arguments.subspan(2));
    }
    std::fputs("usage: see the top of the source\n", stderr);
    return EXIT_FAILURE;
}
