"""usage: findings.py FOLDER LOG PROGRAM

Prints what memcheck says in LOG of our own code (FOLDER holds it), each finding below a line "== what it is". Its
addresses in the program are turned into functions and lines, which memcheck cannot find in a Windows program.
"""

import bisect
import os
import re
import subprocess
import sys

FRAME = re.compile(r"^(\s+(?:at|by) 0x([0-9A-F]+): )\?\?\?.*$")
# By design: GoogleTest shows a structure byte by byte, those between its members as well, and a set of RE2's asks
# first what lies in memory that it has not written. And what Wine hands to a function that it calls back may lie
# on the stack where memcheck, which does not follow Wine from stack to stack, thinks that there is none.
HARMLESS = re.compile(
    r"PrintBytesInObject|uninitialised.*\n\s+at \S+: re2::|0xDEADBABD: (.*\n)+.* is on thread 1's stack")


def output_of(*command, lines=None):
    return subprocess.run(["i686-w64-mingw32-" + command[0], *command[1:]], capture_output=True, text=True,
                          check=True, input=lines and "\n".join(lines) + "\n").stdout.splitlines()


def code_of(program):
    """First address of the program's code, and the one behind it."""
    for line in output_of("objdump", "-h", program):
        words = line.split()
        if len(words) > 3 and words[1] == ".text":
            return int(words[3], 16), int(words[3], 16) + int(words[2], 16)
    return 0, 0


def file_of_ours(folder, place):
    path, _, line = place.rpartition(":")
    path = os.path.relpath(os.path.normpath(path), folder)
    isOurs = not path.startswith(("..", "build")) and os.path.isfile(os.path.join(folder, path))
    return f" at {path}:{line}" if isOurs else ""


def places(folder, program, addresses):
    """Function for each address that lies in the program, with " at file:line" where the file is one of ours."""
    begin, end = code_of(program)
    addresses = [address for address in addresses if begin <= int(address, 16) < end]
    if not addresses:
        return {}
    symbols = sorted((int(address, 16), name) for address, kind, name in
                     map(str.split, output_of("nm", "--defined-only", program)) if kind in "tT")
    starts = [symbol[0] for symbol in symbols]
    lines = iter(output_of("addr2line", "-fe", program, *("0x" + address for address in addresses)))
    names, files = [], []
    for address, name, place in zip(addresses, lines, lines):
        # The linker's names have one underscore more.
        names.append(name if name != "??" else symbols[bisect.bisect(starts, int(address, 16)) - 1][1][1:])
        files.append(file_of_ours(folder, place))
    return {address: name.partition("(")[0] + file
            for address, name, file in zip(addresses, output_of("c++filt", "-n", lines=names), files)}


def main():
    folder, log, program = sys.argv[1:]
    text = re.sub(r"(?m)^==\d+== ?", "", open(log, errors="replace").read())
    blocks = [block.splitlines() for block in re.split(r"\n\s*\n", text)]
    addresses = sorted({m[2] for block in blocks for line in block if (m := FRAME.match(line))})
    known = places(os.path.realpath(folder), program, addresses) if addresses else {}
    for block in blocks:
        lines = [FRAME.sub(lambda m: m[1] + known.get(m[2], "???"), line) for line in block]
        isOurs = any(" at " in known.get(m[2], "") for m in map(FRAME.match, block) if m)
        if isOurs and not HARMLESS.search("\n".join(lines)):
            print("\n".join(["== " + lines[0].strip(), *lines[1:]]))


main()
