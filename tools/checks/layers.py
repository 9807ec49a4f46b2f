#!/usr/bin/env python3
"""Checks every #include of src/ and slideshow/ against tools/layers.txt: a file includes only what its folder's line names, and a
line names only what an earlier one has. Prints the graph of the includes that there are."""

import re
from collections import defaultdict

import sources

HEADER_BY_FORWARD_DECLARATION = "window/MainForm.h"
SECTION = re.compile(r"^\[([^\]]+)\]$")
RULE = re.compile(r"^([\w./]+):((?:\s+(?:[\w/]+|\[[^\]]+\]))*)(?:\s+:\s+(\S.*))?$")
WORD = re.compile(r"\[[^\]]+\]|\S+")


class Layers:
    """tools/layers.txt: folders from the ground up, each with what it may include and why."""

    def __init__(self, text):
        self.allowed = {}  # folder or file -> folders
        self.sections = {}  # name in brackets -> folders
        self.named = []  # (line number, folder, target as written, folders)
        self.problems = []
        section = None
        for number, line in enumerate(text.splitlines(), 1):
            line = line.split("#", 1)[0].strip()
            if not line:
                continue
            rule = RULE.match(line)
            if SECTION.match(line):
                section = line
                self.sections[section] = []
            elif rule:
                self.add(number, section, rule[1], WORD.findall(rule[2]), rule[3])
            else:
                self.problems.append(f"tools/layers.txt:{number}: not a line of the list: {line}")

    def add(self, number, section, folder, targets, reason):
        if not reason:
            self.problems.append(f"tools/layers.txt:{number}: {folder} gives no reason")
        known = self.allowed.setdefault(folder, set())
        for target in targets:
            folders = self.sections.get(target) if target.startswith("[") else [target]
            if folders is None or any(f not in self.allowed or f == folder for f in folders):
                self.problems.append(f"tools/layers.txt:{number}: {folder} names {target}, which stands on no earlier line")
                continue
            known.update(folders)
            self.named.append((number, folder, target, folders))
        if section and not folder.endswith(".cpp"):
            self.sections[section].append(folder)

    def allows(self, name, target):
        return any(folder_of(target) in self.allowed.get(key, ()) for key in (folder_of(name), name))

    def stale(self, graph):
        used = defaultdict(set)
        for (name, target) in graph:
            used[folder_of(name)].add(folder_of(target))
            used[name].add(folder_of(target))
        return [f"tools/layers.txt:{number}: stale: nothing in {folder} includes {target}"
                for number, folder, target, folders in self.named if not used[folder] & set(folders)]


def folder_of(name):
    return name.rpartition("/")[0]


def check_file(name, text, root, layers, graph):
    problems = []
    for line, quoted, target in sources.includes(text):
        where = f"{sources.shown(name)}:{line}"
        if not quoted:
            if sources.file_named(root, target).is_file():
                problems.append(f"{where}: <{target}> is the project's own; include it with quotes")
        elif not sources.file_named(root, target).is_file():
            problems.append(f"{where}: \"{target}\" is no file below src/; headers are included by their path from there")
        elif name.endswith(".h") and target == HEADER_BY_FORWARD_DECLARATION:
            problems.append(f"{where}: a header names MainForm by a forward declaration, not by {target}")
        elif folder_of(name) != folder_of(target):
            graph.append((name, target))
            if not layers.allows(name, target):
                problems.append(f"{where}: {folder_of(name)} may not include \"{target}\" (tools/layers.txt)")
    return problems


def check_tree(root):
    layers = Layers(sources.read(root / "tools" / "layers.txt"))
    problems = list(layers.problems)
    graph, folders = [], set()
    for path, name in sources.program_files(root):
        folders.add(folder_of(name))
        problems += check_file(name, sources.read(path), root, layers, graph)
    problems += [f"{sources.shown(folder + '/').rstrip('/')}: tools/layers.txt does not name this folder"
                 for folder in sorted(folders - set(layers.allowed))]
    problems += [f"tools/layers.txt: there is no {sources.shown(key)}" for key in layers.allowed
                 if not sources.file_named(root, key + "/").exists()]
    return problems, layers, graph


def print_graph(layers, graph):
    edges = defaultdict(lambda: defaultdict(int))
    for name, target in graph:
        edges[folder_of(name)][folder_of(target)] += 1
    for folder in layers.allowed:
        if folder in edges:
            print(f"{folder} -> " + ", ".join(f"{to} {edges[folder][to]}" for to in layers.allowed if to in edges[folder]))


def main():
    root = sources.parse_arguments(__doc__).root
    problems, layers, graph = check_tree(root)
    print_graph(layers, graph)
    for line in layers.stale(graph):
        print(line)
    sources.report(problems, f"{len(graph)} includes from folder to folder, none upwards, no pair both ways.")


if __name__ == "__main__":
    main()
