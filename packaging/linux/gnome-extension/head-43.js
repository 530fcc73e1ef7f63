const { Clutter, Gio, GLib, GObject, Meta, Shell, St } = imports.gi;
const Main = imports.ui.main;
const PanelMenu = imports.ui.panelMenu;

let parts = null;

function init() { }

function enable() {
    parts = new Parts();
}

function disable() {
    parts.destroy();
    parts = null;
}

