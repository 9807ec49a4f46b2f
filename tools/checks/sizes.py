#!/usr/bin/env python3
"""Checks how long files and functions are. Long functions are told from 60 lines on, and fail past 80."""

import re

import sources

FILE_LIMITS = {".cpp": 500, ".h": 250}
FUNCTION_TOLD = 60
FUNCTION_LIMIT = 80

NOT_A_FUNCTION = re.compile(r"\b(namespace|class|struct|union|enum|extern)\b(?![^{]*\)\s*(const|noexcept|override|final|\s)*$)")


# Before a function's first word: blanks, and in a class who may use what follows.
LEADING = re.compile(r"\s*((public|private|protected)\s*:\s*)*")


def opens_function(head):
    """Whether the text between the last ';', '{' or '}' and a '{' at namespace or class level begins a function's body."""
    if "(" not in head or NOT_A_FUNCTION.search(head):
        return False
    # A variable set to a value in braces; default arguments are inside the parentheses.
    return not re.search(r"(?<![=!<>])=(?!=)", re.sub(r"\([^()]*(\([^()]*\)[^()]*)*\)|\boperator\s*\W+\s*(?=\()", "", head))


def functions(text):
    """(first line, last line, name) of each function body at namespace or class level."""
    code = sources.blank_out(text)
    code = re.sub(r"^\s*#(?:[^\n\\]|\\.|\\\n)*", lambda m: re.sub(r"[^\n]", " ", m.group()), code, flags=re.MULTILINE)
    found = []
    inside = None  # depth at which the current function began
    depth = 0
    head_start = 0
    for match in re.finditer(r"[{};]", code):
        position = match.start()
        if match.group() == "{":
            head = code[head_start:position]
            lead = LEADING.match(head).end()
            if inside is None and opens_function(head[lead:]):
                inside = depth
                first = sources.line_of(code, head_start + lead)
                name = re.search(r"([\w:~]+|operator\s*\W+?)\s*\(", head)
                label = name.group(1).strip() if name else "?"
            depth += 1
        elif match.group() == "}":
            depth -= 1
            if inside is not None and depth == inside:
                # A constructor's member list opens braces of its own; its body follows.
                if re.match(r"\s*[,{]", code[position + 1:]):
                    continue
                found.append((first, sources.line_of(code, position), label))
                inside = None
        if inside is None:
            head_start = position + 1
    return found


def check_file(name, text, suffix):
    """(problems, remarks) of one file."""
    problems, remarks = [], []
    lines = text.count("\n") + (0 if text.endswith("\n") or not text else 1)
    if lines > FILE_LIMITS[suffix]:
        problems.append(f"{name}:1: {lines} lines; {FILE_LIMITS[suffix]} is the limit")
    for first, last, label in functions(text):
        length = last - first + 1
        if length > FUNCTION_LIMIT:
            problems.append(f"{name}:{first}: {label} has {length} lines; {FUNCTION_LIMIT} is the limit")
        elif length > FUNCTION_TOLD:
            remarks.append(f"{name}:{first}: long: {label} has {length} lines")
    return problems, remarks


def main():
    root = sources.parse_arguments(__doc__).root
    problems, remarks = [], []
    files = sources.code_files(root)
    for path in files:
        found = check_file(path.relative_to(root).as_posix(), sources.read(path), path.suffix)
        problems += found[0]
        remarks += found[1]
    for remark in remarks:
        print(remark)
    sources.report(problems, f"{len(files)} files keep their size.")


if __name__ == "__main__":
    main()
