// SPDX-License-Identifier: MIT
import Clutter from 'gi://Clutter';
import GLib from 'gi://GLib';
import St from 'gi://St';

import {Subscriptions} from './subscriptions.js';
import {xWindowOf} from './windows.js';

// Between the popover and the panel, and to the edges of the screen, in logical pixels.
const gap = 8;

// Since GNOME 48 the stage sees some presses into windows, such as the first of a session.
function isOnWindow(event) {
    const actor = global.stage.get_event_actor(event);
    return global.get_window_actors().some(window => window.contains(actor));
}

/** Puts the program's popover below the icon and gives it the focus, until destroy(). */
export class Popover {
    /**
     * @param {object} Main - ui/main.js of the shell
     * @param {number} pid - of the program
     * @param {Icon} icon - what the popover belongs to
     * @param {Function} pressedOutside - called for a press on a part of the shell other than the
     *     icon while the popover is shown; a press into another window moves the focus instead
     */
    constructor(Main, pid, icon, pressedOutside) {
        this._Main = Main;
        this._pid = pid;
        this._icon = icon;
        this._pressedOutside = pressedOutside;
        this._window = null;
        this._ofWindow = new Subscriptions();
        this._ofShell = new Subscriptions();
        this._ofShell.connect(global.window_manager, 'map', (_, actor) => this._adopt(actor.meta_window));
    }

    destroy() {
        this._ofShell.clear();
        this._abandon();
    }

    /** How the popover's window is known: by its X window or, where that is 0, by its title. */
    identify(xWindow, title) {
        this._xWindow = xWindow;
        this._title = title;
        for (const actor of global.get_window_actors())
            this._adopt(actor.meta_window);
    }

    /** Whether the popover is shown. */
    get isShown() {
        return this._window !== null;
    }

    _isPopover(window) {
        if (window.get_pid() !== this._pid)
            return false;
        return this._xWindow ? xWindowOf(window) === this._xWindow
            : Boolean(this._title) && window.get_title() === this._title;
    }

    _adopt(window) {
        if (window === this._window || !this._isPopover(window))
            return;
        this._abandon();
        this._window = window;
        this._ofWindow.connect(window, 'unmanaging', () => this._abandon());
        this._ofWindow.connect(window, 'size-changed', () => this._place());
        this._ofWindow.connect(global.stage, 'captured-event', (_, event) => this._onEvent(event));
        this._place();
        // Not while the window is being mapped or drawn: mutter may abort, and the session with it.
        this._idle = GLib.idle_add(GLib.PRIORITY_HIGH_IDLE, () => {
            this._idle = 0;
            this._place();
            window.make_above();
            // Hides the overview, too.
            this._Main.activateWindow(window, global.display.get_current_time_roundtrip());
            return GLib.SOURCE_REMOVE;
        });
    }

    _abandon() {
        this._ofWindow.clear();
        if (this._idle)
            GLib.source_remove(this._idle);
        this._idle = 0;
        this._window = null;
    }

    _place() {
        const [x, y, width, height] = this._icon.rect;
        const margin = gap * St.ThemeContext.get_for_stage(global.stage).scale_factor;
        const area = this._Main.layoutManager.getWorkAreaForMonitor(this._icon.monitor.index);
        const frame = this._window.get_frame_rect();
        const left = Math.max(area.x + margin, Math.min(
            Math.round(x + width / 2 - frame.width / 2),
            area.x + area.width - frame.width - margin));
        // Some extensions move the top bar to the bottom.
        const top = y + height / 2 < area.y + area.height / 2 ? area.y + margin
            : area.y + area.height - frame.height - margin;
        if (frame.x !== left || frame.y !== top)
            this._window.move_frame(true, left, top);
    }

    _onEvent(event) {
        const type = event.type();
        const isPress =
            type === Clutter.EventType.BUTTON_PRESS || type === Clutter.EventType.TOUCH_BEGIN;
        if (isPress && !this._icon.contains(...event.get_coords()) && !isOnWindow(event))
            this._pressedOutside();
        return Clutter.EVENT_PROPAGATE;
    }
}
