/* Zanthe Vell in GNOME Shell: the laurel at the panel's left end, and what the Shell tells no program otherwise, on the
   session bus as org.zanthevell.Shell: keys, the pointer's place, windows. Places count from the work area's corner, as
   the program's window there does. */

const PROGRAM = ['org.zanthevell.ZantheVell', '/org/zanthevell/ZantheVell', 'org.zanthevell.ZantheVell'];

const INTERFACE = `<node><interface name="org.zanthevell.Shell">
  <method name="Claim"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="b" direction="out"/></method>
  <method name="Release"><arg type="s" direction="in"/></method>
  <method name="Pointer"><arg type="i" direction="out"/><arg type="i" direction="out"/></method>
  <method name="Windows"><arg type="a(usssu)" direction="out"/></method>
  <method name="Activate"><arg type="u" direction="in"/></method>
  <method name="Close"><arg type="u" direction="in"/></method>
  <signal name="Pressed"><arg type="s"/></signal>
</interface></node>`;

function workArea() {
    return Main.layoutManager.getWorkAreaForMonitor(Main.layoutManager.primaryIndex);
}

function call(method, parameters) {
    Gio.DBus.session.call(...PROGRAM, method, parameters, null, Gio.DBusCallFlags.NONE, 5000, null, (bus, result) => {
        try {
            bus.call_finish(result);
        } catch (error) {
            log(`Zanthe Vell: ${error.message}`);
        }
    });
}

/* The right to come to the front goes before what needs it. */
function showMenu(x, y) {
    const entry = Gio.DesktopAppInfo.new('org.zanthevell.ZantheVell.desktop');
    const token = entry ? global.create_app_launch_context(0, -1).get_startup_notify_id(entry, []) : null;
    if (token)
        call('TakeActivationToken', new GLib.Variant('(s)', [token]));
    call('ShowMenuAt', new GLib.Variant('(ii)', [x, y]));
}

/* Opens at the press and grabs nothing, so that the menu gets what follows. */
const Laurel = GObject.registerClass(class ZantheVellLaurel extends PanelMenu.Button {
    _init() {
        super._init(0.0, 'Zanthe Vell', true);
        this.add_child(new St.Icon({ icon_name: 'org.zanthevell.ZantheVell-symbolic', style_class: 'system-status-icon' }));
    }

    vfunc_event(event) {
        if (event.type() !== Clutter.EventType.BUTTON_PRESS && event.type() !== Clutter.EventType.TOUCH_BEGIN)
            return Clutter.EVENT_PROPAGATE;
        const [x] = this.get_transformed_position();
        showMenu(Math.round(x) - workArea().x, 0);
        return Clutter.EVENT_STOP;
    }
});

class Service {
    constructor() {
        this._keys = new Map(); // the program's names, by the Shell's numbers
        this._pressed = global.display.connect('accelerator-activated', (_display, action) => this._report(action));
        this._object = Gio.DBusExportedObject.wrapJSObject(INTERFACE, this);
        this._object.export(Gio.DBus.session, '/org/zanthevell/Shell');
        this._name = Gio.bus_own_name(Gio.BusType.SESSION, 'org.zanthevell.Shell', Gio.BusNameOwnerFlags.NONE, null, null, null);
        this._program = Gio.bus_watch_name(Gio.BusType.SESSION, PROGRAM[0], Gio.BusNameWatcherFlags.NONE, null, () => this._releaseAll());
    }

    destroy() {
        this._releaseAll();
        Gio.bus_unwatch_name(this._program);
        Gio.bus_unown_name(this._name);
        this._object.unexport();
        global.display.disconnect(this._pressed);
    }

    _report(action) {
        if (this._keys.has(action))
            this._object.emit_signal('Pressed', new GLib.Variant('(s)', [this._keys.get(action)]));
    }

    _releaseAll() {
        for (const name of [...this._keys.values()])
            this.Release(name);
    }

    /* The Shell answers 0 for what somebody has already. */
    Claim(name, accelerator) {
        const action = global.display.grab_accelerator(accelerator, Meta.KeyBindingFlags.NONE);
        if (action === Meta.KeyBindingAction.NONE)
            return false;
        Main.wm.allowKeybinding(Meta.external_binding_name_for_action(action), Shell.ActionMode.ALL);
        this._keys.set(action, name);
        return true;
    }

    Release(name) {
        for (const [action, held] of this._keys) {
            if (held !== name)
                continue;
            global.display.ungrab_accelerator(action);
            Main.wm.allowKeybinding(Meta.external_binding_name_for_action(action), Shell.ActionMode.NONE);
            this._keys.delete(action);
        }
    }

    Pointer() {
        const [x, y] = global.get_pointer();
        return [x - workArea().x, y - workArea().y];
    }

    _windows() {
        const all = global.get_window_actors().map(actor => actor.meta_window);
        return all.filter(window => !window.is_skip_taskbar() && window.get_window_type() === Meta.WindowType.NORMAL);
    }

    /* The window used last comes last. */
    Windows() {
        const tracker = Shell.WindowTracker.get_default();
        const used = this._windows().sort((one, other) => one.get_user_time() - other.get_user_time());
        return used.map(window => [window.get_id(), tracker.get_window_app(window)?.get_id() ?? '', window.get_wm_class() ?? '', window.get_title() ?? '',
            Math.max(window.get_pid(), 0)]);
    }

    _with(id, use) {
        const window = this._windows().find(each => each.get_id() === id);
        if (window)
            use(window);
    }

    Activate(id) {
        this._with(id, window => Main.activateWindow(window));
    }

    Close(id) {
        this._with(id, window => window.delete(global.get_current_time()));
    }
}

class Parts {
    constructor() {
        this._service = new Service();
        this._laurel = new Laurel();
        Main.panel.addToStatusArea('zanthe-vell', this._laurel, 0, 'left');
    }

    destroy() {
        this._laurel.destroy();
        this._service.destroy();
    }
}
