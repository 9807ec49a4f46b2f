#!/usr/bin/env python3
"""Checks that the program and the floors under it stay free of what only services and back ends may use: clocks, files,
threads, sleeping, random numbers, the host's and a toolkit's headers. They include the pure part of the standard library."""

import re

import sources

PURE_HEADERS = set("""
    algorithm any array bit bitset cassert cctype cfloat charconv climits cmath compare concepts cstddef cstdint cstdio cstdlib
    cstring deque exception functional initializer_list iomanip ios iosfwd istream iterator limits list map memory
    memory_resource new numbers numeric optional ostream queue ranges ratio set source_location span sstream stack stdexcept
    string string_view system_error tuple type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant
    vector version
""".split())

# Functions of <cstdlib>, <cstdio> and <ctime> that reach past the program. <cstdio> is there for snprintf.
FORBIDDEN_CALLS = set("""
    rand srand random time clock gettimeofday clock_gettime localtime gmtime mktime strftime sleep usleep nanosleep
    sleep_for sleep_until system popen getenv setenv abort exit quick_exit _Exit atexit
    fopen freopen fclose fread fwrite fseek ftell fflush fgets fputs fprintf fscanf remove rename tmpfile tmpnam
    printf puts putchar scanf getchar perror
""".split())
FORBIDDEN_NAMES = re.compile(r"\bstd\s*::\s*(cout|cerr|clog|cin|FILE|chrono|filesystem|thread|jthread|mutex|async|"
                             r"ifstream|ofstream|fstream|random_device|mt19937(?:_64)?)\b")
CALL = re.compile(r"(?:(?P<scope>\b(?:\w+\s*)?::|\.|->)\s*|(?P<before>\b\w+|[>&*])?(?P<gap>\s*))\b(?P<name>%s)\s*\("
                  % "|".join(sorted(FORBIDDEN_CALLS)))
# A word before the name makes it a declaration, unless it is one of these.
STATEMENT_WORDS = {"return", "co_return", "else", "do", "throw", "case", "and", "or", "not"}


def argument_count(code, opening):
    """How many arguments are between the parenthesis at `opening` and its partner."""
    depth, count = 0, 1
    for character in code[opening:]:
        depth += (character in "([{") - (character in ")]}")
        count += character == "," and depth == 1
        if depth == 0:
            break
    return count


def is_call_of_the_library(match):
    code, name, scope = match.string, match["name"], match["scope"]
    if re.search(r"\bauto&{0,2}\s+%s\s*=" % name, code):
        return False  # a lambda of that name
    if name == "remove" and argument_count(code, match.end() - 1) > 1:
        return False  # the one of <algorithm>
    if scope:
        return re.sub(r"\s", "", scope) in ("::", "std::", "this_thread::")
    before = match["before"]
    if before is None:
        return True
    if before in (">", "&", "*"):
        return not match["gap"]  # "Foo& time(" declares; "&&time(" and "*time(" call
    return before in STATEMENT_WORDS


def check_file(name, text):
    problems = []
    for line, quoted, header in sources.includes(text):
        if not quoted and header not in PURE_HEADERS:
            problems.append(f"{name}:{line}: <{header}> is not for this floor; a service stands for what it does")
    code = sources.blank_out(text)
    for match in FORBIDDEN_NAMES.finditer(code):
        problems.append(f"{name}:{sources.line_of(code, match.start())}: std::{match[1]} is not for this floor")
    for match in CALL.finditer(code):
        if is_call_of_the_library(match):
            problems.append(f"{name}:{sources.line_of(code, match.start('name'))}: {match['name']}() is not for this floor")
    return problems


def main():
    root = sources.parse_arguments(__doc__).root
    files = [path for path, name in sources.program_files(root)
             if name.rpartition("/")[0] not in sources.BACK_ENDS and name not in sources.BACK_END_FILES]
    problems = [problem for path in files
                for problem in check_file(path.relative_to(root).as_posix(), sources.read(path))]
    sources.report(problems, f"{len(files)} files leave the host to the services.")


if __name__ == "__main__":
    main()
