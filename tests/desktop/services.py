"""Stand-ins on the session bus for what a desktop offers."""

import threading

from gi.repository import Gio, GLib

FILE_MANAGER = """
<node><interface name="org.freedesktop.FileManager1">
  <method name="ShowFolders"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>
  <method name="ShowItems"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>
</interface></node>"""

SETTINGS = """
<node><interface name="org.freedesktop.portal.Settings">
  <method name="Read">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
  </method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""


class Services:
    """Answers on the bus from a thread of its own for as long as the process lives."""

    def __init__(self):
        self.shown = []  # the arguments of each call to the file manager: method, URLs
        self.color_scheme = 0  # 1 asks for dark colours, 2 for light ones
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.bus.set_exit_on_close(False)
        self._own("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", FILE_MANAGER, self._show)
        self._own("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", SETTINGS, self._read)
        threading.Thread(target=GLib.MainLoop().run, daemon=True).start()

    def set_color_scheme(self, scheme):
        self.color_scheme = scheme
        change = GLib.Variant("(ssv)", ("org.freedesktop.appearance", "color-scheme", GLib.Variant("u", scheme)))
        self.bus.emit_signal(None, "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings",
                             "SettingChanged", change)

    def _own(self, name, path, description, method):
        interface = Gio.DBusNodeInfo.new_for_xml(description).interfaces[0]
        self.bus.register_object(path, interface, method, None, None)
        Gio.bus_own_name_on_connection(self.bus, name, Gio.BusNameOwnerFlags.NONE, None, None)

    def _show(self, bus, sender, path, interface, method, arguments, call):
        self.shown.append((method, arguments.unpack()[0]))
        call.return_value(None)

    def _read(self, bus, sender, path, interface, method, arguments, call):
        answer = GLib.Variant("v", GLib.Variant("u", self.color_scheme))
        call.return_value(GLib.Variant("(v)", (answer,)))
