"""The bill of materials (CycloneDX): our files with their hashes, and what others have written inside them."""

import hashlib
import json
import re
import subprocess
import uuid
from datetime import datetime, timezone


def _installed_version(package):
    return subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], check=True, capture_output=True,
                          text=True).stdout


def _libraries(root):
    """The table of licences/README.md is the one place where they are kept."""
    for name, version, licence in re.findall(r"^\| (\S+(?: \w+)*?) (\d[\d.]*)[^|]*\| ([^|]*) \|", (
            root / "licences/README.md").read_text(encoding="utf-8"), re.M):
        yield name, version, licence, "in fillcache.exe, pimcall.exe"
    compiler = _installed_version("gcc-mingw-w64-i686-posix")
    yield "libgcc, libstdc++", compiler, "GPL-3.0-or-later WITH GCC-exception-3.1", "in all three programs"
    runtime = _installed_version("mingw-w64-i686-dev")
    yield "mingw-w64 runtime, winpthreads", runtime, "ZPL-2.1, MIT, public domain", "in all three programs"
    yield "NSIS", _installed_version("nsis"), "Zlib", "in setup.exe"


def write(root, folder, names, out, version, epoch):
    files = []
    for name in names:
        digest = hashlib.sha256((folder / name).read_bytes()).hexdigest()
        files.append({"type": "file", "name": name, "hashes": [{"alg": "SHA-256", "content": digest}]})
    libraries = [{"type": "library", "name": name, "version": number, "description": where,
                  "licenses": [{"license": {"name": licence}}]}
                 for name, number, licence, where in _libraries(root)]
    identity = hashlib.sha256(json.dumps(files).encode()).hexdigest()
    bill = {
        "bomFormat": "CycloneDX",
        "specVersion": "1.5",
        "serialNumber": f"urn:uuid:{uuid.uuid5(uuid.NAMESPACE_OID, identity)}",
        "version": 1,
        "metadata": {
            "timestamp": datetime.fromtimestamp(epoch, timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ"),
            "component": {"type": "application", "name": "Tessaria Outlook driver", "version": version,
                          "supplier": {"name": "Norvane"}},
        },
        "components": files + libraries,
    }
    out.write_text(json.dumps(bill, indent=2, ensure_ascii=False) + "\n", encoding="utf-8")
