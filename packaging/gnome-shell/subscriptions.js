// SPDX-License-Identifier: MIT

/** Signal handlers that are disconnected together. */
export class Subscriptions {
    constructor() {
        this._connected = [];
    }

    /** Calls `handler` at each `signal` of `object` until clear(). */
    connect(object, signal, handler) {
        this._connected.push([object, object.connect(signal, handler)]);
    }

    /** Disconnects everything. */
    clear() {
        for (const [object, id] of this._connected)
            object.disconnect(id);
        this._connected = [];
    }
}
