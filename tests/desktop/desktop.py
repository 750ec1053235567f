"""Private desktops for tests: a display, a session bus, a portal and programs on them.

Everything is started from scratch, ends with the test and touches nothing of the user's. A program that
is missing fails the test by name.
"""

import contextlib
import os
import pathlib
import queue
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import time

PATIENCE = 20  # seconds until something that must happen counts as not happening


def require(program):
    """The path of a program that the tests cannot do without."""
    path = shutil.which(program)
    if not path:
        raise AssertionError(f'{program} is not installed; ./dev test installs what the tests need')
    return path


def wait_until(condition, what):
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        answer = condition()
        if answer:
            return answer
        time.sleep(0.01)
    raise AssertionError(f'waited {PATIENCE} s in vain for {what}')


class Process:
    """A program whose output lines are read as they come."""

    def __init__(self, command, environment):
        self.process = subprocess.Popen(command, env=environment, text=True, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.lines = queue.Queue()
        self.seen = []
        self.errors = []
        self.readers = [threading.Thread(target=self._read_lines), threading.Thread(target=self._read_errors)]
        for reader in self.readers:
            reader.start()

    def _read_lines(self):
        for line in self.process.stdout:
            self.lines.put(line.rstrip('\n'))
        self.lines.put(None)

    def _read_errors(self):
        self.errors.extend(self.process.stderr)

    @property
    def pid(self):
        return self.process.pid

    def expect(self, start):
        """Reads until a line that begins with `start`; answers the line."""
        deadline = time.monotonic() + PATIENCE
        while True:
            with contextlib.suppress(queue.Empty):
                line = self.lines.get(timeout=max(0, deadline - time.monotonic()))
                if line is None:
                    raise AssertionError(f'ended before "{start}": {self.seen} {self.errors}')
                self.seen.append(line)
                if line.startswith(start):
                    return line
                continue
            raise AssertionError(f'no "{start}" in {self.seen} {self.errors}')

    def output(self):
        """All lines that were not read yet, once the program has ended; it must end well."""
        code = self.process.wait(3 * PATIENCE)
        if code != 0:
            raise AssertionError(f'ended with {code}: {self.errors}')
        self.readers[0].join()
        return [line for line in self.lines.queue if line is not None]

    def write(self, line):
        self.process.stdin.write(line + '\n')
        self.process.stdin.flush()

    def finish(self):
        """Closes the program's input and answers its exit code."""
        self.process.stdin.close()
        return self.process.wait(PATIENCE)

    def stop(self):
        if self.process.poll() is None:
            self.process.terminate()
            with contextlib.suppress(subprocess.TimeoutExpired):
                self.process.wait(5)
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait(PATIENCE)
        for reader in self.readers:
            reader.join()
        for stream in (self.process.stdin, self.process.stdout, self.process.stderr):
            stream.close()

    # What it costs

    def wake_ups(self):
        """How often any of its threads has gone to sleep and been woken."""
        count = 0
        for status in pathlib.Path(f'/proc/{self.pid}/task').glob('*/status'):
            with contextlib.suppress(FileNotFoundError):
                count += sum(int(line.split()[1]) for line in status.read_text().splitlines()
                             if line.startswith('voluntary_ctxt_switches'))
        return count

    def processor_ticks(self):
        """Time spent in the processor, in hundredths of a second."""
        fields = pathlib.Path(f'/proc/{self.pid}/stat').read_text().rpartition(')')[2].split()
        return int(fields[11]) + int(fields[12])

    def idle_cost(self, seconds=2):
        """Wake-ups and ticks during `seconds`, once it has come to rest."""
        wait_until(self._rests, f'{self.process.args[0]} to come to rest')
        before = self.wake_ups(), self.processor_ticks()
        time.sleep(seconds)
        return self.wake_ups() - before[0], self.processor_ticks() - before[1]

    def _rests(self):
        before = self.wake_ups()
        time.sleep(0.5)
        return self.wake_ups() == before


class Desktop:
    """Base of the desktops: a directory of their own, clean surroundings, a session bus if wanted."""

    def __init__(self, with_bus=True):
        self.cleanup = contextlib.ExitStack()
        try:
            self.runtime_directory = self.cleanup.enter_context(tempfile.TemporaryDirectory())
            self.environment = self._clean_environment()
            self.portal = None
            if with_bus:
                self._start_bus()
            self._start_display()
        except BaseException:
            self.cleanup.close()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.cleanup.close()

    def _clean_environment(self):
        dropped = ('DISPLAY', 'WAYLAND_', 'XDG_', 'DBUS_', 'QT_', 'AT_SPI')
        kept = {key: value for key, value in os.environ.items() if not key.startswith(dropped)}
        # The desktop's plug-ins leak and are unloaded before a sanitizer could be told whose leak it is.
        sanitizer = os.environ.get('ASAN_OPTIONS', '') + ':detect_leaks=0'
        return kept | {'XDG_RUNTIME_DIR': self.runtime_directory, 'LC_ALL': 'C.UTF-8',
                       'HOME': self.runtime_directory, 'ASAN_OPTIONS': sanitizer.lstrip(':')}

    def _start_display(self):
        """Without a display nothing is to be started."""

    def _start_bus(self):
        # A configuration of its own, so that no service of the machine is ever started.
        address = f'unix:path={self.runtime_directory}/session-bus'
        configuration = pathlib.Path(self.runtime_directory) / 'bus.conf'
        configuration.write_text(f'''<busconfig><type>session</type><listen>{address}</listen>
            <policy context="default"><allow user="*"/><allow send_destination="*"/>
            <allow receive_sender="*"/><allow own="*"/></policy>
            </busconfig>''')
        self.run(require('dbus-daemon'), f'--config-file={configuration}', '--nofork')
        wait_until(pathlib.Path(f'{self.runtime_directory}/session-bus').exists, 'the session bus')
        self.environment['DBUS_SESSION_BUS_ADDRESS'] = address

    def start_portal(self, *settings):
        """A portal that starts with `settings`, as "color-scheme 1"; what is written to `portal` it announces."""
        portal = pathlib.Path(__file__).with_name('fake_portal.py')
        self.portal = self.run(sys.executable, str(portal), *settings)
        self.portal.expect('ready')

    def start_silent_bus(self):
        """A session bus that accepts connections and never says anything."""
        address = f'{self.runtime_directory}/silent-bus'
        listener = self.cleanup.enter_context(socket.socket(socket.AF_UNIX))
        listener.bind(address)
        listener.listen()
        self.environment['DBUS_SESSION_BUS_ADDRESS'] = f'unix:path={address}'

    def run(self, *command, **environment):
        process = Process(command, self.environment | environment)
        self.cleanup.callback(process.stop)
        return process


class NoDisplay(Desktop):
    """A machine without a screen, such as a server."""


class X11(Desktop):
    """An X server without a window manager, with one screen of 1280 by 800 pixels."""

    def _start_display(self):
        read_end, write_end = os.pipe()
        self.server = subprocess.Popen(
            [require('Xvfb'), '-displayfd', str(write_end), '-screen', '0', '1280x800x24', '-nolisten', 'tcp'],
            env=self.environment, pass_fds=[write_end], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.cleanup.callback(self._stop_server)
        os.close(write_end)
        with os.fdopen(read_end) as numbers:
            self.environment['DISPLAY'] = ':' + numbers.readline().strip()
        self._connect()

    def _stop_server(self):
        self.server.terminate()
        self.server.wait(PATIENCE)

    def _connect(self):
        try:
            from Xlib import display
        except ImportError as error:
            raise AssertionError('python3-xlib is not installed; ./dev test installs it') from error
        self.display = wait_until(lambda: self._try_to_connect(display), 'the X server')
        self.root = self.display.screen().root
        self.cleanup.callback(self.display.close)

    def _try_to_connect(self, display):
        with contextlib.suppress(Exception):
            return display.Display(self.environment['DISPLAY'])
        return None

    def pixel(self, x, y):
        """The colour shown at a place on the screen, as red, green and blue from 0 to 255."""
        from Xlib import X
        data = self.root.get_image(x, y, 1, 1, X.ZPixmap, 0xFFFFFFFF).data
        return data[2], data[1], data[0]

    def wait_for_pixel(self, x, y, color):
        wait_until(lambda: self.pixel(x, y) == color, f'the colour {color} at {x},{y}')

    def samples(self, window, step=16):
        """The colours of a window's picture at the points of a grid."""
        from Xlib import X
        size = window.get_geometry()
        data = window.get_image(0, 0, size.width, size.height, X.ZPixmap, 0xFFFFFFFF).data
        offsets = [4 * (y * size.width + x) for y in range(0, size.height, step) for x in range(0, size.width, step)]
        return [(data[offset + 2], data[offset + 1], data[offset]) for offset in offsets]

    def colors(self, window):
        return set(self.samples(window))

    def brightness(self, window):
        """From 0 for black to 255 for white, on the average."""
        samples = self.samples(window)
        return sum(sum(color) for color in samples) / (3 * len(samples))

    def _inject(self, kind, detail=0, x=0, y=0):
        from Xlib.ext import xtest
        xtest.fake_input(self.display, kind, detail, x=x, y=y)
        self.display.sync()

    def move_pointer(self, x, y):
        from Xlib import X
        self._inject(X.MotionNotify, x=x, y=y)

    def press(self, button=1):
        from Xlib import X
        self._inject(X.ButtonPress, button)

    def release(self, button=1):
        from Xlib import X
        self._inject(X.ButtonRelease, button)

    def click(self, button=1):
        self.press(button)
        self.release(button)

    def type_key(self, name, *held):
        """Presses and releases a key by its X name, while those named by `held` are down."""
        from Xlib import X, XK
        codes = [self.display.keysym_to_keycode(XK.string_to_keysym(key)) for key in (*held, name)]
        for code in codes:
            self._inject(X.KeyPress, code)
        for code in reversed(codes):
            self._inject(X.KeyRelease, code)

    @contextlib.contextmanager
    def counted_pointer_queries(self):
        """A list that gets an entry for each time a program asks the server where the pointer is."""
        from Xlib import display
        from Xlib.ext import record
        query_pointer = 38
        ranges = {'core_requests': (query_pointer, query_pointer), 'core_replies': (0, 0),
                  'ext_requests': (0, 0, 0, 0), 'ext_replies': (0, 0, 0, 0), 'delivered_events': (0, 0),
                  'device_events': (0, 0), 'errors': (0, 0), 'client_started': False, 'client_died': False}
        queries = []
        request_length = 8

        def hear(reply):
            if reply.category == record.FromClient:
                queries.extend([query_pointer] * (len(reply.data) // request_length))
            elif reply.category == record.StartOfData:
                started.set()

        started = threading.Event()
        listener = display.Display(self.environment['DISPLAY'])
        context = self.display.record_create_context(0, [record.AllClients], [ranges])
        thread = threading.Thread(target=listener.record_enable_context, args=(context, hear))
        thread.start()
        started.wait(PATIENCE)
        try:
            yield queries
        finally:
            self.display.record_disable_context(context)
            self.display.sync()
            thread.join(PATIENCE)
            self.display.record_free_context(context)
            listener.close()

    def window_named(self, title):
        """The window of that title that can be seen, None while there is none."""
        from Xlib import X
        found = [window for window in self.root.query_tree().children
                 if window.get_wm_name() == title and window.get_attributes().map_state == X.IsViewable]
        return found[0] if found else None

    def focus(self, window):
        """Gives a window the keyboard, as a window manager would."""
        from Xlib import X
        window.set_input_focus(X.RevertToParent, X.CurrentTime)
        self.display.sync()

    def ask_to_close(self, window):
        """What the close button of a title bar does."""
        from Xlib.protocol import event
        protocols = self.display.intern_atom('WM_PROTOCOLS')
        delete = self.display.intern_atom('WM_DELETE_WINDOW')
        window.send_event(event.ClientMessage(window=window, client_type=protocols, data=(32, [delete, 0, 0, 0, 0])))
        self.display.sync()


class Wayland(Desktop):
    """A compositor without a screen or input."""

    def _start_display(self):
        self.run(require('weston'), '--backend=headless-backend.so', '--socket=test-wayland', '--idle-time=0')
        wait_until((pathlib.Path(self.runtime_directory) / 'test-wayland').exists, 'the compositor')
        self.environment['WAYLAND_DISPLAY'] = 'test-wayland'
