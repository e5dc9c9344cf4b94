// SPDX-License-Identifier: MIT
// A key of the Shell that opens Tarnwick's menu. Of windows that run on Wayland itself only the Shell knows which one is in
// front, and where the pointer is over them; so it tells both with the action. When the menu has closed, it sees to it that the
// window has the focus again.
import Gio from 'gi://Gio';
import GLib from 'gi://GLib';
import Meta from 'gi://Meta';
import Shell from 'gi://Shell';

import {Extension} from 'resource:///org/gnome/shell/extensions/extension.js';
import * as Main from 'resource:///org/gnome/shell/ui/main.js';

const BUS_NAME = 'example.quorlane.Tarnwick';
const OBJECT_PATH = '/example/quorlane/Tarnwick';
const INTERFACE = 'org.freedesktop.Application';
const PROGRAM = 'tarnwick'; // by this its windows are known on the X server
const ACTION = 'pop-up'; // and the name of the key in the settings

export default class TarnwickExtension extends Extension {
    enable() {
        this._settings = this.getSettings();
        this._menus = new Map(); // open ones, and what is connected to each
        this._focus = null; // the window that the last menu was asked for
        this._created = global.display.connect('window-created', (_display, window) => this._follow(window));
        Main.wm.addKeybinding(ACTION, this._settings, Meta.KeyBindingFlags.IGNORE_AUTOREPEAT,
            Shell.ActionMode.NORMAL, () => this._popUp());
    }

    disable() {
        Main.wm.removeKeybinding(ACTION);
        global.display.disconnect(this._created);
        for (const [menu, unmanaged] of this._menus)
            menu.disconnect(unmanaged);
        this._menus = null;
        this._focus = null;
        this._settings = null;
    }

    _popUp() {
        const [x, y] = global.get_pointer();
        const told = {x: GLib.Variant.new_int32(x), y: GLib.Variant.new_int32(y)};
        this._focus = global.display.focus_window;
        if (this._focus) {
            told.pid = GLib.Variant.new_int32(this._focus.get_pid());
            told.title = GLib.Variant.new_string(this._focus.get_title() ?? '');
        }
        const parameters = new GLib.Variant('(sava{sv})', [ACTION, [new GLib.Variant('a{sv}', told)], {}]);
        // The bus starts the program where it does not run.
        Gio.DBus.session.call(BUS_NAME, OBJECT_PATH, INTERFACE, 'ActivateAction', parameters, null,
            Gio.DBusCallFlags.NONE, -1, null, (bus, result) => {
                try {
                    bus.call_finish(result);
                } catch (error) {
                    Main.notifyError('Tarnwick', error.message);
                }
            });
    }

    _follow(window) {
        if (window.get_window_type() === Meta.WindowType.POPUP_MENU && window.get_wm_class_instance() === PROGRAM)
            this._menus.set(window, window.connect('unmanaged', () => this._closed(window)));
    }

    _closed(menu) {
        this._menus.delete(menu);
        const focus = this._focus;
        if (this._menus.size > 0 || !focus)
            return;
        this._focus = null;
        // Where what was chosen has opened a window, that one has it; a window that has gone is drawn by nobody.
        if (!global.display.focus_window && focus.get_compositor_private())
            focus.activate(global.get_current_time());
    }
}
