// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/OutsideCatcher.h"

#include "platform/wayland/backend/LayerShellProtocol.h"
#include "support/FileDescriptor.h"
#include "support/Owned.h"

#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>
#include <viewporter-client.h>
#include <wayland-cursor.h>

namespace calmora {

namespace {

constexpr std::chrono::milliseconds answerTime{500};
constexpr std::uint32_t allEdges =
    ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
    ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
constexpr int usualCursorSize = 24;

/// One transparent pixel; null when there is no memory for it.
WaylandProxy<wl_buffer> makePixel(wl_shm* memory) {
    constexpr int bytes = 4;
    const FileDescriptor file(::memfd_create("calmora-pixel", MFD_CLOEXEC));
    if (!file || ::ftruncate(file.get(), bytes) != 0) {
        return nullptr;
    }
    wl_shm_pool* pool = wl_shm_create_pool(memory, file.get(), bytes);
    WaylandProxy<wl_buffer> pixel(
        wl_shm_pool_create_buffer(pool, 0, 1, 1, bytes, WL_SHM_FORMAT_ARGB8888));
    wl_shm_pool_destroy(pool);
    return pixel;
}

} // namespace

/// What all outputs share.
struct OutsideCatcher::Objects {
    WaylandProxy<wl_compositor> compositor;
    WaylandProxy<wl_shm> memory;
    WaylandProxy<wp_viewporter> viewporter;
    WaylandProxy<zwlr_layer_shell_v1> shell;
    WaylandProxy<wl_buffer> pixel;
};

/// The surface over one output.
class OutsideCatcher::Cover {
  public:
    Cover(Objects& objects, WaylandProxy<wl_output> output)
        : objects_(objects), output_(std::move(output)) {
        outputListener_.geometry = [](void*, wl_output*, int, int, int, int, int, const char*,
                                      const char*, int) {};
        outputListener_.mode = [](void*, wl_output*, std::uint32_t, int, int, int) {};
        outputListener_.done = [](void*, wl_output*) {};
        outputListener_.scale = [](void*, wl_output*, int) {};
        outputListener_.name = [](void* self, wl_output*, const char* name) {
            static_cast<Cover*>(self)->facts.name = name;
        };
        outputListener_.description = [](void*, wl_output*, const char*) {};
        wl_output_add_listener(output_.get(), &outputListener_, this);
        surface_.reset(wl_compositor_create_surface(objects_.compositor.get()));
        viewport_.reset(wp_viewporter_get_viewport(objects_.viewporter.get(), surface_.get()));
        // Everything, bars included.
        role_ = addRole(surface_.get(), -1,
                        [](void* self, zwlr_layer_surface_v1* role, std::uint32_t serial,
                           std::uint32_t width, std::uint32_t height) {
                            static_cast<Cover*>(self)->configured(role, serial, width, height);
                        });
        // It only learns how much bars leave.
        probe_.reset(wl_compositor_create_surface(objects_.compositor.get()));
        probeRole_ = addRole(probe_.get(), 0,
                             [](void* self, zwlr_layer_surface_v1* role, std::uint32_t serial,
                                std::uint32_t width, std::uint32_t height) {
                                 zwlr_layer_surface_v1_ack_configure(role, serial);
                                 static_cast<Cover*>(self)->facts.usable = {
                                     static_cast<int>(width), static_cast<int>(height)};
                             });
    }

    [[nodiscard]] bool isConfigured() const {
        return facts.size.width > 0 && facts.usable.width > 0;
    }

    [[nodiscard]] bool has(const wl_surface* surface) const { return surface == surface_.get(); }

    /// sway 1.10 tells the pointer's place on a surface only when another one comes or goes.
    void endProbe() {
        wl_surface_attach(probe_.get(), objects_.pixel.get(), 0, 0);
        wl_surface_commit(probe_.get());
        zwlr_layer_surface_v1_destroy(probeRole_.release());
        wl_surface_destroy(probe_.release());
    }

    void setInputArea(bool isCatching) {
        wl_region* region = wl_compositor_create_region(objects_.compositor.get());
        if (isCatching) {
            wl_region_add(region, 0, 0, facts.size.width, facts.size.height);
            for (const Rect& hole : holes) {
                wl_region_subtract(region, hole.x, hole.y, hole.width, hole.height);
            }
        }
        wl_surface_set_input_region(surface_.get(), region);
        wl_region_destroy(region);
        wl_surface_commit(surface_.get());
    }

    Output facts;
    std::vector<Rect> holes;

  private:
    using Configure = void (*)(void*, zwlr_layer_surface_v1*, std::uint32_t, std::uint32_t,
                               std::uint32_t);

