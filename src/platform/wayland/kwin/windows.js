// SPDX-License-Identifier: MIT
// Runs in KWin 5.27 and 6, behind a line that defines `parameters`:
//   service, path, interface   whom to tell
//   run                        our number
//   watches                    go on telling when something changes
//   close                      the id of a window to close; empty for none
//   process                    whose window that has to be
//   activate                   the id of a window to bring to the front; empty for none
const isNew = typeof workspace.windowList === "function";
const windows = () => (isNew ? workspace.windowList() : workspace.clientList());
const idOf = (window) => (window ? String(window.internalId) : "");
// The class of the object, such as KWin::XdgToplevelWindow(0x55d0c8a3c2b0).
const isX11 = (window) => /^KWin::(X11|Xwayland)/.test(String(window));
const isToplevel = (window) => /^KWin::XdgToplevel/.test(String(window));

function typeOf(window) {
    if (window.dock || window.desktopWindow) {
        return window.dock ? "dock" : "desktop";
    }
    if (!isToplevel(window) && !isX11(window)) {
        return "other"; // Layer surfaces, and what KWin itself shows.
    }
    return ["dialog", "utility"].find((type) => window[type]) || (window.normalWindow ? "normal" : "other");
}

// KWin kills the client of an X11 window that cannot be asked.
function canBeAsked(window) {
    return isToplevel(window) && window.closeable && !/^(dock|desktop|other)$/.test(typeOf(window));
}

// On the desktop that is shown: 6 has a list of desktops, empty for all, and 5.27 a number, -1 for all.
function isShown(window) {
    const desktops = window.desktops;
    const current = workspace.currentDesktop;
    return !window.minimized && (window.onAllDesktops ||
        (isNew ? desktops.some((desktop) => desktop.id === current.id) : window.desktop === current));
}

const rowOf = (window) => ({
    id: idOf(window),
    parent: idOf(window.transientFor),
    process: window.pid,
    isX11: isX11(window),
    x11Id: window.windowId,
    className: String(window.resourceClass),
    desktopFile: String(window.desktopFileName),
    type: typeOf(window),
    isModal: window.modal,
    isFullScreen: window.fullScreen && isShown(window),
    skipsTaskbar: window.skipTaskbar,
    canBeAsked: canBeAsked(window),
});

function report(hasAsked) {
    const rows = windows().filter((window) => window.managed).map(rowOf);
    const active = idOf(isNew ? workspace.activeWindow : workspace.activeClient);
    // KWin 5.27 ends a Wayland client that takes 2 s to answer; 6.3 asks the user first.
    const text = JSON.stringify({run: parameters.run, hasAsked: hasAsked, active: active,
        endsSlowClients: !isNew, windows: rows});
    callDBus(parameters.service, parameters.path, parameters.interface, "Report", text);
}

// One report for what changes together.
const soon = new QTimer();
soon.singleShot = true;
soon.timeout.connect(() => report(false));

function follow(window) {
    for (const what of ["closeable", "desktopFileName", "modal", "skipTaskbar", "transient", "windowClass"]) {
        window[what + "Changed"].connect(() => soon.start());
    }
}

if (parameters.watches) {
    const kind = isNew ? "window" : "client";
    windows().forEach(follow);
    workspace[kind + "Added"].connect(follow);
    for (const what of ["Added", "Removed", "Activated"]) {
        workspace[kind + what].connect(() => soon.start());
    }
}
const wanted = windows().filter((window) => idOf(window) === parameters.close &&
    window.pid === parameters.process && canBeAsked(window) && !window.unresponsive);
wanted.forEach((window) => window.closeWindow());
const front = windows().filter((window) => idOf(window) === parameters.activate);
front.forEach((window) => {
    window.minimized = false;
    workspace[isNew ? "activeWindow" : "activeClient"] = window;
});
report(wanted.length + front.length > 0);
