"""What the checks share: finding sources, their includes, and code without comments and texts."""

import argparse
import json
import re
import sys
from pathlib import Path

CODE_SUFFIXES = {".cpp", ".h"}
CODE_FOLDERS = ("src", "slideshow", "tests", "bench")
# Where files, clocks and a toolkit are the business of the code; every other folder leaves them to the services.
BACK_ENDS = ("platform/posix", "platform/codecs", "platform/session", "platform/headless", "platform/qt",
             "platform/qt/printing")
BACK_END_FILES = ("app/main.cpp", "slideshow/main.cpp")
# The program's folders are named from src/ on; the slide show, a program of its own, is beside it.
COMPANION = "slideshow"

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
# In the order in which they may begin; whichever comes first in the text wins.
TOKENS = re.compile(
    r'//(?:[^\n\\]|\\.|\\\n)*'
    r'|/\*.*?\*/'
    r'|R"(?P<mark>[^()\s\\]{0,16})\(.*?\)(?P=mark)"'
    r'|"(?:[^"\\\n]|\\.)*"'
    r"|(?<![0-9A-Fa-f])'(?:[^'\\\n]|\\.)+'",
    re.DOTALL)


def parse_arguments(description, **extra):
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--root", type=Path, default=Path(__file__).resolve().parents[2], help="the checkout")
    for name, text in extra.items():
        parser.add_argument("--" + name.replace("_", "-"), help=text)
    return parser.parse_args()


def code_files(root, folders=CODE_FOLDERS):
    """The .cpp and .h files below these folders of the checkout, sorted."""
    return sorted(path for folder in folders for path in (root / folder).rglob("*")
                  if path.suffix in CODE_SUFFIXES and path.is_file())


def compiled(build):
    """(the compiler's command, source) of all that a build folder compiles. Of files that are compiled as one, each."""
    for entry in json.loads((Path(build) / "compile_commands.json").read_text(encoding="utf-8")):
        path = Path(entry["directory"], entry["file"]).resolve()
        if path.parent.name == "Unity" and path.exists():
            for _, _, name in includes(read(path)):
                yield entry.get("command", ""), Path(name).resolve()
        else:
            yield entry.get("command", ""), path


def program_files(root):
    """(path, name) of the .cpp and .h files of both programs, named as their includes name them."""
    for path in code_files(root, ["src", COMPANION]):
        yield path, path.relative_to(root / "src" if path.is_relative_to(root / "src") else root).as_posix()


def file_named(root, name):
    """The file of either program that an include means by this name."""
    return (root if name.startswith(COMPANION + "/") else root / "src") / name


def shown(name):
    """The name from the checkout on."""
    return name if name.startswith(COMPANION + "/") else f"src/{name}"


def read(path):
    return path.read_text(encoding="utf-8", errors="replace")


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def blank_out(text):
    """The code with comments, texts and characters turned into blanks; every line keeps its number and its length."""
    def blanks(match):
        # An include's name is a text too, but not one to lose.
        start = text.rfind("\n", 0, match.start()) + 1
        if match.group()[0] == '"' and re.match(r'\s*#\s*include\b', text[start:match.start()]):
            return match.group()
        return re.sub(r"[^\n]", " ", match.group())
    return TOKENS.sub(blanks, text)


def includes(text):
    """(line, is quoted, name) of each include."""
    return [(line_of(text, m.start(1)), m.group(1) == '"', m.group(2)) for m in INCLUDE.finditer(blank_out(text))]


def report(problems, passed):
    """Prints the problems and leaves with 1, or the one line that all is well."""
    for problem in problems:
        print(problem)
    if problems:
        print(f"{len(problems)} problem{'s' if len(problems) != 1 else ''}.")
        sys.exit(1)
    print(passed)
