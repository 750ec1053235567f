#!/usr/bin/env python3
"""Which headers an installed kit offers, held against cmake/headers.txt.

`offer.py [INSTALLED]` prints every header that is neither offered nor kept back as the data says, and every line of
the data that is out of date, and exits with 1 when there is one. With the root of installed headers it compares
what lies there too.
"""

import pathlib
import sys

from layers import House


class Offer:
    """The data: folders with their umbrellas, what is kept back, what is there for others only."""

    def __init__(self, house):
        self.house = house
        self.umbrellas, self.internal, self.support, self.users = {}, [], [], []
        lists = {'internal': self.internal, 'support': self.support, 'user': self.users}
        for line in (house.root / 'cmake/headers.txt').read_text(encoding='utf-8').splitlines():
            kind, *words = line.partition('#')[0].split() or ['']
            if kind == 'public':
                self.umbrellas[words[0]] = words[1] if len(words) > 1 else None
            elif kind:
                lists[kind].append(words[0])

    def is_internal(self, path):
        return any(path == inside or path.startswith(inside + '/') for inside in self.internal)

    def folder_of(self, path):
        """The longest public folder that holds `path`, or None."""
        parents = [str(parent) for parent in pathlib.PurePosixPath(path).parents]
        return next((parent for parent in parents if parent in self.umbrellas), None)

    def is_public(self, path):
        return path.endswith('.h') and self.folder_of(path) is not None and not self.is_internal(path)

    def public_headers(self):
        return [path for path in self.house.includes if self.is_public(path)]

    def library_headers(self):
        """The headers of the libraries, but those of folders that know Qt."""
        tops = {folder.partition('/')[0] for folder in self.umbrellas}
        layers = self.house.layers
        return [path for path in self.house.includes if path.endswith('.h') and path.partition('/')[0] in tops
                and 'qt' not in layers.permitted[layers.folder_of(path)]]

    def problems(self):
        yield from self._outdated()
        yield from self._leaks()
        yield from self._forgotten()
        yield from self._needless_support()
        yield from self._users_inside()

    def _outdated(self):
        named = [*self.umbrellas, *filter(None, self.umbrellas.values()), *self.internal, *self.support, *self.users]
        for path in named:
            if not (self.house.root / path).exists():
                yield f'cmake/headers.txt: {path} does not exist'

    def _leaks(self):
        for path in self.public_headers():
            for header in self.house.includes[path]:
                if header in self.house.includes and not self.is_public(header):
                    yield f'{path}: is installed and includes {header}, which is not'
                elif self.house.layers.library_of(header) == 'qt':
                    yield f'{path}: is installed and includes {header} of Qt'

    def _forgotten(self):
        for path in self.public_headers():
            umbrella = self.umbrellas[self.folder_of(path)]
            if umbrella and path not in [umbrella, *self.house.includes.get(umbrella, ()), *self.support]:
                yield f'{path}: is installed, but {umbrella} does not include it'

    def _needless_support(self):
        needed = {header for path in self.public_headers() for header in self.house.includes[path]}
        offered = {header for umbrella in self.umbrellas.values() for header in self.house.includes.get(umbrella, ())}
        for path in self.support:
            if path not in needed or path in offered:
                yield f'cmake/headers.txt: {path} is no support: no installed header needs it, or an umbrella offers it'

    def _users_inside(self):
        for path, headers in self.house.includes.items():
            if not any(path.startswith(user + '/') for user in self.users):
                continue
            for header in filter(self.is_internal, headers):
                yield f'{path}: includes {header}, which programs do not have'

    def differences(self, installed):
        """How the headers below `installed` differ from those that are public."""
        there = {str(path.relative_to(installed)) for path in pathlib.Path(installed).rglob('*.h')}
        public = set(self.public_headers())
        yield from (f'{path}: is not installed' for path in sorted(public - there))
        yield from (f'{path}: is installed, but not public' for path in sorted(there - public))


def main(arguments):
    offer = Offer(House(pathlib.Path(__file__).resolve().parents[2]))
    problems = [*offer.problems(), *(problem for root in arguments[1:] for problem in offer.differences(root))]
    for problem in problems:
        print(problem)
    print(f'{len(offer.public_headers())} public headers, {len(problems)} problems')
    return 1 if problems else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv))
