// SPDX-License-Identifier: MIT
import Meta from 'gi://Meta';
import Shell from 'gi://Shell';

/** Key combinations that work in every application and in the overview, until destroy(). */
export class Keys {
    /**
     * @param {object} Main - ui/main.js of the shell
     * @param {Function} pressed - gets the id of the combination and the time of the key press
     */
    constructor(Main, pressed) {
        this._Main = Main;
        this._actions = new Set();
        this._signal = global.display.connect('accelerator-activated', (_, action, device, time) => {
            if (this._actions.has(action))
                pressed(action, time);
        });
    }

    /**
     * Grabs these in place of all before. Gives an id for each, 0 where it is refused: something else
     * has grabbed it. An accelerator may end with a keycode of X, as in "<Control><Alt>0x2e".
     */
    grab(accelerators) {
        this._release();
        return accelerators.map(accelerator => {
            const action = global.display.grab_accelerator(accelerator,
                Meta.KeyBindingFlags.IGNORE_AUTOREPEAT);
            if (action === Meta.KeyBindingAction.NONE)
                return 0;
            this._actions.add(action);
            this._allow(action, Shell.ActionMode.NORMAL | Shell.ActionMode.OVERVIEW);
            return action;
        });
    }

    destroy() {
        this._release();
        global.display.disconnect(this._signal);
    }

    _release() {
        for (const action of this._actions) {
            global.display.ungrab_accelerator(action);
            this._allow(action, Shell.ActionMode.NONE);
        }
        this._actions.clear();
    }

    _allow(action, modes) {
        this._Main.wm.allowKeybinding(Meta.external_binding_name_for_action(action), modes);
    }
}
