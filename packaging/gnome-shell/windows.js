// SPDX-License-Identifier: MIT
import GLib from 'gi://GLib';
import Meta from 'gi://Meta';
import Shell from 'gi://Shell';

import {Subscriptions} from './subscriptions.js';

const {WindowType} = Meta;
const closableTypes = new Set([WindowType.NORMAL, WindowType.DIALOG, WindowType.MODAL_DIALOG,
    WindowType.UTILITY]);
// Menus, tool tips and the like are left out.
const listedTypes = new Set([...closableTypes, WindowType.DESKTOP, WindowType.DOCK,
    WindowType.TOOLBAR, WindowType.MENU, WindowType.SPLASHSCREEN]);

// What a description may change with.
const describedProperties = ['wm-class', 'gtk-application-id', 'gtk-unique-bus-name',
    'gtk-application-object-path', 'skip-taskbar', 'window-type', 'fullscreen', 'demands-attention'];

// Several changes within this time, in milliseconds, are announced as one.
const settleTime = 50;

function allWindows() {
    return global.display.list_all_windows()
        .filter(w => !w.is_override_redirect() && listedTypes.has(w.get_window_type()))
        .sort((a, b) => a.get_stable_sequence() - b.get_stable_sequence());
}

/** The listed window with this id, or undefined. */
export function findWindow(id) {
    return allWindows().find(window => window.get_id() === id);
}

/** The X window of a client of the X server, 0 for a Wayland window. */
export function xWindowOf(window) {
    if (window.get_client_type() !== Meta.WindowClientType.X11)
        return 0;
    // There is no other way to it on all releases: "0x1c00007", in some with a title behind.
    return Number(/^0x[0-9a-f]+/.exec(window.get_description())?.[0] ?? 0);
}

/** Full screen, and seen now: not minimised, and on the workspace that is shown. */
function isFullScreen(window) {
    return window.is_fullscreen() && !window.minimized &&
        window.located_on_workspace(global.workspace_manager.get_active_workspace());
}

function describe(window) {
    const app = Shell.WindowTracker.get_default().get_window_app(window)?.get_id();
    const facts = {
        id: new GLib.Variant('t', window.get_id()),
        pid: new GLib.Variant('i', window.get_pid()),
        x11: new GLib.Variant('b', window.get_client_type() === Meta.WindowClientType.X11),
        type: new GLib.Variant('u', window.get_window_type()),
        skip: new GLib.Variant('b', window.is_skip_taskbar()),
        close: new GLib.Variant('b', window.can_close()),
        parent: new GLib.Variant('t', window.get_transient_for()?.get_id() ?? 0),
        full: new GLib.Variant('b', isFullScreen(window)),
        attention: new GLib.Variant('b', window.demands_attention),
    };
    const xWindow = xWindowOf(window);
    if (xWindow)
        facts.xid = new GLib.Variant('u', xWindow);
    const texts = {
        // An application without a desktop entry is "window:N".
        'app': app?.startsWith('window:') ? null : app,
        'sandbox': window.get_sandboxed_app_id(),
        'class': window.get_wm_class(),
        'instance': window.get_wm_class_instance(),
        'gtk-id': window.get_gtk_application_id(),
        'gtk-bus': window.get_gtk_unique_bus_name(),
        'gtk-path': window.get_gtk_application_object_path(),
    };
    for (const [key, text] of Object.entries(texts)) {
        if (text)
            facts[key] = new GLib.Variant('s', text);
    }
    return facts;
}

/** What is known of every window, in the order of their creation; no titles. */
export function describeWindows() {
    return allWindows().map(describe);
}

/** The window that has the focus, 0 for none. */
export function focusedWindow() {
    return global.display.get_focus_window()?.get_id() ?? 0;
}

/**
 * Asks windows to close, as their close buttons do; gives the ids of those that were asked. Only
 * Wayland windows: the shell kills the X11 client of a window that does not support the request.
 */
export function closeWindows(ids) {
    const wanted = new Set(ids);
    const asked = allWindows().filter(window => wanted.has(window.get_id()) &&
        window.get_client_type() === Meta.WindowClientType.WAYLAND &&
        closableTypes.has(window.get_window_type()) && window.can_close());
    for (const window of asked)
        window.delete(global.display.get_current_time_roundtrip());
    return asked.map(window => window.get_id());
}

/** Reports changes of the windows and of the focus until destroy(). */
export class WindowWatch {
    /**
     * @param {Function} changed - gets a Variant (aa{sv}) when a description has changed
     * @param {Function} focusChanged - gets the id of the window that has the focus, 0 for none
     */
    constructor(changed, focusChanged) {
        this._changed = changed;
        this._known = this._read();
        this._ofWindow = new Map();
        this._ofShell = new Subscriptions();
        const {display} = global;
        this._ofShell.connect(display, 'window-created', (_, window) => {
            this._watch(window);
            this._queue();
        });
        this._ofShell.connect(display, 'notify::focus-window', () => focusChanged(focusedWindow()));
        this._ofShell.connect(global.window_manager, 'map', () => this._queue());
        this._ofShell.connect(Shell.WindowTracker.get_default(), 'tracked-windows-changed',
            () => this._queue());
        for (const window of display.list_all_windows())
            this._watch(window);
    }

    destroy() {
        this._ofShell.clear();
        this._ofWindow.forEach(subscriptions => subscriptions.clear());
        this._ofWindow.clear();
        if (this._timer)
            GLib.source_remove(this._timer);
        this._timer = 0;
    }

    _watch(window) {
        const subscriptions = new Subscriptions();
        this._ofWindow.set(window, subscriptions);
        for (const property of describedProperties)
            subscriptions.connect(window, `notify::${property}`, () => this._queue());
        subscriptions.connect(window, 'unmanaged', () => {
            this._ofWindow.delete(window);
            subscriptions.clear();
            this._queue();
        });
    }

    _read() {
        return new GLib.Variant('(aa{sv})', [describeWindows()]);
    }

    _queue() {
        this._timer ||= GLib.timeout_add(GLib.PRIORITY_DEFAULT, settleTime, () => {
            this._timer = 0;
            const now = this._read();
            if (!now.equal(this._known)) {
                this._known = now;
                this._changed(now);
            }
            return GLib.SOURCE_REMOVE;
        });
    }
}
