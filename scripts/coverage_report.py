"""coverage_report.py <coverage.json> <reasons.md>

Prints which share of the lines and branches ran, per folder, and the lines that did not. Exits with 1 when a folder has
fewer than the goal, when such a line is not in the list of reasons, or when one in the list did run.
"""

import collections
import json
import re
import sys

GOAL = 95  # percent of lines, in each folder and in all


def reasons_of(path):
    """The reasons' file: below a heading "### `<file>`", entries "- `<the line's own text>`: <reason>"."""
    reasons = collections.defaultdict(dict)
    file = None
    with open(path, encoding="utf-8") as opened:
        for line in opened:
            if heading := re.match(r"### `(.+)`$", line):
                file = heading[1]
            elif entry := re.match(r"- `+ ?(.+?) ?`+: (.+)$", line):
                reasons[file][entry[1]] = entry[2]
    return reasons


def folder_of(file):
    """The folder of src/, which is a library."""
    return "/".join(file.split("/")[:2])


def share(counts):
    ran, all_of_them = counts
    return f"{ran:6} of {all_of_them:5}{100 * ran / max(all_of_them, 1):8.2f}%"


def main():
    with open(sys.argv[1], encoding="utf-8") as opened:
        files = json.load(opened)["files"]
    reasons = reasons_of(sys.argv[2])
    lines, branches = collections.defaultdict(lambda: [0, 0]), collections.defaultdict(lambda: [0, 0])
    silent = collections.defaultdict(list)
    for file in files:
        with open(file["file"], encoding="utf-8") as opened:
            texts = [text.strip() for text in opened]
        for line in file["lines"]:
            if line.get("gcovr/noncode"):
                continue
            for row in (folder_of(file["file"]), "all"):
                lines[row][0] += line["count"] > 0
                lines[row][1] += 1
                branches[row][0] += sum(branch["count"] > 0 for branch in line["branches"])
                branches[row][1] += len(line["branches"])
            if line["count"] == 0:
                silent[file["file"]].append((line["line_number"], texts[line["line_number"] - 1]))

    print("Lines that no test runs:")
    failures = []
    unexplained = 0
    for file, missed in sorted(silent.items()):
        for number, text in missed:
            reason = reasons[file].get(text)
            print(f"{file}:{number}: {text}\n    {reason or 'NO REASON IS GIVEN'}")
            unexplained += reason is None
    if unexplained:
        failures.append(f"{sys.argv[2]} gives no reason for {unexplained} of these lines")
    for file, given in sorted(reasons.items()):
        for text in given:
            if text not in (missed for _, missed in silent.get(file, [])):
                failures.append(f"{sys.argv[2]} lists what is not missed: {file}: {text}")

    print(f"\n{'folder':14}{'lines':>23}{'branches':>24}")
    for row in sorted(lines, key=lambda row: (row == "all", row)):
        print(f"{row:14}{share(lines[row])}{share(branches[row]):>24}")
        if 100 * lines[row][0] < GOAL * lines[row][1]:
            failures.append(f"{row}: fewer than {GOAL} % of the lines run")
    for failure in failures:
        print(failure, file=sys.stderr)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
