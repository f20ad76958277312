// SPDX-License-Identifier: MIT
// Loads the extension in GNOME 43 and 44, whose extensions are scripts. The rest are modules.
/* exported init */
const Main = imports.ui.main;
const PanelMenu = imports.ui.panelMenu;
const PopupMenu = imports.ui.popupMenu;
const {PACKAGE_VERSION} = imports.misc.config;
const ExtensionUtils = imports.misc.extensionUtils;

class Extension {
    constructor() {
        this._path = ExtensionUtils.getCurrentExtension().path;
        this._enabled = false;
        this._helper = null;
    }

    enable() {
        this._enabled = true;
        import(`file://${this._path}/core.js`).then(({Helper}) => {
            if (this._enabled && !this._helper)
                this._helper = new Helper({Main, PanelMenu, PopupMenu, version: PACKAGE_VERSION});
        }).catch(error => logError(error, 'Calmora'));
    }

    disable() {
        this._enabled = false;
        this._helper?.destroy();
        this._helper = null;
    }
}

function init() {
    return new Extension();
}
