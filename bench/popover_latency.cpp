// Clicks a status icon with the real pointer and measures how long a pixel of the popover takes to
// be painted.
//
// Usage: popover_latency ICON_X ICON_Y PROBE_X PROBE_Y ROUNDS
// Prints one line a round: milliseconds from the click to the first change of the probed pixel.
// The popover must be closed at the start and is closed at the end.

#include <xcb/xcb.h>
#include <xcb/xtest.h>

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
        const auto cookie = xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, root_, x, y,
                                          1, 1, ~0U);
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

} // namespace

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    std::array<std::int16_t, 5> numbers{};
    if (arguments.size() != numbers.size() + 1) {
        std::fputs("usage: popover_latency ICON_X ICON_Y PROBE_X PROBE_Y ROUNDS\n", stderr);
        return EXIT_FAILURE;
    }
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::string_view text(arguments[i + 1]);
        std::from_chars(text.data(), text.data() + text.size(), numbers[i]);
    }
    const auto [iconX, iconY, probeX, probeY, rounds] = numbers;
    Screen screen;
    if (!screen.isOpen()) {
        std::fputs("no display\n", stderr);
        return EXIT_FAILURE;
    }
    for (int round = 0; round < rounds; ++round) {
        const std::uint32_t before = screen.pixel(probeX, probeY);
        screen.click(iconX, iconY);
        const auto painted = waitForPixel(screen, probeX, probeY, before, true);
        if (!painted) {
            std::fputs("the popover did not open\n", stderr);
            return EXIT_FAILURE;
        }
        std::printf("%.2f\n", painted->count());
        // Longer than any guard against double clicks, and long enough to become idle.
        std::this_thread::sleep_for(std::chrono::milliseconds(600));
        screen.click(iconX, iconY);
        if (!waitForPixel(screen, probeX, probeY, before, false)) {
            std::fputs("the popover did not close\n", stderr);
            return EXIT_FAILURE;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(600));
    }
    return EXIT_SUCCESS;
}
