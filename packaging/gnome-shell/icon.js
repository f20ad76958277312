// SPDX-License-Identifier: MIT
import Clutter from 'gi://Clutter';
import Gio from 'gi://Gio';
import St from 'gi://St';

import {Subscriptions} from './subscriptions.js';

const role = 'calmora';

/** The icon in the top bar, and its menu, until destroy(). */
export class Icon {
    /**
     * @param {object} shell - modules of the shell: Main, PanelMenu, PopupMenu
     * @param {object} reports - functions: activated(button, rect) with 1 for the left button or the
     *     keyboard and 2 for the middle one, menuOpened(open), menuActivated(id)
     */
    constructor(shell, reports) {
        this._shell = shell;
        this._reports = reports;
        this._waiting = new Subscriptions();
        this._image = new St.Icon({style_class: 'system-status-icon'});
        this._button = new shell.PanelMenu.Button(0.5, '', false);
        this._button.add_child(this._image);
        // Connected handlers run before the button's own, which opens the menu at any press.
        this._button.connect('event', (_, event) => this._onEvent(event));
        this._button.connect('popup-menu', () => this._openMenu());
        this._button.menu.connect('open-state-changed', (_, open) => reports.menuOpened(open));
        shell.Main.panel.addToStatusArea(role, this._button);
    }

    destroy() {
        this._waiting.clear();
        this._button.destroy();
    }

    /** Shows a symbolic icon, by file or by name, and its accessible name; null leaves one as it is. */
    set(icon, title) {
        if (icon?.startsWith('/'))
            this._image.gicon = Gio.FileIcon.new(Gio.File.new_for_path(icon));
        else if (icon)
            this._image.icon_name = icon;
        if (title !== null)
            this._button.accessible_name = title;
    }

    /** Sets the menu's items: id, title ("" for a separator), whether it can be chosen. */
    setMenu(items) {
        const {PopupMenu} = this._shell;
        const {menu} = this._button;
        menu.removeAll();
        for (const [id, title, enabled] of items) {
            if (!title) {
                menu.addMenuItem(new PopupMenu.PopupSeparatorMenuItem());
                continue;
            }
            const item = new PopupMenu.PopupMenuItem(title);
            item.setSensitive(enabled);
            item.connect('activate', () => this._reports.menuActivated(id));
            menu.addMenuItem(item);
        }
    }

    /** The icon's place on the stage: [x, y, width, height]. */
    get rect() {
        this._button.get_allocation_box(); // Lays a new icon out.
        const place = [...this._button.get_transformed_position(),
            ...this._button.get_transformed_size()];
        return place.map(length => Math.round(length) || 0);
    }

    /** Whether a point of the stage lies on the icon. */
    contains(x, y) {
        const [left, top, width, height] = this.rect;
        return x >= left && x < left + width && y >= top && y < top + height;
    }

    /** The screen that the icon is on. */
    get monitor() {
        const {layoutManager} = this._shell.Main;
        return layoutManager.findMonitorForActor(this._button) ?? layoutManager.primaryMonitor;
    }

    _onEvent(event) {
        switch (event.type()) {
        case Clutter.EventType.TOUCH_BEGIN:
            this._activate(Clutter.BUTTON_PRIMARY);
            return Clutter.EVENT_STOP;
        case Clutter.EventType.BUTTON_PRESS:
            if (event.get_button() === Clutter.BUTTON_SECONDARY)
                this._openMenu();
            else
                this._activate(event.get_button());
            return Clutter.EVENT_STOP;
        case Clutter.EventType.KEY_PRESS:
            if (![Clutter.KEY_Return, Clutter.KEY_KP_Enter, Clutter.KEY_space]
                .includes(event.get_key_symbol()))
                return Clutter.EVENT_PROPAGATE;
            this._activate(Clutter.BUTTON_PRIMARY);
            return Clutter.EVENT_STOP;
        default:
            return Clutter.EVENT_PROPAGATE;
        }
    }

    _activate(button) {
        const {overview} = this._shell.Main;
        this._button.menu.close();
        if (!overview.visible) {
            this._reports.activated(button, this.rect);
            return;
        }
        this._waiting.clear();
        this._waiting.connect(overview, 'hidden', () => {
            this._waiting.clear();
            this._reports.activated(button, this.rect);
        });
        overview.hide();
    }

    _openMenu() {
        this._button.menu.toggle();
    }
}
