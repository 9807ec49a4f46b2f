#!/usr/bin/env python3
"""Checks that every .cpp file is compiled into something: a file that no target builds is tried by nobody."""

import sources


def main():
    arguments = sources.parse_arguments(__doc__, build="build folder with the compile_commands.json of a full build")
    root = arguments.root.resolve()
    built = {path for _, path in sources.compiled(arguments.build)}
    files = [path for path in sources.code_files(root) if path.suffix == ".cpp"]
    sources.report([f"{path.relative_to(root).as_posix()}:1: no target builds this file"
                    for path in files if path.resolve() not in built],
                   f"All {len(files)} .cpp files are built.")


if __name__ == "__main__":
    main()
