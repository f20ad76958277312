// SPDX-License-Identifier: MIT
// Loads the extension in GNOME 45 and later, whose extensions are modules.
import * as Main from 'resource:///org/gnome/shell/ui/main.js';
import * as PanelMenu from 'resource:///org/gnome/shell/ui/panelMenu.js';
import * as PopupMenu from 'resource:///org/gnome/shell/ui/popupMenu.js';
import {PACKAGE_VERSION} from 'resource:///org/gnome/shell/misc/config.js';
import {Extension} from 'resource:///org/gnome/shell/extensions/extension.js';

import {Helper} from './core.js';

export default class CalmoraExtension extends Extension {
    enable() {
        this._helper = new Helper({Main, PanelMenu, PopupMenu, version: PACKAGE_VERSION});
    }

    disable() {
        this._helper?.destroy();
        this._helper = null;
    }
}
