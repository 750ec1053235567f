#!/usr/bin/env python3
"""Which file includes what, held against cmake/layers.txt.

`layers.py [ROOT]` prints every include that the data does not permit and exits with 1 when there is one.
"""

import fnmatch
import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:<([^>]+)>|"([^"]+)")', re.MULTILINE)
STANDARD = re.compile(r'^[a-z0-9_]+$')
SOURCES = ('.h', '.cpp', '.mm')


class Layers:
    """The data: libraries with their headers, folders with what they may include."""

    def __init__(self, text):
        self.libraries = []
        self.permitted = {}
        for key, words in self._entries(text):
            kind, _, name = key.rpartition(' ')
            if kind == 'library':
                self.libraries.append((name, words))
            else:
                self.permitted[key] = words
        self._check_names()

    @staticmethod
    def _entries(text):
        """Pairs of a key and its words; an indented line goes on with the line before."""
        lines = [line.partition('#')[0].rstrip() for line in text.splitlines()]
        joined = re.sub(r'\n[ \t]+', ' ', '\n'.join(line for line in lines if line))
        for line in joined.splitlines():
            key, _, words = line.partition(':')
            yield key.strip(), words.split()

    def _check_names(self):
        known = set(self.permitted) | {name for name, _ in self.libraries}
        for words in self.permitted.values():
            for word in words:
                if not word.endswith('/*') and word not in known:
                    raise ValueError(f'cmake/layers.txt: {word} is not a folder or library it declares')

    def folder_of(self, path):
        """The longest declared folder that holds `path`, or None."""
        parents = [str(parent) for parent in pathlib.PurePosixPath(path).parents]
        return next((parent for parent in parents if parent in self.permitted), None)

    def library_of(self, header):
        return next((name for name, patterns in self.libraries
                     if any(fnmatch.fnmatchcase(header, pattern) for pattern in patterns)), None)

    def permits(self, folder, target):
        return folder == target or any(covers(word, target) for word in self.permitted[folder])


def covers(word, target):
    """Whether `word` of the data stands for the folder or library `target`."""
    if word.endswith('/*'):
        return target is not None and target.startswith(word[:-1])
    return word == target


class House:
    """The sources of the folders that the data names, and their includes."""

    def __init__(self, root):
        self.root = pathlib.Path(root)
        self.layers = Layers((self.root / 'cmake/layers.txt').read_text())
        tops = sorted({folder.partition('/')[0] for folder in self.layers.permitted})
        files = [path for top in tops for path in (self.root / top).rglob('*') if path.suffix in SOURCES]
        self.includes = {str(path.relative_to(self.root)): self._includes(path) for path in sorted(files)}

    @staticmethod
    def _includes(path):
        return [angled or quoted for angled, quoted in INCLUDE.findall(path.read_text(encoding='utf-8'))]

    def problems(self):
        for path, headers in self.includes.items():
            for header in headers:
                problem = self._problem(path, header)
                if problem:
                    yield f'{path}: includes {header}: {problem}'

    def _problem(self, path, header):
        folder = self.layers.folder_of(path)
        if folder is None:
            return 'its folder is not in cmake/layers.txt'
        if header not in self.includes and STANDARD.match(header):
            return None
        target = self._target(header)
        if target is None:
            return 'no such file, and no library of cmake/layers.txt'
        return None if self.layers.permits(folder, target) else f'{folder} may not include {target}'

    def _target(self, header):
        """The folder or library that `header` belongs to, or None."""
        if header in self.includes:
            return self.layers.folder_of(header)
        is_ours = (self.root / header.partition('/')[0]).is_dir()
        return None if is_ours else self.layers.library_of(header)


def main(arguments):
    root = arguments[1] if len(arguments) > 1 else pathlib.Path(__file__).resolve().parents[2]
    house = House(root)
    problems = list(house.problems())
    for problem in problems:
        print(problem)
    print(f'{len(house.includes)} files, {len(problems)} includes that cmake/layers.txt does not permit')
    return 1 if problems else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv))
