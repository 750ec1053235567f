#!/usr/bin/env python3
"""Every header that needs no Qt compiles alone, and so every public one does.

`headers.py COMPILER [ROOT]`. Where a source of the same name begins with the header, the build has proved
it already; the others are compiled here, each in a file of its own.
"""

import concurrent.futures
import os
import subprocess
import sys

from layers import House
from offer import Offer

FLAGS = ['-std=c++20', '-fsyntax-only', '-Wall', '-Wextra', '-Wpedantic', '-Wno-missing-field-initializers',
         '-Werror', '-x', 'c++', '-']


def proved_by_build(house, header):
    source = header.removesuffix('.h') + '.cpp'
    return house.includes.get(source, [None])[:1] == [header]


def compile_alone(compiler, root, header):
    """The compiler's complaint, empty when the header stands alone, also when it is included twice."""
    text = f'#include "{header}"\n' * 2
    result = subprocess.run([compiler, '-I', str(root), *FLAGS], input=text, text=True,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    return result.stdout if result.returncode else ''


def main(arguments):
    root = arguments[2] if len(arguments) > 2 else os.path.join(os.path.dirname(__file__), '../..')
    house = House(root)
    headers = [header for header in Offer(house).library_headers() if not proved_by_build(house, header)]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        complaints = list(pool.map(lambda header: compile_alone(arguments[1], root, header), headers))
    failed = [header for header, complaint in zip(headers, complaints) if complaint]
    sys.stdout.writelines(complaints)
    print(f'{len(headers)} headers compiled alone, failed: {failed}')
    return 1 if failed or not headers else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv))
