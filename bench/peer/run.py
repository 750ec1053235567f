#!/usr/bin/env python3
"""Runs the programs of a folder, the kit's and those of other toolkits, and prints their figures side by side.

`run.py PROGRAMS RESULTS [OPTION...]`; `--help` names the options. Each workload runs in a process of its own.
All processes, an X server among them, share one processor: waking another one costs more than much of what is
measured. Each round runs everything once, the programs next to each other within a workload, so that a busy
moment of the machine hits all of them; every other round runs backwards. A figure is the median of the rounds.
"""

import argparse
import collections
import json
import os
import pathlib
import re
import statistics
import subprocess
import sys
import tempfile
import time

KIT = 'kit'

# In the order of the table. What the kit alone has is compared with another workload of the others.
WORKLOADS = {
    'create': 'create',
    'create-frames': 'create',
    'first-frame': 'first-frame',
    'full-repaint': 'full-repaint',
    'full-repaint-composite': 'full-repaint',
    'hover': 'hover',
    'appearance': 'appearance',
    'markup': 'markup',
    'markup-64k': 'markup-64k',
    'measure': 'measure',
    'animation-sync': 'animation-sync',
    'startup': 'startup',
    'text-paint': 'text-paint',
    'icon-cached': 'icon-cached',
    'icon-stroke': 'icon-stroke',
    'shadow-first': 'shadow-first',
    'shadow-cached': 'shadow-cached',
}

# These are about fresh memory; the others touch as many MiB of heap first.
COLD = {'create', 'create-frames', 'first-frame', 'shadow-first', 'startup'}
HEAP = '256'

# Nothing of these is shown, so one platform will do.
UNSEEN = {'create', 'create-frames', 'markup', 'markup-64k', 'measure', 'animation-sync'}

# The platforms of programs that open windows; the others need none.
PLATFORMS = ('offscreen', 'xcb')
WINDOWLESS = {'pangocairo'}

# Seconds for one run; callgrind makes it 50 times as long.
PATIENCE = 600

Job = collections.namedtuple('Job', 'program platform workload')


class XServer:
    """A screen of its own, of which nothing is seen."""

    # What it has touched it keeps, as the programs do.
    KEEPS_MEMORY = 'glibc.malloc.mmap_max=0:glibc.malloc.trim_threshold=4294967296'

    def __enter__(self):
        reader, writer = os.pipe()
        command = ['Xvfb', '-displayfd', str(writer), '-screen', '0', '2560x1600x24', '-dpi', '96', '-noreset',
                   '-nolisten', 'tcp']
        self.process = subprocess.Popen(command, pass_fds=[writer], stderr=subprocess.DEVNULL,
                                        env={**os.environ, 'GLIBC_TUNABLES': self.KEEPS_MEMORY})
        os.close(writer)
        with os.fdopen(reader) as pipe:
            self.display = ':' + pipe.readline().strip()
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()


