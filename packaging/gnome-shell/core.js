// SPDX-License-Identifier: MIT
// What Calmora cannot do on GNOME from outside of the shell: it sees the windows, asks them to close,
// shows the icon in the top bar, puts the popover below it and passes global keys on. What is quit, and
// when, the program decides.
import Gio from 'gi://Gio';
import GLib from 'gi://GLib';

import {Icon} from './icon.js';
import {Keys} from './keys.js';
import {Popover} from './popover.js';
import {program} from './program.js';
import {WindowWatch, closeWindows, describeWindows, findWindow, focusedWindow} from './windows.js';

const clientName = 'app.calmora.Calmora';
const ownName = 'app.calmora.Calmora.Shell';
const path = '/app/calmora/Calmora/Shell';
const interfaceName = 'app.calmora.Calmora.Shell1';

const description = `<node><interface name="${interfaceName}">
  <property name="Version" type="u" access="read"/>
  <method name="Attach">
    <arg name="options" type="a{sv}" direction="in"/>
    <arg name="state" type="a{sv}" direction="out"/>
  </method>
  <method name="Windows">
    <arg name="windows" type="aa{sv}" direction="out"/>
    <arg name="focus" type="t" direction="out"/>
  </method>
  <method name="Close">
    <arg name="windows" type="at" direction="in"/>
    <arg name="asked" type="at" direction="out"/>
  </method>
  <method name="Raise">
    <arg name="window" type="t" direction="in"/>
    <arg name="found" type="b" direction="out"/>
  </method>
  <method name="SetIcon"><arg name="options" type="a{sv}" direction="in"/></method>
  <method name="SetMenu"><arg name="items" type="a(usb)" direction="in"/></method>
  <method name="SetPopover">
    <arg name="xWindow" type="t" direction="in"/>
    <arg name="title" type="s" direction="in"/>
  </method>
  <method name="GrabKeys">
    <arg name="accelerators" type="as" direction="in"/>
    <arg name="ids" type="au" direction="out"/>
  </method>
  <signal name="WindowsChanged"><arg name="windows" type="aa{sv}"/></signal>
  <signal name="FocusChanged"><arg name="window" type="t"/></signal>
  <signal name="IconActivated"><arg name="button" type="u"/><arg name="rect" type="(iiii)"/></signal>
  <signal name="MenuOpened"><arg name="open" type="b"/></signal>
  <signal name="MenuActivated"><arg name="id" type="u"/></signal>
  <signal name="KeyPressed"><arg name="id" type="u"/><arg name="time" type="u"/></signal>
  <signal name="PressedOutside"/>
</interface></node>`;

/** Everything that the shell holds for the attached program, until destroy(). */
class Session {
    /**
     * @param {object} shell - see Helper
     * @param {number} pid - of the program
     * @param {Function} emit - sends the program a signal: its name, and a Variant or null
     */
    constructor(shell, pid, emit) {
        this._shell = shell;
        this._windows = new WindowWatch(
            windows => emit('WindowsChanged', windows),
            window => emit('FocusChanged', new GLib.Variant('(t)', [window])));
        this.keys = new Keys(shell.Main,
            (id, time) => emit('KeyPressed', new GLib.Variant('(uu)', [id, time])));
        this._icon = new Icon(shell, {
            activated: (button, rect) =>
                emit('IconActivated', new GLib.Variant('(u(iiii))', [button, rect])),
            menuOpened: open => {
                if (open && this.popover.isShown)
                    emit('PressedOutside', null);
                emit('MenuOpened', new GLib.Variant('(b)', [open]));
            },
            menuActivated: id => emit('MenuActivated', new GLib.Variant('(u)', [id])),
        });
        this.popover = new Popover(shell.Main, pid, this._icon, () => emit('PressedOutside', null));
    }

    destroy() {
        this.popover.destroy();
        this._icon.destroy();
        this.keys.destroy();
        this._windows.destroy();
    }

    setIcon(options) {
        this._icon.set(options.icon?.deepUnpack() ?? null, options.title?.deepUnpack() ?? null);
    }

    setMenu(items) {
        this._icon.setMenu(items);
    }

    raise(id) {
        const window = findWindow(id);
        if (window)
            this._shell.Main.activateWindow(window, global.display.get_current_time_roundtrip());
        return Boolean(window);
    }

    get state() {
        return {
            'windows': new GLib.Variant('aa{sv}', describeWindows()),
            'focus': new GLib.Variant('t', focusedWindow()),
            'shell': new GLib.Variant('s', this._shell.version),
            'icon-rect': new GLib.Variant('(iiii)', this._icon.rect),
        };
    }
}

