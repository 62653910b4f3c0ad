"""What goes into the packages: packaging/files.txt, and a folder in which all of it lies with fixed times."""

import os
import shutil
from pathlib import Path

KINDS = (".md", ".txt", ".png", ".admx", ".adml")


def listed(root, build, made):
    """(source, destination) of every file, in the order of the destinations; the packages' own contents too."""
    folders = {"bin": build / "bin", "made": made}
    result = {}
    for line in (root / "packaging/files.txt").read_text().splitlines():
        words = line.split("#")[0].split()
        if not words:
            continue
        first, _, rest = words[0].partition("/")
        source = folders[first] / rest if first in folders else root / words[0]
        if words[0].endswith("/"):
            for file in source.rglob("*"):
                if file.is_file() and file.suffix in KINDS and file.name != "CMakeLists.txt":
                    result[words[1] + file.relative_to(source).as_posix()] = file
        elif words[1] not in result:
            result[words[1]] = source
    return [(result[name], name) for name in sorted(result)]


def staged(files, folder, epoch):
    """Copies them there; returns their destinations."""
    shutil.rmtree(folder, ignore_errors=True)
    for source, name in files:
        target = folder / name
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(source, target)
    names = [name for _, name in files]
    # The setup's way of knowing at the next upgrade what is its own.
    listing = "installed.txt"
    names = sorted(names + [listing])
    (folder / listing).write_text("".join(n.replace("/", "\\") + "\r\n" for n in names + ["uninstall.exe"]),
                                  newline="")
    for name in names:
        os.utime(folder / name, (epoch, epoch))
    return names


def size_in_kilobytes(folder, names):
    return sum((Path(folder) / name).stat().st_size for name in names) // 1024