    WaylandProxy<zwlr_layer_surface_v1> addRole(wl_surface* surface, int exclusiveZone,
                                                Configure configure) {
        WaylandProxy<zwlr_layer_surface_v1> role(zwlr_layer_shell_v1_get_layer_surface(
            objects_.shell.get(), surface, output_.get(), ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY,
            "calmora-outside"));
        auto& listener = listeners_.at(exclusiveZone == 0 ? 0 : 1);
        listener = {.configure = configure, .closed = [](void*, zwlr_layer_surface_v1*) {}};
        zwlr_layer_surface_v1_add_listener(role.get(), &listener, this);
        zwlr_layer_surface_v1_set_anchor(role.get(), allEdges);
        zwlr_layer_surface_v1_set_exclusive_zone(role.get(), exclusiveZone);
        wl_surface_commit(surface);
        return role;
    }

    void configured(zwlr_layer_surface_v1* role, std::uint32_t serial, std::uint32_t width,
                    std::uint32_t height) {
        zwlr_layer_surface_v1_ack_configure(role, serial);
        const bool isFirst = facts.size.width == 0;
        facts.size = {static_cast<int>(width), static_cast<int>(height)};
        if (width > 0 && height > 0) {
            wp_viewport_set_destination(viewport_.get(), facts.size.width, facts.size.height);
        }
        if (isFirst) {
            wl_surface_attach(surface_.get(), objects_.pixel.get(), 0, 0);
            wl_surface_damage(surface_.get(), 0, 0, 1, 1);
        }
        wl_surface_commit(surface_.get());
    }

    Objects& objects_;
    wl_output_listener outputListener_{};
    WaylandProxy<wl_output> output_;
    WaylandProxy<wl_surface> surface_;
    WaylandProxy<wp_viewport> viewport_;
    WaylandProxy<zwlr_layer_surface_v1> role_;
    WaylandProxy<wl_surface> probe_;
    WaylandProxy<zwlr_layer_surface_v1> probeRole_;
    std::array<zwlr_layer_surface_v1_listener, 2> listeners_{};
};

/// The pointer and the touch screen over the covers.
class OutsideCatcher::Input {
  public:
    explicit Input(OutsideCatcher& catcher)
        : catcher_(catcher), seat_(catcher.connection_.bindFirst<wl_seat>(wl_seat_interface, 1)) {
        if (!seat_) {
            return;
        }
        seatListener_.capabilities = [](void* self, wl_seat*, std::uint32_t capabilities) {
            static_cast<Input*>(self)->take(capabilities);
        };
        pointerListener_.enter = [](void* self, wl_pointer*, std::uint32_t serial,
                                    wl_surface* surface, wl_fixed_t x, wl_fixed_t y) {
            static_cast<Input*>(self)->entered(serial, surface,
                                               {wl_fixed_to_int(x), wl_fixed_to_int(y)});
        };
        pointerListener_.leave = [](void*, wl_pointer*, std::uint32_t, wl_surface*) {};
        pointerListener_.motion = [](void* data, wl_pointer*, std::uint32_t, wl_fixed_t,
                                     wl_fixed_t) {
            auto& self = *static_cast<Input*>(data);
            if (self.enterSerial_) {
                self.showCursor(*std::exchange(self.enterSerial_, std::nullopt));
            }
        };
        pointerListener_.button = [](void* self, wl_pointer*, std::uint32_t, std::uint32_t,
                                     std::uint32_t, std::uint32_t state) {
            if (state == WL_POINTER_BUTTON_STATE_PRESSED) {
                static_cast<Input*>(self)->catcher_.notifyPress();
            }
        };
        pointerListener_.axis = [](void*, wl_pointer*, std::uint32_t, std::uint32_t, wl_fixed_t) {};
        touchListener_.down = [](void* self, wl_touch*, std::uint32_t, std::uint32_t, wl_surface*,
                                 int, wl_fixed_t,
                                 wl_fixed_t) { static_cast<Input*>(self)->catcher_.notifyPress(); };
        touchListener_.up = [](void*, wl_touch*, std::uint32_t, std::uint32_t, int) {};
        touchListener_.motion = [](void*, wl_touch*, std::uint32_t, int, wl_fixed_t, wl_fixed_t) {};
        touchListener_.frame = [](void*, wl_touch*) {};
        touchListener_.cancel = [](void*, wl_touch*) {};
        wl_seat_add_listener(seat_.get(), &seatListener_, this);
    }

    [[nodiscard]] bool hasPointer() const { return pointer_ != nullptr; }

  private:
    /// A device that went and came again is another object.
    void take(std::uint32_t capabilities) {
        if ((capabilities & WL_SEAT_CAPABILITY_POINTER) == 0) {
            pointer_.reset();
        } else if (!pointer_) {
            pointer_.reset(wl_seat_get_pointer(seat_.get()));
            wl_pointer_add_listener(pointer_.get(), &pointerListener_, this);
        }
        if ((capabilities & WL_SEAT_CAPABILITY_TOUCH) == 0) {
            touch_.reset();
        } else if (!touch_) {
            touch_.reset(wl_seat_get_touch(seat_.get()));
            wl_touch_add_listener(touch_.get(), &touchListener_, this);
        }
    }

    void entered(std::uint32_t serial, const wl_surface* surface, Point place) {
        for (const auto& cover : catcher_.covers_) {
            if (cover->has(surface) && !cover->facts.pointer) {
                cover->facts.pointer = place;
            }
        }
        enterSerial_ = serial;
    }

