"""What a screen reader does: finds programs on the accessibility bus, reads their elements, acts on them and
hears what happens to them."""

import contextlib
import os
import signal
import subprocess

import dbus
import dbus.bus
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

from desktop import PATIENCE, Desktop, require, wait_until

LAUNCHER = '/usr/libexec/at-spi-bus-launcher'
REGISTRY = 'org.a11y.atspi.Registry'
ROOT = '/org/a11y/atspi/accessible/root'
EVENTS = ('object:state-changed', 'object:property-change:accessible-name',
          'object:property-change:accessible-value', 'object:children-changed', 'window:activate', 'focus:')
STATES = {1: 'active', 4: 'checked', 8: 'enabled', 11: 'focusable', 12: 'focused', 22: 'selectable', 23: 'selected',
          25: 'showing', 30: 'visible', 32: 'indeterminate', 41: 'checkable'}


class Element:
    """One element of a program, as the bus names it."""

    def __init__(self, bus, owner, path):
        self.bus, self.owner, self.path = bus, str(owner), str(path)

    def __eq__(self, other):
        return (self.owner, self.path) == (other.owner, other.path)

    def __hash__(self):
        return hash((self.owner, self.path))

    def __repr__(self):
        return f'{self.path.rpartition("/")[2]} {self.role} "{self.name}"'

    def call(self, interface, method, *arguments, signature=None):
        return self.bus.connection.call_blocking(self.owner, self.path, f'org.a11y.atspi.{interface}', method, signature,
                                                 arguments, timeout=PATIENCE)

    def get(self, interface, name):
        return self.bus.connection.call_blocking(self.owner, self.path, 'org.freedesktop.DBus.Properties', 'Get', 'ss',
                                                 (f'org.a11y.atspi.{interface}', name), timeout=PATIENCE)

    @property
    def role(self):
        return str(self.call('Accessible', 'GetRoleName'))

    @property
    def name(self):
        return str(self.get('Accessible', 'Name'))

    @property
    def description(self):
        return str(self.get('Accessible', 'Description'))

    @property
    def states(self):
        low, high = self.call('Accessible', 'GetState')
        bits = int(low) | int(high) << 32
        return {name for bit, name in STATES.items() if bits >> bit & 1}

    @property
    def parent(self):
        return Element(self.bus, *self.get('Accessible', 'Parent'))

    @property
    def children(self):
        return [Element(self.bus, *reference) for reference in self.call('Accessible', 'GetChildren')]

    @property
    def extents(self):
        """Left, top, width and height on the screen, in pixels."""
        return tuple(int(side) for side in self.call('Component', 'GetExtents', dbus.UInt32(0), signature='u'))

    @property
    def value(self):
        return float(self.get('Value', 'CurrentValue'))

    @property
    def range(self):
        return float(self.get('Value', 'MinimumValue')), float(self.get('Value', 'MaximumValue'))

    def set_value(self, value):
        self.bus.connection.call_blocking(self.owner, self.path, 'org.freedesktop.DBus.Properties', 'Set', 'ssv',
                                          ('org.a11y.atspi.Value', 'CurrentValue', dbus.Double(value, variant_level=1)),
                                          timeout=PATIENCE)

    @property
    def actions(self):
        return [str(action[0]) for action in self.call('Action', 'GetActions')]

    def act(self, name):
        return self.call('Action', 'DoAction', dbus.Int32(self.actions.index(name)), signature='i')

    def grab_focus(self):
        return self.call('Component', 'GrabFocus')

    def at(self, x, y):
        """The innermost element at a place on the screen."""
        return Element(self.bus, *self.call('Component', 'GetAccessibleAtPoint', x, y, dbus.UInt32(0), signature='iiu'))

    def all(self):
        """The element and all that it holds, in the order of reading."""
        found, waiting = [], [self]
        while waiting:
            found.append(waiting.pop())
            waiting.extend(reversed(found[-1].children))
        return found

    def find(self, role, name):
        """The one element of that role and name."""
        fitting = [element for element in self.all() if element.role == role and element.name == name]
        if len(fitting) != 1:
            raise AssertionError(f'{fitting} for {role} "{name}" among {self.all()}')
        return fitting[0]


class AccessibilityBus:
    """A screen reader's connection. Starts the service on the desktop's session bus."""

    def __init__(self, desktop: Desktop):
        DBusGMainLoop(set_as_default=True)
        self._start_service(desktop)
        session = dbus.bus.BusConnection(desktop.environment['DBUS_SESSION_BUS_ADDRESS'])
        desktop.cleanup.callback(session.close)
        wait_until(lambda: session.name_has_owner('org.a11y.Bus'), 'the accessibility service')
        address = session.call_blocking('org.a11y.Bus', '/org/a11y/bus', 'org.a11y.Bus', 'GetAddress', None, ())
        self.connection = dbus.bus.BusConnection(str(address))
        desktop.cleanup.callback(self.connection.close)
        self.events = []
        self.connection.add_signal_receiver(self._hear, path_keyword='path', sender_keyword='owner',
                                            interface_keyword='interface', member_keyword='member')
        self.connection.start_service_by_name(REGISTRY)
        for event in EVENTS:
            self.connection.call_blocking(REGISTRY, '/org/a11y/atspi/registry', REGISTRY, 'RegisterEvent', 'sass',
                                          (event, dbus.Array(signature='s'), ''))

    def _start_service(self, desktop):
        # The launcher starts a bus and a registry, which must end with it.
        service = subprocess.Popen([require(LAUNCHER), '--launch-immediately'], env=desktop.environment,
                                   start_new_session=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

        def stop():
            with contextlib.suppress(ProcessLookupError):
                os.killpg(service.pid, signal.SIGTERM)
            service.wait(PATIENCE)
        desktop.cleanup.callback(stop)

    def _hear(self, *arguments, path, owner, interface, member):
        if interface.startswith('org.a11y.atspi.Event.'):
            detail = str(arguments[0]) if arguments else ''
            value = int(arguments[1]) if len(arguments) > 1 else 0
            self.events.append((Element(self, owner, path), str(member), detail, value))

    def heard(self, *event):
        """Whether that was told: the element, the name of the event, its detail and its number."""
        while GLib.MainContext.default().iteration(False):
            pass
        return event in self.events

    def wait_for(self, *event):
        wait_until(lambda: self.heard(*event), f'{event} among what was told')

    def programs(self):
        return Element(self, REGISTRY, ROOT).children

    def window(self, title):
        """The program's window of that title, once it can be found."""
        def search():
            for program in self.programs():
                for window in program.children:
                    if window.name == title:
                        return window
            return None
        return wait_until(search, f'a window "{title}" on the accessibility bus')
