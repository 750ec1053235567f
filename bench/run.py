#!/usr/bin/env python3
"""Runs the benchmark programs of a folder, keeps their results as JSON and prints them as one table.

`run.py PROGRAMS RESULTS [OPTION...]`: every program in the folder PROGRAMS runs with the options and leaves
RESULTS/<program>.json.
"""

import json
import os
import pathlib
import subprocess
import sys

NANOSECONDS = {'ns': 1, 'us': 1e3, 'ms': 1e6, 's': 1e9}


def run(program, results, options):
    """The benchmarks of one program, as it reports them."""
    report = results / f'{program.name}.json'
    command = [program, f'--benchmark_out={report}', '--benchmark_out_format=json', *options]
    environment = {'QT_QPA_PLATFORM': 'offscreen', **os.environ}
    done = subprocess.run(command, env=environment, text=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          check=False)
    if done.returncode:
        sys.exit(f'{program.name} failed with {done.returncode}:\n{done.stdout}{done.stderr}')
    text = report.read_text() if report.exists() else ''
    return json.loads(text)['benchmarks'] if text else []


def readable(nanoseconds):
    """A time with three or four digits and the unit that suits it."""
    for unit, size in (('s', 1e9), ('ms', 1e6), ('µs', 1e3)):
        if nanoseconds >= size:
            return f'{nanoseconds / size:.2f} {unit}'
    return f'{nanoseconds:.1f} ns'


def row(program, benchmark):
    factor = NANOSECONDS[benchmark['time_unit']]
    times = [readable(benchmark[clock] * factor) for clock in ('cpu_time', 'real_time')]
    return [program, benchmark['name'], *times, str(benchmark.get('iterations', ''))]


def print_table(rows):
    rows = [['program', 'benchmark', 'processor', 'clock', 'rounds'], *rows]
    widths = [max(len(line[column]) for line in rows) for column in range(len(rows[0]))]
    for line in rows:
        left = [cell.ljust(width) for cell, width in zip(line[:2], widths)]
        right = [cell.rjust(width) for cell, width in zip(line[2:], widths[2:])]
        print('  '.join(left + right))


def main(arguments):
    folder, results = pathlib.Path(arguments[1]), pathlib.Path(arguments[2])
    results.mkdir(parents=True, exist_ok=True)
    programs = sorted(folder.glob('*Bench'))
    if not programs:
        sys.exit(f'no benchmark programs in {folder}')
    rows = []
    for program in programs:
        for benchmark in run(program, results, arguments[3:]):
            if 'error_occurred' in benchmark:
                sys.exit(f'{program.name}: {benchmark["name"]}: {benchmark["error_message"]}')
            rows.append(row(program.name, benchmark))
    print_table(rows)
    print(f'\nwritten to {results}/*.json')


if __name__ == '__main__':
    main(sys.argv)