    /// Over a surface that gives it no picture the pointer may be invisible. Reading the theme
    /// takes too long for doing it before the popover is shown.
    void showCursor(std::uint32_t serial) {
        const Objects& objects = *catcher_.objects_;
        if (!cursors_) {
            const char* size = std::getenv("XCURSOR_SIZE");
            cursors_.reset(wl_cursor_theme_load(std::getenv("XCURSOR_THEME"),
                                                size ? std::atoi(size) : usualCursorSize,
                                                objects.memory.get()));
            cursor_.reset(wl_compositor_create_surface(objects.compositor.get()));
        }
        wl_cursor* arrow =
            cursors_ ? wl_cursor_theme_get_cursor(cursors_.get(), "left_ptr") : nullptr;
        if (!arrow) {
            return;
        }
        wl_cursor_image& image = *arrow->images[0];
        wl_surface_attach(cursor_.get(), wl_cursor_image_get_buffer(&image), 0, 0);
        wl_surface_damage(cursor_.get(), 0, 0, static_cast<int>(image.width),
                          static_cast<int>(image.height));
        wl_surface_commit(cursor_.get());
        wl_pointer_set_cursor(pointer_.get(), serial, cursor_.get(),
                              static_cast<int>(image.hotspot_x), static_cast<int>(image.hotspot_y));
    }

    OutsideCatcher& catcher_;
    /// Of an arrival since which the pointer has not moved.
    std::optional<std::uint32_t> enterSerial_;
    wl_seat_listener seatListener_{};
    wl_pointer_listener pointerListener_{};
    wl_touch_listener touchListener_{};
    WaylandProxy<wl_seat> seat_;
    WaylandProxy<wl_pointer> pointer_;
    WaylandProxy<wl_touch> touch_;
    Owned<wl_cursor_theme, wl_cursor_theme_destroy> cursors_;
    WaylandProxy<wl_surface> cursor_;
};

OutsideCatcher::OutsideCatcher(std::chrono::milliseconds timeout, std::function<void()> onPress)
    : onPress_(std::move(onPress)), objects_(std::make_unique<Objects>()) {
    if (!connection_.isAlive()) {
        return;
    }
    Objects& objects = *objects_;
    objects.compositor = connection_.bindFirst<wl_compositor>(wl_compositor_interface, 4);
    objects.memory = connection_.bindFirst<wl_shm>(wl_shm_interface, 1);
    objects.viewporter = connection_.bindFirst<wp_viewporter>(wp_viewporter_interface, 1);
    objects.shell = connection_.bindFirst<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, 1);
    if (!objects.compositor || !objects.memory || !objects.viewporter || !objects.shell) {
        return;
    }
    objects.pixel = makePixel(objects.memory.get());
    input_ = std::make_unique<Input>(*this);
    for (auto& output : connection_.bindAll<wl_output>(wl_output_interface, 4)) {
        covers_.push_back(std::make_unique<Cover>(objects, std::move(output)));
    }
    if (!objects.pixel ||
        !connection_.dispatchUntil(
            [this] { return std::ranges::all_of(covers_, &Cover::isConfigured); }, answerTime)) {
        covers_.clear();
        return;
    }
    std::ranges::for_each(covers_, [](const auto& cover) { cover->endProbe(); });
    const auto isTold = [](const auto& cover) { return cover->facts.pointer.has_value(); };
    if (input_->hasPointer()) {
        connection_.dispatchUntil([&] { return std::ranges::any_of(covers_, isTold); }, timeout);
    }
    connection_.roundTrip(answerTime);

    auto* notifier = new QSocketNotifier(wl_display_get_fd(connection_.display()),
                                         QSocketNotifier::Read, &context_);
    QObject::connect(notifier, &QSocketNotifier::activated, &context_,
                     [this, notifier] { notifier->setEnabled(connection_.dispatchArrived()); });
}

OutsideCatcher::~OutsideCatcher() = default;

void OutsideCatcher::notifyPress() {
    // The action may end this object.
    QTimer::singleShot(0, &context_, [this] {
        if (const auto action = onPress_) {
            action();
        }
    });
}

std::vector<OutsideCatcher::Output> OutsideCatcher::outputs() const {
    std::vector<Output> outputs;
    outputs.reserve(covers_.size());
    for (const auto& cover : covers_) {
        outputs.push_back(cover->facts);
    }
    return outputs;
}

void OutsideCatcher::setHoles(const std::string& output, const std::vector<Rect>& holes) {
    for (const auto& cover : covers_) {
        if (cover->facts.name == output && cover->holes != holes) {
            cover->holes = holes;
            cover->setInputArea(isCatching_);
        }
    }
    wl_display_flush(connection_.display());
}

void OutsideCatcher::setCatching(bool isCatching) {
    if (std::exchange(isCatching_, isCatching) != isCatching && !covers_.empty()) {
        std::ranges::for_each(covers_, [&](const auto& cover) { cover->setInputArea(isCatching); });
        wl_display_flush(connection_.display());
    }
}

} // namespace calmora
