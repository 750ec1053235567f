#!/usr/bin/env python3
"""A shared library shows what the headers declare that know nothing of Qt, and nothing else.

`symbols.py NM LIBRARY...`. Fails on every exported symbol that is not of the namespace bkuk, that lies in an unnamed
namespace, or whose first name no such header spells. Those that are not installed count: tests use them.
"""

import os
import re
import subprocess
import sys

from layers import House
from offer import Offer

# What is made for a class or a static variable, then its name, whose parts are spelled with their lengths.
OWN = re.compile(r'_Z(?:TI|TS|TV|TT|GV|Thn\d+_|Tv\w+?_|Tch\w+?_)?Z?NK?4bkuk(.*)')
INNER_NAMESPACES = ('host', 'archive', 'detail')
# Fewer would mean that the names were not read at all.
FEWEST = 1000


def exported(nm, library):
    """The symbols that a program can link to, as the compiler spells them."""
    listing = subprocess.run([nm, '--dynamic', '--defined-only', '--format=posix', library],
                             stdout=subprocess.PIPE, text=True, check=True).stdout
    return [line.split()[0] for line in listing.splitlines()]


def first_name(rest):
    """The class or function that `rest` of a symbol begins with; none for an operator of the namespace."""
    spelled = re.match(r'(\d+)(.*)', rest)
    if not spelled:
        return None
    length = int(spelled.group(1))
    name, rest = spelled.group(2)[:length], spelled.group(2)[length:]
    return first_name(rest) if name in INNER_NAMESPACES else name


def words_of_headers(house):
    headers = Offer(house).library_headers()
    text = '\n'.join((house.root / header).read_text(encoding='utf-8') for header in headers)
    return set(re.findall(r'\w+', text)) | {None}


def is_public(symbol, words):
    own = OWN.fullmatch(symbol)
    return bool(own) and '_GLOBAL__N_' not in symbol and first_name(own.group(1)) in words


def main(arguments):
    house = House(os.path.join(os.path.dirname(__file__), '../..'))
    words = words_of_headers(house)
    symbols = [symbol for library in arguments[2:] for symbol in exported(arguments[1], library)]
    inside = [symbol for symbol in symbols if not is_public(symbol, words)]
    for symbol in inside:
        print(f'shown, but in no header without Qt: {symbol}')
    print(f'{len(symbols)} exported symbols, {len(inside)} of them of the inside')
    return 1 if inside or len(symbols) < FEWEST else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv))
