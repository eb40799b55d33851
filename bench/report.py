"""The tables and the plot of docs/performance.md."""

import collections
import os
import platform
import statistics
import subprocess

OURS = "ventlock"
LIMIT = "limit"
FASTEST = "the fastest peer"
BEGIN = "<!-- Written by ./bench.sh: -->"
END = "<!-- End of what ./bench.sh writes. -->"


def key_of(name):
    """(work, size, candidate) of a benchmark's name, which ends in what the library adds."""
    return tuple(name.split("/iterations:")[0].split("/", 2))


def rounds_of(results):
    """The single rounds of each candidate; those that failed have an error."""
    rounds = collections.defaultdict(list)
    for entry in results["benchmarks"]:
        if entry["run_type"] == "iteration":
            rounds[key_of(entry["name"])].append(entry)
    return rounds


def median(rounds, field):
    values = [entry[field] for entry in rounds if field in entry and not entry.get("error_occurred")]
    return statistics.median(values) if values else None


def shown(value, digits=2):
    return "" if value is None else f"{value:,.{digits}f}"


def size_order(size):
    return (not size.isdigit(), int(size) if size.isdigit() else size)


def candidates_of(rounds, work):
    """By size the candidates in the order of the program, the limit, the peers as they come."""
    sizes = collections.defaultdict(list)
    for found, size, candidate in rounds:
        if found == work:
            sizes[size].append(candidate)
    for candidates in sizes.values():
        candidates.sort(key=lambda name: (name != OURS, name != LIMIT, name.lower()))
    return dict(sorted(sizes.items(), key=lambda item: size_order(item[0])))


def others_of(goal, name, rounds):
    """Those that a goal is against."""
    if goal["against"] != FASTEST:
        return [goal["against"]]
    return [key[2] for key in list(rounds) if key[:2] == (name, goal["at"]) and key[2] not in (OURS, LIMIT)]


def measured(goal, name, rounds):
    """What a goal sets a bound to."""
    field = "idle_kib" if "more_mib" in goal else "real_time"
    ours = median(rounds[name, goal["at"], OURS], field)
    if "bytes_a_row" in goal:
        before, peak = (median(rounds[name, goal["at"], OURS], field) for field in ("idle_kib", "peak_kib"))
        return (peak - before) * 1024 / int(goal["at"]) if before and peak else None
    theirs = [median(rounds[name, goal["at"], other], field) for other in others_of(goal, name, rounds)]
    other = min((value for value in theirs if value), default=None)
    if not ours or not other:
        return None
    if "more_mib" in goal:
        return (ours - other) / 1024
    if "more_ms" in goal:
        return ours - other
    return ours / other if "at_most" in goal else other / ours


KINDS = {  # of goals: their words
    "at_most": "at most {} times {}",
    "faster": "at least {} times faster than {}",
    "more_ms": "at most {} ms more than {}",
    "more_mib": "at most {} MiB more than {} when idle",
    "bytes_a_row": "at most {} bytes a row more than {}",
}


def goal_rows(work, rounds, in_memory):
    for goal in work["goals"]:
        place = f"{goal['at']} {work['size'].lower()}".strip()
        found = measured(goal, work["name"], rounds)
        kind = next(kind for kind in KINDS if kind in goal)
        is_met = found is not None and (found >= goal[kind] if kind == "faster" else found <= goal[kind])
        yield (f"| {work['title']} | {place} | {KINDS[kind].format(goal[kind], goal['against'])} | {shown(found)} "
               f"| {'met' if is_met else '**missed**'} | {shown(measured(goal, work['name'], in_memory))} |")


def growth_rows(work, rounds, counts):
    sizes = [size for size in candidates_of(rounds, work["name"]) if size.isdigit()]
    largest = max(sizes, key=int, default=None)
    smallest = next((size for size in sizes if int(size) * 8 == int(largest)), None)
    if smallest is None or not work.get("is_linear", True):
        return
    name = work["name"]
    ratios = []
    for table in ({key: median(entries, "real_time") for key, entries in rounds.items()}, counts):
        small, large = table.get((name, smallest, OURS)), table.get((name, largest, OURS))
        ratios.append(large / small if small and large else None)
    known = [ratio for ratio in ratios if ratio is not None]
    met = "met" if known and max(known) <= 8 else "**missed**"
    yield (f"| {work['title']} | {smallest} to {largest} {work['size'].lower()} | at most 8 times for 8 times the size "
           f"| {shown(ratios[0])} (instructions {shown(ratios[1])}) | {met} | |")


def mebibytes(entries, field):
    value = median(entries, field)
    return shown(value / 1024, 1) if value else ""


def window_table(work, rounds, counts):
    """What is told of works of the window, which change no files."""
    yield f"### {work['title']}"
    yield ""
    yield (f"| {work['size']} | | Median, ms | Times ours | Processor, ms | Instructions, million | Idle, MiB "
           "| Peak, MiB |")
    yield "|--:|---|--:|--:|--:|--:|--:|--:|"
    for size, candidates in candidates_of(rounds, work["name"]).items():
        ours = median(rounds[work["name"], size, OURS], "real_time")
        for candidate in candidates:
            key = (work["name"], size, candidate)
            entries = rounds[key]
            if all(entry.get("error_occurred") for entry in entries):
                yield f"| {size} | {candidate} | failed | | | | | |"
                continue
            time = median(entries, "real_time")
            processor = 1000 * (median(entries, "user") + median(entries, "system"))
            yield (f"| {size} | {candidate} | {shown(time)} | {shown(time / ours if ours else None)} "
                   f"| {shown(processor) if processor else ''} | {shown(counts[key] / 1e6) if key in counts else ''} "
                   f"| {mebibytes(entries, 'idle_kib')} | {mebibytes(entries, 'peak_kib')} |")
    yield ""


