"""Makes the wheel of the package, for pip (PEP 517). It needs nothing but Python.

With QUILLKIT_LIBRARY, the path of libquillkit_c.so, the wheel contains the library and is for this
system. Otherwise the package uses the library that is installed.
"""
from __future__ import annotations

import base64
import hashlib
import os
import pathlib
import re
import sysconfig
import zipfile

_root = pathlib.Path(__file__).resolve().parent
_DATE = (1980, 1, 1, 0, 0, 0)  # the same files make the same wheel


def _version() -> str:
    return re.search(r'^VERSION = "(.*)"$', (_root / "quillkit/_native.py").read_text(), re.MULTILINE)[1]


def _files(version: str, tag: str, library: str | None) -> dict[str, bytes]:
    """The contents of the wheel by name, without the record of them."""
    files = {f"quillkit/{each.name}": each.read_bytes() for each in sorted((_root / "quillkit").iterdir())
             if each.suffix in (".py", ".typed")}
    if library:
        name = "libquillkit_c.so" if os.name != "nt" else "quillkit_c.dll"
        files[f"quillkit/{name}"] = pathlib.Path(library).read_bytes()
    info = f"quillkit-{version}.dist-info"
    files[f"{info}/METADATA"] = (f"Metadata-Version: 2.1\nName: quillkit\nVersion: {version}\n"
                                 "Summary: Control of a Quillbox network scanning appliance\n"
                                 "Requires-Python: >=3.9\n").encode()
    files[f"{info}/WHEEL"] = ("Wheel-Version: 1.0\nGenerator: quillkit\nRoot-Is-Purelib: "
                              f"{'false' if library else 'true'}\nTag: {tag}\n").encode()
    return files


def build_wheel(wheel_directory: str, config_settings: object = None, metadata_directory: object = None) -> str:
    library = os.environ.get("QUILLKIT_LIBRARY")
    platform = re.sub(r"[-.]", "_", sysconfig.get_platform()) if library else "any"
    version, tag = _version(), f"py3-none-{platform}"
    files = _files(version, tag, library)
    record = f"quillkit-{version}.dist-info/RECORD"
    lines = []
    for name, content in files.items():
        digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
        lines.append(f"{name},sha256={digest},{len(content)}\n")
    files[record] = "".join([*lines, f"{record},,\n"]).encode()
    wheel = f"quillkit-{version}-{tag}.whl"
    with zipfile.ZipFile(pathlib.Path(wheel_directory, wheel), "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in files.items():
            archive.writestr(zipfile.ZipInfo(name, _DATE), content, zipfile.ZIP_DEFLATED)
    return wheel