async function askBus(method, name, type) {
    const reply = await new Promise((resolve, reject) => {
        Gio.DBus.session.call('org.freedesktop.DBus', '/org/freedesktop/DBus', 'org.freedesktop.DBus',
            method, new GLib.Variant('(s)', [name]), new GLib.VariantType(type),
            Gio.DBusCallFlags.NONE, 1000, null, (bus, result) => {
                try {
                    resolve(bus.call_finish(result));
                } catch (error) {
                    reject(error);
                }
            });
    });
    return reply.deepUnpack()[0];
}

/**
 * The process of a caller that is Calmora, or null: the owner of its name whose executable is the
 * installed program, or was before an upgrade.
 */
async function trustedProcess(caller) {
    try {
        const owner = await askBus('GetNameOwner', clientName, '(s)');
        const pid = await askBus('GetConnectionUnixProcessID', caller, '(u)');
        const executable = GLib.file_read_link(`/proc/${pid}/exe`).replace(/ \(deleted\)$/, '');
        return owner === caller && executable === program ? pid : null;
    } catch {
        return null;
    }
}

/**
 * Serves the program on the session bus, until destroy(). Only one caller is served: the program that
 * has attached last, as long as it is on the bus.
 */
export class Helper {
    /**
     * @param {object} shell - modules that releases load in different ways: Main, PanelMenu,
     *     PopupMenu; and version, a text
     */
    constructor(shell) {
        this._shell = shell;
        this._client = null;
        this._object = Gio.DBusExportedObject.wrapJSObject(description, this);
        this._object.export(Gio.DBus.session, path);
        this._name = Gio.bus_own_name_on_connection(Gio.DBus.session, ownName,
            Gio.BusNameOwnerFlags.NONE, null, null);
    }

    destroy() {
        this._detach();
        Gio.bus_unown_name(this._name);
        this._object.unexport();
        this._object = null;
    }

    get Version() {
        return 1;
    }

    async AttachAsync([options], invocation) {
        const caller = invocation.get_sender();
        const pid = await trustedProcess(caller);
        if (pid === null || !this._object) {
            this._refuse(invocation);
            return;
        }
        this._detach();
        try {
            this._attach(caller, pid, options);
        } catch (error) {
            this._detach();
            this._fail(invocation, error);
            return;
        }
        this._serve(invocation, session => new GLib.Variant('(a{sv})', [session.state]));
    }

    WindowsAsync(_, invocation) {
        this._serve(invocation,
            () => new GLib.Variant('(aa{sv}t)', [describeWindows(), focusedWindow()]));
    }

    CloseAsync([windows], invocation) {
        this._serve(invocation, () => new GLib.Variant('(at)', [closeWindows(windows)]));
    }

    RaiseAsync([window], invocation) {
        this._serve(invocation, session => new GLib.Variant('(b)', [session.raise(window)]));
    }

    SetIconAsync([options], invocation) {
        this._serve(invocation, session => session.setIcon(options));
    }

    SetMenuAsync([items], invocation) {
        this._serve(invocation, session => session.setMenu(items));
    }

    SetPopoverAsync([xWindow, title], invocation) {
        this._serve(invocation, session => session.popover.identify(xWindow, title));
    }

    GrabKeysAsync([accelerators], invocation) {
        this._serve(invocation,
            session => new GLib.Variant('(au)', [session.keys.grab(accelerators)]));
    }

    // Answers the attached program with what `answer` gives, and nobody else.
    _serve(invocation, answer) {
        if (invocation.get_sender() !== this._client?.name) {
            this._refuse(invocation);
            return;
        }
        try {
            invocation.return_value(answer(this._client.session) ?? null);
        } catch (error) {
            this._fail(invocation, error);
        }
    }

    _refuse(invocation) {
        invocation.return_dbus_error('org.freedesktop.DBus.Error.AccessDenied',
            'Only Calmora may call this');
    }

    _fail(invocation, error) {
        logError(error, 'Calmora');
        invocation.return_dbus_error('org.freedesktop.DBus.Error.Failed', `${error}`);
    }

    _attach(name, pid, options) {
        this._client = {name};
        this._client.session = new Session(this._shell, pid, (signal, values) =>
            Gio.DBus.session.emit_signal(name, path, interfaceName, signal, values));
        this._client.session.setIcon(options);
        // Calls back at once where the program has gone while it was looked at.
        this._client.watch = Gio.bus_watch_name_on_connection(Gio.DBus.session, name,
            Gio.BusNameWatcherFlags.NONE, null, () => this._detach());
    }

    _detach() {
        const client = this._client;
        this._client = null;
        if (client?.watch)
            Gio.bus_unwatch_name(client.watch);
        client?.session?.destroy();
    }
}