class Runner:
    """Runs one workload of one program."""

    def __init__(self, programs, display, scratch):
        self.programs = programs
        self.display = display
        self.scratch = scratch

    def workloads(self, program):
        done = subprocess.run([self.programs / program], env=self._environment('offscreen'), text=True, check=True,
                              stdout=subprocess.PIPE)
        return set(done.stdout.split())

    def times(self, job):
        """Nanoseconds of the processor for one thing; of `startup` those on the wall. Bytes where they count."""
        environment = self._environment(job.platform)
        if job.workload not in COLD:
            environment['PEER_HEAP'] = HEAP
        began = time.monotonic_ns()
        report = json.loads(self._run([self.programs / job.program, job.workload], environment, job).stdout)
        if job.workload == 'startup':
            return {'figure': report['firstFrame'] - began}
        return {'figure': report['processor'], 'wall': report['wall'], 'bytes': report['bytes']}

    def instructions(self, job):
        """Instructions for one thing, while the workload is timed; of `startup` all there are."""
        inside = [] if job.workload == 'startup' else ['--toggle-collect=peer::timed*']
        command = ['valgrind', '--tool=callgrind', '--callgrind-out-file=/dev/null', *inside,
                   self.programs / job.program, job.workload]
        environment = {**self._environment(job.platform), 'PEER_REPETITIONS': '1'}
        done = self._run(command, environment, job)
        return {'figure': collected(done.stderr) / json.loads(done.stdout).get('count', 1)}

    def _run(self, command, environment, job):
        try:
            return subprocess.run(command, env=environment, text=True, timeout=PATIENCE, check=True,
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        except subprocess.TimeoutExpired:
            sys.exit(f'{job.program} {job.workload} ({job.platform}) did not end')
        except subprocess.CalledProcessError as error:
            sys.exit(f'{job.program} {job.workload} ({job.platform}) failed: {error.stderr[-500:]}')

    def _environment(self, platform):
        """Of the user's desktop nothing but where programs and files are."""
        kept = {name: os.environ[name] for name in ('PATH', 'HOME') if name in os.environ}
        return {**kept, 'LANG': 'C.UTF-8', 'XDG_RUNTIME_DIR': self.scratch, 'QT_QPA_PLATFORM': platform,
                'QT_LOGGING_RULES': 'qt.qpa.*=false', **({'DISPLAY': self.display} if platform == 'xcb' else {})}


def collected(report):
    """The number of instructions that callgrind says it collected."""
    return int(re.search(r'Collected\s*:\s*(\d+)', report)[1])


def platforms_of(program, workload):
    if program in WINDOWLESS:
        return ('image',)
    return PLATFORMS[:1] if workload in UNSEEN else PLATFORMS


def jobs(runner, programs, options):
    """All that is asked for; callgrind sees the same work on every platform, and takes the first."""
    known = {program: runner.workloads(program) for program in programs}
    return [Job(program, platform, workload)
            for workload in WORKLOADS if not options.workload or workload in options.workload
            for program in programs if workload in known[program]
            for platform in platforms_of(program, workload)[:1 if options.callgrind else None]]


def run_rounds(measure, todo, rounds, sink):
    """The median of each job's figures by name."""
    seen = collections.defaultdict(lambda: collections.defaultdict(list))
    for number in range(rounds):
        for job in todo if number % 2 == 0 else reversed(todo):
            figures = measure(job)
            sink.write(json.dumps({**job._asdict(), 'round': number, **figures}) + '\n')
            sink.flush()
            for name, figure in figures.items():
                seen[job][name].append(figure)
        print(f'round {number + 1} of {rounds}, load {os.getloadavg()[0]:.1f}', file=sys.stderr)
    return {job: {name: statistics.median(values) for name, values in figures.items()}
            for job, figures in seen.items()}


def readable_time(nanoseconds):
    for unit, size in (('ms', 1e6), ('µs', 1e3)):
        if nanoseconds >= size:
            return f'{nanoseconds / size:.2f} {unit}'
    return f'{nanoseconds:.0f} ns'


def readable_count(count):
    return f'{count:,.0f}'


def rows(medians, programs, readable):
    """Lines of the table: a workload on a platform, a figure of each program, the kit's share of the best."""
    for workload, other in WORKLOADS.items():
        for platform in PLATFORMS:
            yield from row(medians, programs, (workload, other, platform), 'figure', readable)
    for workload in ('create', 'create-frames'):
        yield from row(medians, programs, (workload, 'create', 'offscreen'), 'bytes', readable_count)


def row(medians, programs, key, name, readable):
    workload, other, platform = key

    def figure(program):
        """What the peers without a window have is shown beside both platforms."""
        place = 'image' if program in WINDOWLESS else platform
        figures = medians.get(Job(program, place, workload)) or medians.get(Job(program, place, other)) or {}
        return figures.get(name)

    kit = medians.get(Job(KIT, platform, workload), {}).get(name)
    peers = {program: figure(program) for program in programs if program != KIT}
    if kit is None:
        return
    best = min((value for value in peers.values() if value), default=None)
    title = workload + ('' if platform == 'offscreen' else f' ({platform})') + (', bytes' if name == 'bytes' else '')
    yield [title, readable(kit), *(readable(value) if value else '' for value in peers.values()),
           f'{kit / best:.2f}' if best else '']


def print_table(lines):
    widths = [max(len(line[column]) for line in lines) for column in range(len(lines[0]))]
    for line in lines:
        print('  '.join([line[0].ljust(widths[0]), *(cell.rjust(width) for cell, width in zip(line[1:], widths[1:]))]))


def parse(arguments):
    parser = argparse.ArgumentParser(prog='./dev bench --peers', description=__doc__.split('\n', maxsplit=1)[0])
    parser.add_argument('programs', type=pathlib.Path, help=argparse.SUPPRESS)
    parser.add_argument('results', type=pathlib.Path, help=argparse.SUPPRESS)
    parser.add_argument('-r', '--rounds', type=int, help='rounds; 7, with --callgrind 1')
    parser.add_argument('-w', '--workload', action='append', choices=WORKLOADS, help='this one only; may be repeated')
    parser.add_argument('-p', '--peer', action='append', help='this one and the kit only; may be repeated')
    parser.add_argument('--cpu', type=int, default=max(os.sched_getaffinity(0)), help='the processor to run on')
    parser.add_argument('--callgrind', action='store_true', help='count instructions instead of taking times')
    return parser.parse_args(arguments)


def main(arguments):
    options = parse(arguments)
    programs = sorted((path.name for path in options.programs.iterdir()
                       if path.name == KIT or not options.peer or path.name in options.peer),
                      key=lambda name: (name != KIT, name in WINDOWLESS, name))
    rounds = options.rounds or (1 if options.callgrind else 7)
    options.results.mkdir(parents=True, exist_ok=True)
    report = options.results / ('instructions.jsonl' if options.callgrind else 'times.jsonl')
    os.sched_setaffinity(0, {options.cpu})  # and with it all that is started here
    with XServer() as server, tempfile.TemporaryDirectory() as scratch, open(report, 'w', encoding='utf-8') as sink:
        runner = Runner(options.programs, server.display, scratch)
        measure = runner.instructions if options.callgrind else runner.times
        medians = run_rounds(measure, jobs(runner, programs, options), rounds, sink)
    readable = readable_count if options.callgrind else readable_time
    print_table([['', *programs, 'to the best'], *rows(medians, programs, readable)])
    print(f'\nwritten to {report}')


if __name__ == '__main__':
    main(sys.argv[1:])
