#!/usr/bin/env python3
"""Checks that clang-format would change nothing. `tools/checks/format.py --fix yes` lets it change."""

import subprocess
import sys

import sources


def main():
    arguments = sources.parse_arguments(__doc__, fix="rewrite the files")
    files = [path.relative_to(arguments.root).as_posix() for path in sources.code_files(arguments.root)]
    how = ["-i"] if arguments.fix else ["--dry-run", "-Werror"]
    if files and subprocess.run(["clang-format", *how, *files], cwd=arguments.root, check=False).returncode != 0:
        print("tools/checks/format.py --fix yes puts this right.")
        sys.exit(1)
    print(f"{len(files)} files are formatted.")


if __name__ == "__main__":
    main()
