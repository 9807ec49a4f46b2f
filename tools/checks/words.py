#!/usr/bin/env python3
"""Checks that no file speaks of what is not in the checkout: documents elsewhere, one machine's paths, addresses in scripts."""

import os
import re

import sources

SKIPPED_FOLDERS = {".git", "build", ".cache", ".idea", ".vscode", "__pycache__"}
BINARY_SUFFIXES = {".png", ".jpg", ".jpeg", ".gif", ".bmp", ".ico", ".pdf", ".tmp", ".sav", ".pic", ".gz", ".mo"}
# The names of example users in documents, tests and samples.
EXAMPLE_USERS = ("anna",)

EVERYWHERE = [
    (re.compile(r"\b(spec|design|exemplars)[.]md\b", re.I), "names a document that is not in the checkout"),
    (re.compile(r"\bthe\s+specification\b", re.I), "speaks of a document that is not in the checkout"),
    (re.compile(r"\bParts? [0-9]{1,2}[.][0-9]{1,2}\b"), "speaks of a document that is not in the checkout"),
    (re.compile(r"(?<![\w.*/$}>])/(work|root)(?![\w.-])"), "is one machine's path"),
    (re.compile(r"(?<![\w.*])/home/(?!(%s)\b)[A-Za-z0-9_]" % "|".join(EXAMPLE_USERS)), "is one machine's path"),
]
ADDRESS = re.compile(r"\b(https?|ftp)://", re.I)
BUILD_NAMES = {"CMakeLists.txt", "CMakePresets.json", "run", "test", "packages.txt", "layers.txt"}
BUILD_SUFFIXES = {".cmake", ".py", ".sh"}


def is_build_file(path, text):
    return path.name in BUILD_NAMES or path.suffix in BUILD_SUFFIXES or text.startswith("#!")


def text_files(root):
    for folder, below, names in os.walk(root):
        below[:] = sorted(name for name in below if name not in SKIPPED_FOLDERS)
        for name in sorted(names):
            path = root.__class__(folder) / name
            if path.suffix.lower() in BINARY_SUFFIXES or not path.is_file() or name == "compile_commands.json":
                continue
            data = path.read_bytes()
            if b"\0" not in data[:8192]:
                yield path, data.decode("utf-8", errors="replace")


def check_text(name, path, text):
    problems = []
    for pattern, why in EVERYWHERE:
        problems += [f"{name}:{sources.line_of(text, m.start())}: \"{' '.join(m.group().split())}\" {why}"
                     for m in pattern.finditer(text)]
    if is_build_file(path, text):
        problems += [f"{name}:{sources.line_of(text, m.start())}: an address in a script or build file"
                     for m in ADDRESS.finditer(text)]
    return problems


def main():
    root = sources.parse_arguments(__doc__).root
    problems, count = [], 0
    for path, text in text_files(root):
        count += 1
        problems += check_text(path.relative_to(root).as_posix(), path, text)
    sources.report(problems, f"{count} files speak of nothing outside the checkout.")


if __name__ == "__main__":
    main()
