// SPDX-License-Identifier: MIT
#include "platform/x11/backend/X11Input.h"

#include "platform/x11/hotkeys/X11ModifierMap.h"

#include <QAbstractEventDispatcher>
#include <QGuiApplication>

#include <xcb/xinput.h>

namespace calmora {

X11Input::X11Input() {
    xcb_connection_t* connection = connection_.get();
    const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!connection_.isAlive() || !native) {
        return;
    }
    const xcb_setup_t* setup = xcb_get_setup(native->connection());
    qtResourceBase_ = setup->resource_id_base;
    qtResourceMask_ = setup->resource_id_mask;

    clockWindow_ = xcb_generate_id(connection);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, clockWindow_, connection_.root(), -1, -1, 1,
                      1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    xcb_flush(connection);

    notifier_ = std::make_unique<QSocketNotifier>(connection_.descriptor(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, &context_,
                     [this] { dispatch(); });
    // Events that came with a reply are in memory, which the descriptor does not show.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                     &context_, [this] { dispatchQueued(); });
}

xcb_window_t X11Input::focusedWindow() const {
    const auto reply = connection_.ask<xcb_get_input_focus, xcb_get_input_focus_reply>();
    return reply ? reply->focus : XCB_NONE;
}

void X11Input::grabFocus(xcb_window_t window) const {
    setFocus(window, XCB_CURRENT_TIME);
    // Window managers set the focus with the time of the last event that they saw, and the
    // server ignores what is older than our request. This event brings them up to date.
    touchClock(connection_.root());
    xcb_flush(connection_.get());
}

void X11Input::passFocus(xcb_window_t from, xcb_window_t to, xcb_timestamp_t time) const {
    // Nobody may take the focus between question and answer.
    xcb_grab_server(connection_.get());
    if (focusedWindow() == from) {
        setFocus(isViewable(to) ? to : xcb_window_t{XCB_NONE}, time);
        touchClock(connection_.root());
    }
    xcb_ungrab_server(connection_.get());
    xcb_flush(connection_.get());
}

void X11Input::setFocus(xcb_window_t window, xcb_timestamp_t time) const {
    xcb_set_input_focus(connection_.get(), XCB_INPUT_FOCUS_POINTER_ROOT,
                        window == XCB_NONE ? xcb_window_t{XCB_INPUT_FOCUS_POINTER_ROOT} : window,
                        time);
}

void X11Input::touchClock(xcb_window_t window) const {
    xcb_change_property(connection_.get(), XCB_PROP_MODE_APPEND, window,
                        connection_.atom(X11Atom::calmoraClock), XCB_ATOM_STRING, 8, 0, nullptr);
}

bool X11Input::isViewable(xcb_window_t window) const {
    const auto reply =
        connection_.ask<xcb_get_window_attributes, xcb_get_window_attributes_reply>(window);
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

xcb_window_t X11Input::topLevel(xcb_window_t window) const {
    while (window != XCB_NONE) {
        const auto reply = connection_.ask<xcb_query_tree, xcb_query_tree_reply>(window);
        if (!reply || reply->parent == XCB_NONE) {
            return XCB_NONE;
        }
        if (reply->parent == connection_.root()) {
            return window;
        }
        window = reply->parent;
    }
    return XCB_NONE;
}

xcb_window_t X11Input::topLevelUnderPointer() const {
    const auto reply =
        connection_.ask<xcb_query_pointer, xcb_query_pointer_reply>(connection_.root());
    return reply ? reply->child : XCB_NONE;
}

bool X11Input::isOurs(xcb_window_t window) const {
    return window != XCB_NONE && (window & ~qtResourceMask_) == qtResourceBase_;
}

bool X11Input::isComposited() const {
    const auto reply = connection_.ask<xcb_get_selection_owner, xcb_get_selection_owner_reply>(
        connection_.atom(X11Atom::selectionCompositor));
    return reply && reply->owner != XCB_NONE;
}

Subscription X11Input::watchScreen() {
    if (inputExtension_ == 0) {
        xcb_connection_t* connection = connection_.get();
        const xcb_query_extension_reply_t* extension =
            xcb_get_extension_data(connection, &xcb_input_id);
        if (extension && extension->present != 0) {
            inputExtension_ = extension->major_opcode;
            // Without this request the server treats the client as one of XInput 1.
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
    xcb_change_window_attributes(connection, connection_.root(), XCB_CW_EVENT_MASK, &windows);
    if (inputExtension_ != 0) {
        struct {
            xcb_input_event_mask_t head;
            std::uint32_t mask;
        } raw{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, chosen(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS)};

        xcb_input_xi_select_events(connection, connection_.root(), 1, &raw.head);
    }
    xcb_flush(connection);
}

std::optional<X11Input::RawPress> X11Input::rawPress(const xcb_generic_event_t& event) const {
    const auto& generic = eventAs<xcb_ge_generic_event_t>(event);
    if (eventType(event) != XCB_GE_GENERIC || generic.extension != inputExtension_ ||
        generic.event_type != XCB_INPUT_RAW_BUTTON_PRESS) {
        return std::nullopt;
    }
    const auto& press = eventAs<xcb_input_raw_button_press_event_t>(event);
    return RawPress{press.detail, press.time};
}

std::optional<ModifierFlags> X11Input::modifiers() {
    const auto reply =
        connection_.ask<xcb_query_pointer, xcb_query_pointer_reply>(connection_.root());
    if (!reply) {
        return std::nullopt;
    }
    if (!modifiers_) {
        modifiers_ = readModifierMap(connection_).modifiers;
    }
    ModifierFlags flags;
    const auto add = [&](X11ModifierMask mask, std::uint32_t flag) {
        flags.mask |= (reply->mask & mask) != 0 ? flag : 0;
    };
    add(X11Modifiers::shift, ModifierFlags::shift);
    add(X11Modifiers::control, ModifierFlags::control);
    add(modifiers_->option, ModifierFlags::option);
    add(modifiers_->command, ModifierFlags::command);
    return flags;
}

std::optional<xcb_timestamp_t> X11Input::serverTime() {
    touchClock(clockWindow_);
    // The server answers in order: the event arrives before the answer.
    static_cast<void>(focusedWindow());
    while (
        const X11Reply<xcb_generic_event_t> event{xcb_poll_for_queued_event(connection_.get())}) {
        if (eventType(*event) == XCB_PROPERTY_NOTIFY) {
            return eventAs<xcb_property_notify_event_t>(*event).time;
        }
        handle(*event);
    }
    return std::nullopt;
}

void X11Input::dispatch() {
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        handle(*event);
    }
    if (!connection_.isAlive()) {
        notifier_->setEnabled(false);
    }
}

void X11Input::dispatchQueued() {
    while (
        const X11Reply<xcb_generic_event_t> event{xcb_poll_for_queued_event(connection_.get())}) {
        handle(*event);
    }
}

void X11Input::handle(const xcb_generic_event_t& event) {
    if (eventType(event) == XCB_MAPPING_NOTIFY) {
        modifiers_.reset();
    }
    event_.emit(event);
}

} // namespace calmora
