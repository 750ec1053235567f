#!/usr/bin/python3
"""The gallery as a screen reader has it: `accessibility_test.py BKUK_GALLERY [unittest argument...]`."""

import sys
import unittest

import dbus

from accessibility import AccessibilityBus, Element
from desktop import X11, wait_until

PROGRAM = sys.argv.pop(1)
TITLE = 'BrenvikUIKit Gallery'


class X11Test(unittest.TestCase):

    def open(self, desktop, *arguments):
        """The bus, the program, its window as a screen reader has it and its window as the X server has it."""
        bus = AccessibilityBus(desktop)
        program = desktop.run(PROGRAM, '--appearance', 'light', *arguments)
        shown = wait_until(lambda: desktop.window_named(TITLE), 'the window')
        wait_until(lambda: len(desktop.colors(shown)) > 10, 'a picture')
        return bus, program, bus.window(TITLE), shown

    def test_every_control_has_a_role_a_name_and_a_place(self):
        with X11() as desktop:
            _, _, window, shown = self.open(desktop)
            pages = window.find('list', 'Pages')
            names = [page.name for page in pages.children]
            self.assertGreaterEqual(set(names), {'Colour roles', 'Shapes', 'Fills and shadows', 'Animation'})
            self.assertEqual({page.role for page in pages.children}, {'list item'})
            self.assertIn('selected', pages.children[0].states)
            appearance = window.find('panel', 'Appearance')
            self.assertEqual([(each.role, each.name) for each in appearance.children],
                             [('radio button', 'Light'), ('radio button', 'Dark'), ('radio button', 'Desktop')])
            self.assertIn('checked', appearance.children[0].states)
            self.assertEqual(appearance.children[0].parent, appearance)
            self.assertEqual(appearance.parent, window)
            window.find('heading', 'Colour roles')
            geometry = shown.get_geometry()
            self.assertEqual(window.extents, (geometry.x, geometry.y, geometry.width, geometry.height))
            dark = appearance.children[1]
            left, top, width, height = dark.extents
            self.assertEqual(window.at(left + width // 2, top + height // 2), dark)
            unnamed = [element for element in window.all() if not element.name]
            self.assertEqual(unnamed, [])

    def test_a_press_on_the_switch_turns_the_gallery_dark(self):
        with X11() as desktop:
            bus, _, window, shown = self.open(desktop)
            self.assertGreater(desktop.brightness(shown), 180)
            light, dark = window.find('radio button', 'Light'), window.find('radio button', 'Dark')
            self.assertIn('Press', dark.actions)
            self.assertTrue(dark.act('Press'))
            wait_until(lambda: desktop.brightness(shown) < 100, 'a dark window')
            bus.wait_for(dark, 'StateChanged', 'checked', 1)
            bus.wait_for(light, 'StateChanged', 'checked', 0)
            self.assertIn('checked', dark.states)
            self.assertNotIn('checked', light.states)

    def test_focus_is_told_as_tab_moves_it(self):
        with X11() as desktop:
            bus, _, window, shown = self.open(desktop)
            desktop.focus(shown)
            bus.wait_for(window, 'Activate', '', 0)
            first, page = window.find('list', 'Pages').children[:2]
            light = window.find('radio button', 'Light')
            wait_until(lambda: 'focused' in first.states, 'the focus on the list')
            desktop.type_key('Down')
            bus.wait_for(page, 'StateChanged', 'focused', 1)
            desktop.type_key('Tab')
            bus.wait_for(light, 'StateChanged', 'focused', 1)
            bus.wait_for(page, 'StateChanged', 'focused', 0)
            self.assertIn('focused', light.states)
            self.assertNotIn('focused', page.states)
            desktop.type_key('Right')
            dark = window.find('radio button', 'Dark')
            bus.wait_for(dark, 'StateChanged', 'focused', 1)
            self.assertTrue(page.grab_focus())
            wait_until(lambda: 'focused' in page.states, 'the focus on the list')

    def test_a_slider_shows_and_takes_its_value(self):
        with X11() as desktop:
            bus, _, window, _ = self.open(desktop, '--page', 'shapes')
            length = window.find('slider', 'Length')
            self.assertEqual(length.range, (0.2, 1.0))
            self.assertAlmostEqual(length.value, 0.9)
            label = next(element for element in window.all() if element.name.endswith(' pt'))
            before = label.name
            length.act('Decrease')
            wait_until(lambda: abs(length.value - 0.895) < 1e-9, 'a smaller value')
            bus.wait_for(length, 'PropertyChange', 'accessible-value', 0)
            length.set_value(7)
            wait_until(lambda: length.value == 1, 'the greatest value')
            wait_until(lambda: label.name != before, 'a label that follows')
            bus.wait_for(label, 'PropertyChange', 'accessible-name', 0)

    def test_links_in_a_text_are_pressed_and_focused(self):
        with X11() as desktop:
            bus, _, window, shown = self.open(desktop, '--page', 'label')
            desktop.focus(shown)
            bus.wait_for(window, 'Activate', '', 0)
            timetable, weather = window.find('link', 'timetable'), window.find('link', 'weather')
            self.assertEqual(timetable.parent.role, 'label')
            self.assertIn('look at the timetable', timetable.parent.name)
            left, top, width, height = weather.extents
            self.assertEqual(window.at(left + width // 2, top + height // 2), weather)
            self.assertTrue(timetable.act('Press'))
            wait_until(lambda: any('timetable' in each.name and each.role != 'link' and each != timetable.parent
                                   for each in window.all()), 'a remark on the link')
            self.assertTrue(weather.grab_focus())
            bus.wait_for(weather, 'StateChanged', 'focused', 1)
            desktop.type_key('Left')
            desktop.type_key('Left')
            bus.wait_for(timetable, 'StateChanged', 'focused', 1)
            self.assertNotIn('focused', weather.states)

    def test_what_a_turned_page_held_is_gone(self):
        with X11() as desktop:
            bus, program, window, _ = self.open(desktop)
            area = window.find('panel', 'Colour roles')
            cards = area.children
            self.assertGreater(len(cards), 10)
            inside = cards[0].children[0]
            shapes = window.find('list item', 'Shapes')
            for _ in range(3):
                shapes.act('Press')
                wait_until(lambda: area.name == 'Shapes', 'the other page')
                window.find('list item', 'Animation').act('Press')
                wait_until(lambda: area.name == 'Animation', 'yet another page')
            bus.wait_for(area, 'ChildrenChanged', 'remove', -1)
            bus.wait_for(area, 'ChildrenChanged', 'add', len(area.children))
            for stale in (cards[0], inside, Element(bus, window.owner, window.path + '4')):
                with self.assertRaises(dbus.DBusException):
                    stale.call('Accessible', 'GetRole')
                with self.assertRaises(dbus.DBusException):
                    stale.call('Action', 'DoAction', dbus.Int32(0), signature='i')
            self.assertTrue(all(child.name for child in area.children))
            self.assertIsNone(program.process.poll(), program.errors)

    def test_places_are_pixels_at_any_scale(self):
        with X11() as desktop:
            bus = AccessibilityBus(desktop)
            desktop.run(PROGRAM, QT_SCALE_FACTOR='1.5')
            window = bus.window(TITLE)
            geometry = wait_until(lambda: desktop.window_named(TITLE), 'the window').get_geometry()
            self.assertGreater(geometry.width, 1280)
            self.assertEqual(window.extents, (geometry.x, geometry.y, geometry.width, geometry.height))
            first, second = window.find('list', 'Pages').children[:2]
            self.assertEqual(second.extents[1] - first.extents[1], 51)
            left, top, width, height = second.extents
            self.assertEqual(window.at(left + width // 2, top + height // 2), second)

    def test_sleeps_while_a_client_is_there_and_ends_well(self):
        with X11() as desktop:
            bus, program, window, shown = self.open(desktop)
            self.assertGreater(len(window.all()), 50)
            self.assertEqual(program.idle_cost(), (0, 0), 'wake-ups and processor ticks in two idle seconds')
            desktop.ask_to_close(shown)
            self.assertEqual(program.process.wait(20), 0, program.errors)
            wait_until(lambda: not bus.programs(), 'the program to leave the bus')


if __name__ == '__main__':
    unittest.main(verbosity=2)