def work_table(work, rounds, in_memory, counts):
    yield f"### {work['title']}"
    yield ""
    yield (f"| {work['size']} | | Median, ms | Times ours | In memory, ms | Processor, ms | Instructions, million | Peak, MiB "
           "| Untouched bytes changed |")
    yield "|--:|---|--:|--:|--:|--:|--:|--:|--:|"
    for size, candidates in candidates_of(rounds, work["name"]).items():
        ours = median(rounds[work["name"], size, OURS], "real_time")
        for candidate in candidates:
            key = (work["name"], size, candidate)
            entries = rounds[key]
            label = size if size.isdigit() or size == "odd" else ""
            if all(entry.get("error_occurred") for entry in entries):
                yield f"| {label} | {candidate} | failed | | | | | | |"
                continue
            time = median(entries, "real_time")
            processor = 1000 * ((median(entries, "user") or 0) + (median(entries, "system") or 0))
            peak = (median(entries, "peak_kib") or 0) / 1024
            changed = median(entries, "changed_bytes")
            changed_text = "" if changed is None else f"{changed:,.0f}"
            if median(entries, "has_entry") == 0:
                changed_text += ", entry missing"
            yield (f"| {label} | {candidate} | {shown(time)} | {shown(time / ours if ours else None)} "
                   f"| {shown(median(in_memory[key], 'real_time'))} "
                   f"| {shown(processor) if processor else ''} "
                   f"| {shown(counts[key] / 1e6) if key in counts else ''} "
                   f"| {shown(peak, 1) if peak else ''} | {changed_text} |")
    yield ""


def machine(results, folder):
    """Where and on what the run was made."""
    with open("/proc/cpuinfo", encoding="utf-8") as opened:
        model = next((line.split(":", 1)[1].strip() for line in opened if line.startswith("model name")), "unknown")
    kind = subprocess.run(["stat", "--file-system", "--format=%T", folder], stdout=subprocess.PIPE, text=True, check=True)
    rounds = max(entry["repetitions"] for entry in results["benchmarks"])
    load = results["context"]["load_avg"]
    return (f"{results['context']['date'][:10]}, {os.cpu_count()} processors ({model}), Linux {platform.release()}, "
            f"files on {kind.stdout.strip()}, {rounds} rounds, load {load[0] if load else 0:.1f} at the start.")


def tables(goals, works, runs, counts, folder):
    """`runs`: the results on the disk and in memory; `counts`: the instructions of candidates."""
    rounds, in_memory = rounds_of(runs["disk"]), rounds_of(runs["memory"])
    chosen = [work for work in goals["works"] if work["name"] in works]
    lines = [machine(runs["disk"], folder), "", "### Goals", ""]
    lines += ["| Work | At | Goal | Measured | | In memory |", "|---|---|---|--:|---|--:|"]
    for work in chosen:
        lines += goal_rows(work, rounds, in_memory)
        lines += growth_rows(work, rounds, counts)
    lines.append("")
    for work in chosen:
        if work.get("in_window"):
            lines += window_table(work, rounds, counts)
        else:
            lines += work_table(work, rounds, in_memory, counts)
    return "\n".join(lines)


def write(docs, text):
    """Puts the tables between their marks; what stands around them is written by hand."""
    path = docs / "performance.md"
    before, rest = path.read_text().split(BEGIN)
    after = rest.split(END)[1]
    path.write_text(f"{before}{BEGIN}\n\n{text}\n{END}{after}")


def plot(path, goals, results):
    """Medians of the program and the limit against the size, for all works on files that have sizes."""
    rounds = rounds_of(results)
    curves, blocks = [], []
    for work in goals["works"]:
        sizes = [size for size in candidates_of(rounds, work["name"]) if size.isdigit()]
        if not sizes or work["size"] != "Lines":
            continue
        for candidate, dash in ((OURS, 1), (LIMIT, 2)):
            number = len(blocks)
            title = work["title"].replace("`", "") + (", limit" if candidate == LIMIT else "")
            curves.append(f"$data{number} using 1:2 with linespoints linecolor {number // 2 + 1} dashtype {dash} title '{title}'")
            points = [f"{size} {median(rounds[work['name'], size, candidate], 'real_time')}" for size in sizes]
            blocks.append("\n".join([f"$data{number} << end", *points, "end"]))
    script = [*blocks, "set terminal svg size 900,500 background 'white'", f"set output '{path}'", "set key left top",
              "set xlabel 'lines'", "set ylabel 'milliseconds'", "set xrange [0:*]", "set yrange [0:*]", "set grid",
              "plot " + ", ".join(curves)]
    subprocess.run(["gnuplot"], input="\n".join(script), text=True, check=True)
