#!/usr/bin/python3
"""The Settings interface of a desktop portal, for tests.

Starts with the settings that its arguments name, each as `KEY VALUE`, where KEY is one of
org.freedesktop.appearance's and VALUE a number, or three with commas between them, or `never` for a question
that is never answered. Reads more such lines from standard input, announces each as the desktop would, and ends with its input. Prints `ready` once it
has its name and `answered KEY` for every question.
"""

import sys
import threading

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

SERVICE = 'org.freedesktop.portal.Desktop'
PATH = '/org/freedesktop/portal/desktop'
INTERFACE = 'org.freedesktop.portal.Settings'
NAMESPACE = 'org.freedesktop.appearance'


def parsed(text):
    if text == 'never':
        return None
    if ',' in text:
        return dbus.Struct([float(part) for part in text.split(',')], signature='ddd', variant_level=1)
    return dbus.UInt32(int(text), variant_level=1)


class Settings(dbus.service.Object):
    """Answers wrap their value in two variants and announcements in one, as the portals in use do."""

    def __init__(self, bus):
        super().__init__(bus, PATH)
        self.values = {key: parsed(text) for key, text in map(str.split, sys.argv[1:])}

    @dbus.service.method(INTERFACE, in_signature='ss', out_signature='v', async_callbacks=('answer', 'refuse'))
    def Read(self, namespace, key, answer, refuse):
        print(f'answered {key}', flush=True)
        if namespace != NAMESPACE or key not in self.values:
            refuse(dbus.exceptions.DBusException('not found', name='org.freedesktop.portal.Error.NotFound'))
        elif (value := self.values[key]) is not None:
            answer(type(value)(value, variant_level=2))

    @dbus.service.signal(INTERFACE, signature='ssv')
    def SettingChanged(self, namespace, key, value):
        pass

    def change(self, key, text):
        self.values[key] = parsed(text)
        self.SettingChanged(NAMESPACE, key, self.values[key])


def main():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    settings = Settings(bus)
    name = dbus.service.BusName(SERVICE, bus)
    loop = GLib.MainLoop()

    def read():
        for line in sys.stdin:
            GLib.idle_add(settings.change, *line.split())
        GLib.idle_add(loop.quit)

    threading.Thread(target=read, daemon=True).start()
    print('ready', flush=True)
    loop.run()
    del name


if __name__ == '__main__':
    main()
