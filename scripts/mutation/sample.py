"""The random sample of changes, and its planting into the sources."""

import collections
import concurrent.futures
import hashlib
import json
import os
import shlex
import subprocess

import points


class Compiler:
    """How each file of a build folder is compiled."""

    def __init__(self, build, scratch):
        with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as opened:
            self.commands = {entry["file"]: entry for entry in json.load(opened)}
        self.scratch = scratch

    def arguments(self, file):
        """The compiler and its options, without a launcher, input and output."""
        words = shlex.split(self.commands[file]["command"])
        if os.path.basename(words[0]) == "ccache":
            del words[0]
        for option in ("-o", "-c"):
            at = words.index(option)
            del words[at : at + 2]
        return words

    def takes(self, file, changes):
        """Whether the file compiles with these changes planted."""
        copy = os.path.join(self.scratch, file.replace("/", "_"))
        with open(copy, "w", encoding="utf-8") as written:
            written.write(with_planted(file, [(change, 1) for change in changes]))
        command = [*self.arguments(file), "-fsyntax-only", copy]
        return subprocess.run(command, cwd=self.commands[file]["directory"], capture_output=True).returncode == 0

    def accepted(self, file, already, new):
        """Those of the new changes that the file compiles with."""
        if self.takes(file, already + new):
            return new
        return [change for change in new if self.takes(file, [change])]


def with_planted(file, numbered):
    """The file's text with each (change, number) planted; changes do not overlap."""
    with open(file, "rb") as opened:
        source = opened.read()
    for change, number in sorted(numbered, reverse=True):
        source = source[: change.begin] + change.planted(number).encode() + source[change.end :]
    return source.decode()


def all_changes(files, compiler, workers):
    """Every change of every file, found by several processes at once."""
    with concurrent.futures.ProcessPoolExecutor(workers) as pool:
        found = pool.map(points.changes_of, files, [compiler.arguments(file)[1:] for file in files])
        return [change for changes in found for change in changes]


def shuffle(changes, source, seed):
    """The changes in a random order in which each keeps its place however the code around it changes: it is chosen by the
    text of its line, not by where that stands."""
    lines = {}
    for file in {change.file for change in changes}:
        with open(file, encoding="utf-8") as opened:
            lines[file] = opened.read().split("\n")
    seen = collections.Counter()
    rank = {}
    for change in sorted(changes):
        line = lines[change.file][change.line - 1].strip()
        text = (os.path.relpath(change.file, source), line, change.kind, change.original, change.changed)
        seen[text] += 1  # a line may stand there twice, and hold the same twice
        rank[change] = hashlib.sha256(repr((seed, text, seen[text])).encode()).digest()
    return sorted(changes, key=rank.get)


def choose(shuffled, count, compiler, workers):
    """The first `count` changes that do not overlap and that compile, in the order of the files."""
    shuffled = list(shuffled)
    chosen = collections.defaultdict(list)
    while shuffled and sum(map(len, chosen.values())) < count:
        batch = collections.defaultdict(list)
        missing = count - sum(map(len, chosen.values()))
        while shuffled and missing > 0:
            change = shuffled.pop(0)
            if not any(change.overlaps(other) for other in chosen[change.file] + batch[change.file]):
                batch[change.file].append(change)
                missing -= 1
        with concurrent.futures.ThreadPoolExecutor(workers) as pool:
            files = sorted(file for file in batch if batch[file])
            accepted = pool.map(lambda file: compiler.accepted(file, chosen[file], batch[file]), files)
            for file, changes_of_file in zip(files, accepted):
                chosen[file].extend(changes_of_file)
    return sorted(change for changes_of_file in chosen.values() for change in changes_of_file)


def plant(changes):
    """Writes all changes into their files, numbered from 1 in this order."""
    by_file = collections.defaultdict(list)
    for number, change in enumerate(changes, 1):
        by_file[change.file].append((change, number))
    for file, numbered in by_file.items():
        text = with_planted(file, numbered)
        with open(file, "w", encoding="utf-8") as written:
            written.write(text)
