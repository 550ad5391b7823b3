#!/usr/bin/env python3
"""Joins all sources of a library for checks that read them: nearly all of their time goes into Qt's
headers. Makes, in an empty folder, one file for each of the product's two libraries and a database
that tells how each is compiled. With a compiler, which may have options of its own, has it read them.
Usage: joined_sources.py BUILD_FOLDER EMPTY_FOLDER [COMPILER OPTION...]
"""
import json
import re
import shlex
import subprocess
import sys
from pathlib import Path

LIBRARIES = {"core": ["trelawn_core"], "screens": ["trelawn_screens", "trelawn"]}

# Other compilers than gcc cannot read its precompiled header, do not need it, and do not know this.
NOT_FOR_OTHERS = re.compile(r"-Winvalid-pch|-Wno-stringop-overflow")
# Flags that only make sense for a program of this system.
OF_THIS_SYSTEM = re.compile(r"-fPI[CE]|-fstack-.*|-f.*clash.*|-fcf-.*|-U?_FORTIFY_SOURCE.*"
                            r"|-[DU]_(FORTIFY_SOURCE|GLIBCXX_ASSERTIONS).*|-Wp,.*")


def compiled_by(build, targets):
    """The source and the arguments of everything of ours that the targets compile."""
    for entry in json.loads((build / "compile_commands.json").read_text()):
        arguments = shlex.split(entry["command"])
        target = re.search(r"([^/]+)\.dir/", arguments[arguments.index("-o") + 1])
        name = Path(entry["file"]).name
        if target and target[1] in targets and not re.match("mocs_compilation|cmake_pch|qrc_", name):
            yield entry["file"], arguments


def flags_of(arguments):
    """What the arguments say beside files; an option and its value stay together."""
    flags = []
    values = iter(arguments[1:])
    for argument in values:
        if argument in ("-o", "-c", "-include"):
            next(values)
        elif argument == "-isystem":
            flags.append((argument, next(values)))
        elif not NOT_FOR_OTHERS.fullmatch(argument):
            flags.append((argument,))
    return flags


def join(build, work, library, targets):
    """The file that includes all that the targets compile, and the command that compiles it."""
    joined = work / f"{library}.cpp"
    text = ""
    flags = []
    for source, arguments in compiled_by(build, targets):
        text += f'// NOLINTNEXTLINE(bugprone-suspicious-include)\n#include "{source}"\n'
        flags += [flag for flag in flags_of(arguments) if flag not in flags]
    joined.write_text(text)
    return {"directory": str(build), "file": str(joined),
            "arguments": ["c++", *(part for flag in flags for part in flag), "-c", str(joined)]}


def main():
    build, work = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    compiler = sys.argv[3:]
    entries = [join(build, work, *library) for library in LIBRARIES.items()]
    (work / "compile_commands.json").write_text(json.dumps(entries))
    if not compiler:
        return 0
    runs = []
    for entry in entries:
        arguments = [a for a in entry["arguments"][1:] if not OF_THIS_SYSTEM.fullmatch(a)]
        runs.append(subprocess.Popen(compiler + arguments, cwd=entry["directory"]))
    return max(run.wait() for run in runs)


sys.exit(main())
