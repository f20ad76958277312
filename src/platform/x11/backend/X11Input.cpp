#include "platform/x11/backend/X11Input.h"

#include <QAbstractEventDispatcher>
#include <QGuiApplication>

#include <array>
#include <string>
#include <xcb/xcb_aux.h>
#include <xcb/xcb_keysyms.h>
#include <xcb/xinput.h>

namespace calmora {

namespace {

constexpr xcb_keysym_t keysymAltL = 0xffe9;
constexpr xcb_keysym_t keysymSuperL = 0xffeb;
constexpr std::uint8_t generatedEvent = 0x80;

struct KeySymbolsFree {
    void operator()(xcb_key_symbols_t* symbols) const { xcb_key_symbols_free(symbols); }
};

xcb_atom_t atomNamed(xcb_connection_t* connection, const std::string& name) {
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
        nullptr));
    return reply ? reply->atom : XCB_NONE;
}

} // namespace

X11Input::X11Input() {
    int screenNumber = 0;
    connection_.reset(xcb_connect(nullptr, &screenNumber));
    xcb_connection_t* connection = connection_.get();
    const xcb_screen_t* screen = xcb_aux_get_screen(connection, screenNumber);
    const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (xcb_connection_has_error(connection) != 0 || !screen || !native) {
        return;
    }
    root_ = screen->root;
    const xcb_setup_t* setup = xcb_get_setup(native->connection());
    qtResourceBase_ = setup->resource_id_base;
    qtResourceMask_ = setup->resource_id_mask;
    compositor_ = atomNamed(connection, "_NET_WM_CM_S" + std::to_string(screenNumber));

    clockProperty_ = atomNamed(connection, "_CALMORA_CLOCK");
    clockWindow_ = xcb_generate_id(connection);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, clockWindow_, root_, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    xcb_flush(connection);

    notifier_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection),
                                                  QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, &context_,
                     [this] { dispatch(); });
    // A round trip may have read events along with its reply: the descriptor stays silent then.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                     &context_, [this] { dispatchQueued(); });
}

xcb_window_t X11Input::keyboardOwner() const {
    const XcbReply<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
        connection_.get(), xcb_get_input_focus(connection_.get()), nullptr));
    return reply ? reply->focus : XCB_NONE;
}

void X11Input::giveKeyboard(xcb_window_t window) const {
    setKeyboardOwner(window, XCB_CURRENT_TIME);
    // Window managers give the keyboard with the time of the last event that they saw, and the
    // server ignores what is older than our request. This event brings them up to date.
    touchClock(root_);
    xcb_flush(connection_.get());
}

void X11Input::passKeyboard(xcb_window_t from, xcb_window_t to, xcb_timestamp_t time) const {
    // Nobody may take it between the question and the answer.
    xcb_grab_server(connection_.get());
    if (keyboardOwner() == from) {
        setKeyboardOwner(isViewable(to) ? to : xcb_window_t{XCB_NONE}, time);
        touchClock(root_);
    }
    xcb_ungrab_server(connection_.get());
    xcb_flush(connection_.get());
}

void X11Input::setKeyboardOwner(xcb_window_t window, xcb_timestamp_t time) const {
    xcb_set_input_focus(connection_.get(), XCB_INPUT_FOCUS_POINTER_ROOT,
                        window == XCB_NONE ? xcb_window_t{XCB_INPUT_FOCUS_POINTER_ROOT} : window,
                        time);
}

void X11Input::touchClock(xcb_window_t window) const {
    xcb_change_property(connection_.get(), XCB_PROP_MODE_APPEND, window, clockProperty_,
                        XCB_ATOM_STRING, 8, 0, nullptr);
}

bool X11Input::isViewable(xcb_window_t window) const {
    const XcbReply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        connection_.get(), xcb_get_window_attributes(connection_.get(), window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

xcb_window_t X11Input::topLevel(xcb_window_t window) const {
    while (window != XCB_NONE) {
        const XcbReply<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(
            connection_.get(), xcb_query_tree(connection_.get(), window), nullptr));
        if (!reply || reply->parent == XCB_NONE) {
            return XCB_NONE;
        }
        if (reply->parent == root_) {
            return window;
        }
        window = reply->parent;
    }
    return XCB_NONE;
}

xcb_window_t X11Input::topLevelUnderPointer() const {
    const XcbReply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        connection_.get(), xcb_query_pointer(connection_.get(), root_), nullptr));
    return reply ? reply->child : XCB_NONE;
}

bool X11Input::isOurs(xcb_window_t window) const {
    return window != XCB_NONE && (window & ~qtResourceMask_) == qtResourceBase_;
}

bool X11Input::isComposited() const {
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection_.get(), xcb_get_selection_owner(connection_.get(), compositor_), nullptr));
    return reply && reply->owner != XCB_NONE;
}

