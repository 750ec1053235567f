#!/usr/bin/env python3
"""The check of what is offered, itself: each kind of mistake, planted in a small house, is found."""

import pathlib
import tempfile
import unittest

from layers import House
from offer import Offer

LAYERS = """
library qt: Q[A-Z]* Qt*/*
base:
base/real:   base qt
kit:         base
examples:    kit base
"""

OFFER = """
public base
public kit kit/Kit.h
internal base/real   # a folder
internal kit/Inside.h
support kit/Helper.h
user examples
"""

SOUND = {
    'base/Window.h': '#include <vector>',
    'base/real/RealWindow.h': '#include "base/Window.h"\n#include <QWindow>',
    'kit/Kit.h': '#include "kit/View.h"',
    'kit/View.h': '#include "kit/Helper.h"',
    'kit/Helper.h': '#include "base/Window.h"',
    'kit/Inside.h': '',
    'kit/View.cpp': '#include "kit/View.h"\n#include "kit/Inside.h"',
    'examples/Example.cpp': '#include "kit/Kit.h"',
}


class OfferTest(unittest.TestCase):
    def offer(self, planted):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        root = pathlib.Path(folder.name)
        for name, text in {'cmake/layers.txt': LAYERS, 'cmake/headers.txt': OFFER, **SOUND, **planted}.items():
            path = root / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)
        return Offer(House(root))

    def assert_found(self, planted, *expected):
        found = list(self.offer(planted).problems())
        self.assertEqual(len(found), len(expected), found)
        for problem, words in zip(found, expected):
            self.assertIn(words, problem)

    def test_a_sound_house_passes(self):
        self.assert_found({})

    def test_what_is_not_there(self):
        self.assert_found({'cmake/headers.txt': OFFER + 'internal kit/Gone.h\n'}, 'kit/Gone.h does not exist')

    def test_public_header_with_one_of_the_inside(self):
        self.assert_found({'kit/View.h': '#include "kit/Helper.h"\n#include "kit/Inside.h"\n#include <QWindow>'},
                          'kit/Inside.h, which is not', 'QWindow of Qt')

    def test_header_that_no_umbrella_offers(self):
        self.assert_found({'kit/Stray.h': ''}, 'kit/Stray.h')

    def test_support_that_nobody_needs_or_everybody_gets(self):
        self.assert_found({'kit/View.h': ''}, 'kit/Helper.h is no support')
        self.assert_found({'kit/Kit.h': '#include "kit/View.h"\n#include "kit/Helper.h"'}, 'kit/Helper.h is no support')

    def test_example_of_what_programs_cannot_do(self):
        self.assert_found({'examples/Example.cpp': '#include "kit/Inside.h"'}, 'examples/Example.cpp')

    def test_installed_headers_are_the_public_ones(self):
        offer = self.offer({})
        with tempfile.TemporaryDirectory() as installed:
            for name in [*offer.public_headers()[1:], 'kit/Inside.h']:
                path = pathlib.Path(installed, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.touch()
            missing, surplus = offer.differences(installed)
        self.assertIn(offer.public_headers()[0], missing)
        self.assertIn('kit/Inside.h', surplus)


if __name__ == '__main__':
    unittest.main()
