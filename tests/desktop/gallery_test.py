#!/usr/bin/python3
"""The gallery on real desktops: `gallery_test.py BKUK_GALLERY [unittest argument...]`."""

import pathlib
import sys
import tempfile
import unittest

from desktop import NoDisplay, Wayland, X11, wait_until

PROGRAM = sys.argv.pop(1)
TITLE = 'BrenvikUIKit Gallery'
PNG_SIGNATURE = b'\x89PNG\r\n\x1a\n'


class GalleryTestCase(unittest.TestCase):

    def assert_sleeps(self, program):
        self.assertEqual(program.idle_cost(), (0, 0), 'wake-ups and processor ticks in two idle seconds')


class X11Test(GalleryTestCase):

    def open(self, desktop):
        """The program and its window, once something of it can be seen."""
        program = desktop.run(PROGRAM)
        window = wait_until(lambda: desktop.window_named(TITLE), 'the window')
        wait_until(lambda: len(desktop.colors(window)) > 10, 'a picture')
        return program, window

    def test_turns_dark_and_light_with_the_desktop_and_sleeps_between(self):
        with X11() as desktop:
            desktop.start_portal('color-scheme 2')
            program, window = self.open(desktop)
            wait_until(lambda: desktop.brightness(window) > 180, 'a light window')
            desktop.portal.write('color-scheme 1')
            wait_until(lambda: desktop.brightness(window) < 100, 'a dark window')
            self.assert_sleeps(program)
            desktop.portal.write('color-scheme 2')
            wait_until(lambda: desktop.brightness(window) > 180, 'a light window again')

    def test_is_light_where_nobody_knows(self):
        with X11(with_bus=False) as desktop:
            program, window = self.open(desktop)
            wait_until(lambda: desktop.brightness(window) > 180, 'a light window')
            self.assert_sleeps(program)

    def test_ends_when_its_window_is_closed(self):
        with X11() as desktop:
            program, window = self.open(desktop)
            desktop.ask_to_close(window)
            self.assertEqual(program.process.wait(20), 0, program.errors)


class WaylandTest(GalleryTestCase):

    def test_follows_the_desktop_and_sleeps_between(self):
        with Wayland() as desktop:
            desktop.start_portal('color-scheme 2')
            program = desktop.run(PROGRAM, WAYLAND_DEBUG='1')
            wait_until(lambda: self.pictures(program), 'a picture')
            self.assert_sleeps(program)
            before = self.pictures(program)
            desktop.portal.write('color-scheme 1')
            wait_until(lambda: self.pictures(program) > before, 'another picture')
            self.assertIsNone(program.process.poll(), program.errors)

    def pictures(self, program):
        """How often the program has given the compositor something to show, by its own protocol's record."""
        return sum('.attach(wl_buffer' in line for line in program.errors)


class NoDisplayTest(GalleryTestCase):

    def test_writes_its_pages_instead(self):
        with NoDisplay() as desktop, tempfile.TemporaryDirectory() as directory:
            program = desktop.run(PROGRAM, '--snapshot', directory, '--appearance', 'dark', '--scale', '1.5')
            paths = program.output()
            self.assertTrue(paths)
            self.assertEqual(set(paths), {str(path) for path in pathlib.Path(directory).iterdir()})
            for path in paths:
                self.assertEqual(pathlib.Path(path).read_bytes()[:8], PNG_SIGNATURE)

    def test_writes_below_build_where_no_folder_is_given(self):
        with NoDisplay() as desktop, tempfile.TemporaryDirectory() as directory:
            program = desktop.run('env', '-C', directory, PROGRAM, '--page', 'trigger', '--direction', 'ltr')
            self.assertEqual(program.output(), ['build/gallery-pages/trigger-light.png'])
            self.assertIn('build/gallery-pages', program.errors[0])
            self.assertEqual([path.name for path in pathlib.Path(directory).iterdir()], ['build'])


if __name__ == '__main__':
    unittest.main(verbosity=2)
