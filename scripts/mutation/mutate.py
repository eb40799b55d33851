"""mutate.py <source copy> <build folder> <count> <seed>

Makes `count` small changes in a copy of the sources, builds it once with all of them, each behind a switch, and runs the
tests with one change at a time. Prints how many the tests saw, per folder, and those that they did not see. Exits with 1
when they saw less than the goal.
"""

import collections
import concurrent.futures
import glob
import os
import subprocess
import sys

import sample
import trial

GOAL = 90  # percent
MOST_SHOWN = 3000  # characters of what a program says
ENOUGH_FOR_ALL = 100  # of so many changes every program runs some
FOLDERS = ("core", "db", "files", "entry", "platform")
SEEN = ("failed", "timeout")


def sources_of(source):
    found = []
    for folder in FOLDERS:
        found += glob.glob(f"{source}/src/{folder}/**/*.cpp", recursive=True)
    return sorted(file for file in found if "/win32/" not in file)


def quick_programs(build):
    """Name of the target and program of those that are asked about every change, in this order."""
    unit = ("core", "files", "entry", "db", "platform", "odbc", "cli")
    programs = [(f"{name}_tests", trial.Program(name, [f"{build}/tests/unit/{name}_tests"])) for name in unit]
    return [*programs, ("e2e_tests", trial.Program("e2e", [f"{build}/tests/e2e/e2e_tests"]))]


def slow_programs(source, build):
    """Those that are asked only about what the others have not seen."""
    display = f"{source}/tests/support/display/with_display.sh"
    return [
        ("servers_tests", trial.Program("servers", [f"{build}/tests/unit/servers_tests"])),
        ("gui_tests", trial.Program("gui", [display, f"{build}/tests/gui/gui_tests"])),
    ]


def nearest(change):
    """The name of the test program for the change's own folder."""
    parts = change.file.split("/src/", 1)[1].split("/")
    return "odbc" if parts[:2] == ["platform", "odbc"] else parts[0]


def verdict(number, change, programs):
    """What the tests say to a change, and which of them: "failed", "timeout", "survived", or "not reached"."""
    asked = [program for program in programs if number in program.reached]
    for program in sorted(asked, key=lambda program: program.name != nearest(change)):
        answer = program.answer(number)
        if answer in SEEN:
            return answer, program.name
    return ("survived" if asked else "not reached"), ""


def made(build, programs, sample_size, workers):
    """Builds the programs and runs them without a change, and with every change at once, which must fail."""
    targets = [target for target, _ in programs]
    subprocess.run(["cmake", "--build", build, "-j", str(workers), "--target", *targets], check=True,
                   stdout=subprocess.DEVNULL)  # fmt: skip
    for _, program in programs:
        said = program.measure()
        if said is not None:
            sys.exit(f"{program.name} fails without a change:\n{said[:MOST_SHOWN]}")
        print(f"{program.name}: {program.seconds:.0f} s, reaches {len(program.reached)} changes", flush=True)
        if program.reached and program.answer("all") == "passed":
            sys.exit(f"{program.name} passes with every change at once: the switch does not work")
        if not program.reached and sample_size >= ENOUGH_FOR_ALL:
            sys.exit(f"{program.name} runs none of the changes: the switch does not get there")
    return [program for _, program in programs]


def ask(programs, numbered, source, workers):
    """The verdict of these programs on each (number, change)."""
    verdicts = {}
    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        asked = {pool.submit(verdict, number, change, programs): (number, change) for number, change in numbered}
        for done in concurrent.futures.as_completed(asked):
            number, change = asked[done]
            verdicts[change] = done.result()
            print(f"{number:4} {' '.join(verdicts[change]):20} {shown(change, source)}", flush=True)
    return verdicts


def shown(change, source):
    def flat(text):
        return " ".join(text.split())

    place = f"{os.path.relpath(change.file, source)}:{change.line}"
    return f"{place}: {change.kind}: `{flat(change.original)}` -> `{flat(change.changed)}`"


def main():
    source, build, count, seed = sys.argv[1], sys.argv[2], int(sys.argv[3]), int(sys.argv[4])
    workers = os.cpu_count()
    scratch = os.path.join(build, "check")
    os.makedirs(scratch, exist_ok=True)
    compiler = sample.Compiler(build, scratch)

    pool = sample.all_changes(sources_of(source), compiler, workers)
    changes = sample.choose(sample.shuffle(pool, source, seed), count, compiler, workers)
    print(f"{len(changes)} changes out of {len(pool)}, seed {seed}", flush=True)
    sample.plant(changes)
    numbered = list(enumerate(changes, 1))

    verdicts = ask(made(build, quick_programs(build), len(changes), workers), numbered, source, workers)
    unseen = [(number, change) for number, change in numbered if verdicts[change][0] not in SEEN]
    if unseen:
        slow = made(build, slow_programs(source, build), len(changes), workers)
        for change, found in ask(slow, unseen, source, workers).items():
            if found[0] != "not reached":
                verdicts[change] = found
    sys.exit(report(changes, verdicts, source))


def report(changes, verdicts, source):
    counts = collections.Counter()
    for change in changes:
        folder = change.file.split("/src/", 1)[1].split("/")[0]
        for row in (folder, "all"):
            counts[row, "changes"] += 1
            counts[row, verdicts[change][0]] += 1
    print("\nNot seen by any test:")
    for change in changes:
        if verdicts[change][0] not in SEEN:
            print(f"- {shown(change, source)}" + (" (no test runs it)" if verdicts[change][0] == "not reached" else ""))
    print(f"\n{'folder':10}{'changes':>9}{'failed':>8}{'timeout':>9}{'unseen':>8}{'seen':>9}")
    for row in (*FOLDERS, "all"):
        total, failed, timeout = (counts[row, column] for column in ("changes", *SEEN))
        seen = 100 * (failed + timeout) / total if total else 100
        print(f"{row:10}{total:9}{failed:8}{timeout:9}{total - failed - timeout:8}{seen:8.1f}%")
    if seen < GOAL:
        print(f"The goal is {GOAL} %.", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    main()