Subscription X11Input::watchScreen() {
    if (inputExtension_ == 0) {
        xcb_connection_t* connection = connection_.get();
        const xcb_query_extension_reply_t* extension =
            xcb_get_extension_data(connection, &xcb_input_id);
        if (extension && extension->present != 0) {
            inputExtension_ = extension->major_opcode;
            // The server treats a client that does not ask for 2.x as one of the old protocol.
            xcb_discard_reply(connection, xcb_input_xi_query_version(connection, 2, 2).sequence);
        }
    }
    if (screenWatches_++ == 0) {
        selectScreenEvents();
    }
    return Subscription([this] {
        if (--screenWatches_ == 0) {
            selectScreenEvents();
        }
    });
}

void X11Input::selectScreenEvents() const {
    xcb_connection_t* connection = connection_.get();
    const auto chosen = [this](std::uint32_t mask) { return screenWatches_ > 0 ? mask : 0U; };
    const std::uint32_t windows = chosen(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    xcb_change_window_attributes(connection, root_, XCB_CW_EVENT_MASK, &windows);
    if (inputExtension_ != 0) {
        struct {
            xcb_input_event_mask_t head;
            std::uint32_t mask;
        } raw{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, chosen(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS)};

        xcb_input_xi_select_events(connection, root_, 1, &raw.head);
    }
    xcb_flush(connection);
}

std::optional<X11Input::RawPress> X11Input::rawPress(const xcb_generic_event_t& event) const {
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if ((event.response_type & ~generatedEvent) != XCB_GE_GENERIC ||
        generic.extension != inputExtension_ || generic.event_type != XCB_INPUT_RAW_BUTTON_PRESS) {
        return std::nullopt;
    }
    const auto& press = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
    return RawPress{press.detail, press.time};
}

std::optional<ModifierFlags> X11Input::modifiers() {
    const XcbReply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        connection_.get(), xcb_query_pointer(connection_.get(), root_), nullptr));
    if (!reply) {
        return std::nullopt;
    }
    if (!masks_) {
        readModifierMap();
    }
    ModifierFlags flags;
    const auto add = [&](std::uint16_t mask, std::uint32_t flag) {
        flags.mask |= (reply->mask & mask) != 0 ? flag : 0;
    };
    add(XCB_MOD_MASK_SHIFT, ModifierFlags::shift);
    add(XCB_MOD_MASK_CONTROL, ModifierFlags::control);
    add(masks_->option, ModifierFlags::option);
    add(masks_->command, ModifierFlags::command);
    return flags;
}

std::optional<xcb_timestamp_t> X11Input::serverTime() {
    xcb_connection_t* connection = connection_.get();
    touchClock(clockWindow_);
    xcb_flush(connection);
    while (const XcbReply<xcb_generic_event_t> event{xcb_wait_for_event(connection)}) {
        if ((event->response_type & ~generatedEvent) == XCB_PROPERTY_NOTIFY) {
            return reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->time;
        }
        handle(*event);
    }
    return std::nullopt;
}

void X11Input::dispatch() {
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        handle(*event);
    }
    if (xcb_connection_has_error(connection_.get()) != 0) {
        notifier_->setEnabled(false);
    }
}

void X11Input::dispatchQueued() {
    while (
        const XcbReply<xcb_generic_event_t> event{xcb_poll_for_queued_event(connection_.get())}) {
        handle(*event);
    }
}

void X11Input::handle(const xcb_generic_event_t& event) {
    if ((event.response_type & ~generatedEvent) == XCB_MAPPING_NOTIFY) {
        masks_.reset();
    }
    event_.emit(event);
}

void X11Input::readModifierMap() {
    masks_.emplace();
    const XcbReply<xcb_get_modifier_mapping_reply_t> map(xcb_get_modifier_mapping_reply(
        connection_.get(), xcb_get_modifier_mapping(connection_.get()), nullptr));
    const std::unique_ptr<xcb_key_symbols_t, KeySymbolsFree> symbols(
        xcb_key_symbols_alloc(connection_.get()));
    if (!map || !symbols) {
        return;
    }
    // Eight modifiers, each with the same number of key codes; 0 fills up.
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(map.get());
    const int perModifier = map->keycodes_per_modifier;
    for (int index = 0; index < 8 * perModifier; ++index) {
        if (codes[index] == 0) {
            continue;
        }
        const auto bit = static_cast<std::uint16_t>(1U << (index / perModifier));
        for (int column = 0; column < 2; ++column) {
            const xcb_keysym_t symbol =
                xcb_key_symbols_get_keysym(symbols.get(), codes[index], column);
            masks_->option |= symbol == keysymAltL ? bit : std::uint16_t{0};
            masks_->command |= symbol == keysymSuperL ? bit : std::uint16_t{0};
        }
    }
}

} // namespace calmora
