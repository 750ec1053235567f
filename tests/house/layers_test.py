#!/usr/bin/env python3
"""The layers check itself: each kind of violation, planted in a small house, is found."""

import pathlib
import tempfile
import unittest

from layers import House

LAYERS = """
library qt: Q[A-Z]* Qt*/*
library posix: *.h
base:
base/real:   base qt posix
kit/low:     base
kit/high:    base
             kit/low
tests:       kit/* base
"""

SOUND = {
    'base/Window.h': '#include <vector>',
    'base/real/RealWindow.cpp': '#include "base/Window.h"\n#include <QWindow>\n#include <unistd.h>',
    'kit/low/Low.h': '#include "base/Window.h"\n#include "kit/low/Low.h"',
    'kit/high/High.h': '#include <kit/low/Low.h>',
    'tests/high/HighTest.cpp': '#include "kit/high/High.h"',
}


class LayersTest(unittest.TestCase):
    def problems(self, planted):
        with tempfile.TemporaryDirectory() as root:
            files = {'cmake/layers.txt': LAYERS, **SOUND, **planted}
            for name, text in files.items():
                path = pathlib.Path(root, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text)
            return list(House(root).problems())

    def assert_found(self, path, text, *expected):
        found = self.problems({path: text})
        self.assertEqual(len(found), len(expected), found)
        for problem, words in zip(found, expected):
            self.assertIn(path, problem)
            self.assertIn(words, problem)

    def test_a_sound_house_passes(self):
        self.assertEqual(self.problems({}), [])

    def test_upward_include(self):
        self.assert_found('kit/low/Low.cpp', '#include "kit/high/High.h"', 'kit/low may not include kit/high')

    def test_angle_brackets_hide_nothing(self):
        self.assert_found('kit/low/Low.cpp', '#  include <kit/high/High.h>', 'may not include kit/high')

    def test_a_permitted_folder_does_not_open_the_one_inside_it(self):
        self.assert_found('tests/high/Deep.cpp', '#include "base/real/RealWindow.cpp"',
                          'tests may not include base/real')

    def test_libraries_are_only_for_those_who_name_them(self):
        self.assert_found('kit/high/High.cpp', '#include <QWindow>\n#include <QtGui/QImage>\n#include <unistd.h>',
                          'may not include qt', 'may not include qt', 'may not include posix')

    def test_missing_header(self):
        self.assert_found('kit/high/High.cpp', '#include "kit/low/Gone.h"', 'no such file')
        self.assert_found('kit/high/High.cpp', '#include "Low.h"', 'may not include posix')

    def test_folder_without_a_rule(self):
        self.assert_found('kit/Stray.h', '#include <vector>', 'not in cmake/layers.txt')


if __name__ == '__main__':
    unittest.main()
