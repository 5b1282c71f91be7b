"""The part of a desktop that tells programs whether it is dark."""

import threading

from gi.repository import Gio, GLib

NO_WISH, DARK = range(2)
SERVICE = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = "org.freedesktop.portal.Settings"
SETTING = ("org.freedesktop.appearance", "color-scheme")
DESCRIPTION = f"""
<node>
  <interface name="{INTERFACE}">
    <method name="Read">
      <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
    </method>
    <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
  </interface>
</node>"""


class Portal:
    """On the message bus from now on to the end of the program."""

    def __init__(self, scheme=NO_WISH):
        self.scheme = scheme
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(DESCRIPTION).interfaces[0]
        self.bus.register_object(PATH, interface, self._answer, None, None)
        Gio.bus_own_name_on_connection(self.bus, SERVICE, Gio.BusNameOwnerFlags.NONE, None, None)
        threading.Thread(target=GLib.MainLoop().run, daemon=True).start()

    def _answer(self, _bus, _sender, _path, _interface, _method, setting, invocation):
        assert setting.unpack() == SETTING
        # A variant in a variant, as portals have it.
        invocation.return_value(GLib.Variant("(v)", (GLib.Variant("v", GLib.Variant("u", self.scheme)),)))

    def change(self, scheme):
        self.scheme = scheme
        told = GLib.Variant("(ssv)", (*SETTING, GLib.Variant("u", scheme)))
        self.bus.emit_signal(None, PATH, INTERFACE, "SettingChanged", told)
