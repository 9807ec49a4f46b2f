#!/usr/bin/env python3
"""Checks every #include of src/ against tools/layers.txt: a file includes only what stands below it, or beside it by a
listed pair. Pairs that no include needs any more are reported."""

import re
from collections import defaultdict
from fnmatch import fnmatchcase

import sources

HEADER_BY_FORWARD_DECLARATION = "core/MainForm.h"
RULE = re.compile(r"^(\S+)\s*->\s*(.+?)(?:\s+:\s+(\S.*))?$")


class Rules:
    """tools/layers.txt: lines 'shared PATTERN...' and 'FROM -> TO... : reason'."""

    def __init__(self, text):
        self.shared = []
        self.rules = []  # (from, to, reason, line)
        self.problems = []
        for number, line in enumerate(text.splitlines(), 1):
            line = line.split("#", 1)[0].strip()
            if not line:
                continue
            rule = RULE.match(line)
            if line.startswith("shared "):
                self.shared += line.split()[1:]
            elif rule:
                self.rules += [(rule[1], target, rule[3], number) for target in rule[2].split()]
            else:
                self.problems.append(f"tools/layers.txt:{number}: not a rule: {line}")
        self.used = set()
        self.check_reasons()

    def check_reasons(self):
        pairs = {(a, b) for a, b, _, _ in self.rules}
        for source, target, reason, number in self.rules:
            if reason:
                continue
            if (target, source) in pairs:
                self.problems.append(f"tools/layers.txt:{number}: {source} -> {target} goes both ways and has no reason")
            elif is_file_pattern(source) or is_file_pattern(target):
                self.problems.append(f"tools/layers.txt:{number}: {source} -> {target} is about single files and has no reason")

    def is_shared(self, name):
        return any(fnmatchcase(name, pattern) for pattern in self.shared)

    def allows(self, source, target):
        allowed = False
        for rule in self.rules:
            if stands_for(rule[0], source) and stands_for(rule[1], target):
                self.used.add(rule)
                allowed = True
        return allowed

    def stale(self):
        return [f"tools/layers.txt:{number}: stale: nothing in {source} includes {target}"
                for rule in self.rules if rule not in self.used for source, target, _, number in [rule]]


def folder_of(name):
    return name.rpartition("/")[0]


def is_file_pattern(text):
    return "*" in text or text.endswith((".h", ".cpp"))


def stands_for(side, name):
    """A side of a rule is a folder, 'program' for all program folders, or a pattern of file names."""
    if side == "program":
        return folder_of(name) in sources.PROGRAM_FOLDERS
    return fnmatchcase(name, side) if is_file_pattern(side) else folder_of(name) == side


def check_file(name, text, src, rules):
    problems = []
    for line, quoted, target in sources.includes(text):
        where = f"src/{name}:{line}"
        if not quoted:
            if (src / target).is_file():
                problems.append(f"{where}: <{target}> is the project's own; include it with quotes")
            continue
        if not (src / target).is_file():
            problems.append(f"{where}: \"{target}\" is no file below src/; headers are included by their path from there")
            continue
        if name.endswith(".h") and target == HEADER_BY_FORWARD_DECLARATION and folder_of(name) in sources.PROGRAM_FOLDERS:
            problems.append(f"{where}: a header names MainForm by a forward declaration, not by {target}")
        elif folder_of(name) == folder_of(target):
            continue
        elif folder_of(name) in sources.PROGRAM_FOLDERS and rules.is_shared(target):
            continue
        elif not rules.allows(name, target):
            problems.append(f"{where}: {folder_of(name) or name} may not include \"{target}\" (tools/layers.txt has no such pair)")
    return problems


def check_tree(root):
    src = root / "src"
    rules = Rules(sources.read(root / "tools" / "layers.txt"))
    problems = list(rules.problems)
    known = set(sources.FLOOR_FOLDERS + sources.BACK_ENDS + sources.PROGRAM_FOLDERS) | {""}
    counts = defaultdict(int)
    for path in sources.code_files(root, ["src"]):
        name = path.relative_to(src).as_posix()
        counts[folder_of(name)] += 1
        problems += check_file(name, sources.read(path), src, rules)
    problems += [f"src/{folder}: a folder that no floor has" for folder in sorted(set(counts) - known)]
    return problems, rules.stale(), sum(counts.values())


def main():
    root = sources.parse_arguments(__doc__).root
    problems, stale, count = check_tree(root)
    for line in stale:
        print(line)
    sources.report(problems, f"The includes of {count} files keep to the floors.")


if __name__ == "__main__":
    main()
