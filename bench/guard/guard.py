#!/usr/bin/env python3
"""Counts the instructions of small scenes and compares them with those that are committed.

`guard.py PROGRAM [--write]`: PROGRAM is the built InstructionScenes. Callgrind counts what each scene does. A
count that rose by more than 5 % over its line in instructions.txt fails; with --write the counts become the
new lines, and the commit says why. Counts depend on the compiler and on Qt, so those of Debian 12 count; elsewhere
nothing is compared.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor

# What the processor at hand happens to have changes which variants of loops glibc and Qt choose.
ANY_PROCESSOR = {
    'GLIBC_TUNABLES': 'glibc.cpu.hwcaps=-AVX,-AVX2,-AVX512F,-BMI1,-BMI2,-LZCNT,-MOVBE,-ERMS,-FSRM,-RTM:'
                      'glibc.cpu.x86_non_temporal_threshold=1073741824',
    'QT_NO_CPU_FEATURE': 'avx avx2 bmi bmi2 f16c fma lzcnt movbe rdrnd rdseed avx512f',
}
LEDGER = pathlib.Path(__file__).with_name('instructions.txt')
MOST_RISE = 1.05


def count(program, scene):
    """The instructions of what the scene measures."""
    with tempfile.NamedTemporaryFile() as out:
        command = ['valgrind', '--tool=callgrind', '--collect-atstart=no', '--toggle-collect=measured',
                   f'--callgrind-out-file={out.name}', program, scene]
        environment = {**os.environ, **ANY_PROCESSOR, 'QT_QPA_PLATFORM': 'offscreen', 'LC_ALL': 'C.UTF-8'}
        done = subprocess.run(command, env=environment, text=True, capture_output=True, check=False)
    found = re.findall(r'Collected\s*:\s*(\d+)', done.stderr)
    if done.returncode or not found or not int(found[-1]):
        sys.exit(f'{scene}: nothing was counted, the program ended with {done.returncode}\n{done.stderr}')
    return int(found[-1])


def committed():
    lines = [line.split() for line in LEDGER.read_text().splitlines() if line and not line.startswith('#')]
    return {scene: int(number) for scene, number in lines}


def write(counts):
    head = [line for line in LEDGER.read_text().splitlines() if line.startswith('#')]
    rows = [f'{scene:<18}{number:>12}' for scene, number in counts.items()]
    LEDGER.write_text('\n'.join(head + [''] + rows) + '\n')


def is_debian_12():
    release = pathlib.Path('/etc/os-release')
    return release.exists() and 'VERSION_CODENAME=bookworm' in release.read_text()


def main(arguments):
    program = arguments[1]
    if not is_debian_12():
        print('not Debian 12: its counts are of other compilers and libraries, so nothing is compared')
        return 0
    scenes = subprocess.run([program], text=True, capture_output=True, check=True).stdout.split()
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        counts = dict(zip(scenes, pool.map(lambda scene: count(program, scene), scenes)))
    if '--write' in arguments:
        write(counts)
        return 0
    before = committed()
    risen = []
    for scene, number in counts.items():
        ratio = number / before[scene] if scene in before else None
        print(f'{scene:<18}{number:>12}  ' + (f'{100 * (ratio - 1):+6.1f} %' if ratio else 'new'))
        if ratio is None or ratio > MOST_RISE:
            risen.append(scene)
    if risen:
        print(f'more than 5 % over {LEDGER.name}, or not in it: {", ".join(risen)}. Where there is a reason, '
              'write the new counts with --write and give it in the commit.')
    return 1 if risen else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv))
