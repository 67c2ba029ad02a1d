"""Loading quillkit_c, and calling its functions with Python's values and exceptions."""
from __future__ import annotations

import ctypes
import os
import pathlib
import threading
from typing import Any

from . import _native
from .errors import LoadError, QuillError

TEXT_ENCODING = "latin-1"  # the library has no character set; this maps bytes to characters one to one


def encoded(text: str) -> bytes:
    """A text as the bytes of an argument."""
    if not isinstance(text, str):
        raise TypeError(f"a text is needed, not {type(text).__name__}")
    return _without_nul(text.encode(TEXT_ENCODING))


def _without_nul(value: bytes) -> bytes:
    """The library would ignore what follows a NUL."""
    if b"\0" in value:
        raise ValueError("a text contains a NUL character")
    return value


def field(text: str, size: int) -> bytes:
    """A text for a field of `size` bytes. Raises the error of the library if it does not fit."""
    value = encoded(text)
    if len(value) >= size:
        raise QuillError(_native.STATUS_REFUSED)
    return value


def name(text: str) -> bytes:
    """The name of an object on the appliance. The library would send a longer one as the empty name."""
    return field(text, _native.MAX_NAME + 1)


def number(kind: Any, value: int) -> int:
    """A number argument of this type. ctypes would wrap one that does not fit."""
    if kind(value).value != value:
        raise OverflowError(f"{value} does not fit in {8 * ctypes.sizeof(kind)} bits")
    return value


def _argument(kind: Any, value: Any) -> Any:
    if kind is ctypes.c_char_p and value is not None:
        return _without_nul(value) if isinstance(value, bytes) else encoded(value)
    return number(kind, value) if kind in (ctypes.c_int32, ctypes.c_uint32, ctypes.c_uint64) else value


class Function:
    """A function of quillkit_c. It takes the arguments that go in, except sizes of text buffers, and
    returns what comes out. It raises a QuillError if the call fails; an optional object that does
    not exist is None, and an index that does not exist is -1."""

    def __init__(self, library: ctypes.CDLL, name: str) -> None:
        self._style, result, self._arguments = _native.FUNCTIONS[name]
        self._call = getattr(library, name)
        self._call.restype = result
        self._call.argtypes = [kind for _, kind, _ in self._arguments]

    def __call__(self, *given: Any, accept: tuple[int, ...] = (0,)) -> Any:
        """`accept` lists the statuses that are no failure; if there are several, returns the status."""
        values, passed, outputs = iter(given), [], {}
        for name, kind, direction in self._arguments:
            if name in ("buffer", "size"):
                continue
            if direction == "out" and hasattr(kind, "_type_") and not issubclass(kind._type_, ctypes.Structure):
                outputs[name] = kind._type_()
                passed.append(ctypes.byref(outputs[name]))
            else:
                passed.append(_argument(kind, next(values)))
        if self._style == "text" or "buffer" in (name for name, _, _ in self._arguments):
            return self._text(passed)
        result = self._call(*passed)
        if self._call.restype is ctypes.c_int32 and result <= _native.E_NULL:
            raise QuillError(result)
        error = outputs.pop("error", None)
        stored = next(iter(outputs.values())).value if outputs else None
        if self._style == "status":
            if result not in accept:
                raise QuillError(result)
            return result if len(accept) > 1 else stored
        if error is not None and result == (-1 if self._style == "count" else 0):
            raise QuillError(error.value)
        if self._style == "flag" and outputs and result == 0:
            raise QuillError(_native.E_MEMORY)
        if outputs:
            return stored or (None if self._style == "handle" else 0)
        return bool(result) if self._style == "flag" else result

    def _text(self, passed: list[Any]) -> str:
        if self._call.restype is not ctypes.c_int32:
            return self._call(*passed).decode(TEXT_ENCODING)
        size = ctypes.c_uint32(256)
        result = _native.E_BUFFER
        while result == _native.E_BUFFER:
            buffer = ctypes.create_string_buffer(size.value)
            result = self._call(*passed, buffer, ctypes.byref(size))
        if result != 1:
            raise QuillError(result)
        return buffer.value.decode(TEXT_ENCODING)


class Library:
    """The loaded library: `library.add_key` is quill_add_key."""

    def __init__(self, path: str | os.PathLike[str]) -> None:
        if os.name == "nt" and ctypes.sizeof(ctypes.c_void_p) == 8:
            raise LoadError(f"{path} is a 32-bit DLL, as the server library is, and this Python is a 64-bit "
                            "program: use a 32-bit Python")
        self._path = os.fspath(path)
        try:
            self._library = ctypes.CDLL(self._path)
        except OSError as why:
            raise LoadError(f"cannot load {path}: {why}; set QUILLKIT_LIBRARY to its path") from why
        contract = getattr(self._library, "quill_contract", lambda: 0)()
        if contract != _native.CONTRACT:
            raise LoadError(f"{_path_of(self._library, self._path)} has contract {contract}, but this package needs "
                            f"contract {_native.CONTRACT}: install the package of the library's version")

    def __getattr__(self, name: str) -> Function:
        if f"quill_{name}" not in _native.FUNCTIONS:
            raise AttributeError(name)
        function = Function(self._library, f"quill_{name}")
        setattr(self, name, function)
        return function


class _Place(ctypes.Structure):
    """What dladdr() reports about an address."""
    _fields_ = [("path", ctypes.c_char_p), ("base", ctypes.c_void_p), ("name", ctypes.c_char_p),
                ("address", ctypes.c_void_p)]


def _path_of(library: ctypes.CDLL, path: str) -> str:
    """The file that the system has loaded as `path`."""
    if not hasattr(library, "quill_version"):
        return path
    if os.name == "nt":
        path = ctypes.create_unicode_buffer(1024)
        ctypes.windll.kernel32.GetModuleFileNameW(ctypes.c_void_p(library._handle), path, len(path))  # type: ignore
        return path.value
    place = _Place()
    function = ctypes.cast(library.quill_version, ctypes.c_void_p)
    ctypes.CDLL(None).dladdr(function, ctypes.byref(place))
    return os.fsdecode(place.path) if place.path else path


_lock = threading.Lock()
_loaded: Library | None = None


def load(path: str | os.PathLike[str] | None = None) -> Library:
    """Loads quillkit_c once: from `path`, from $QUILLKIT_LIBRARY, beside this package, or where the
    system finds it. Raises a LoadError, also if the library of another path is loaded already."""
    global _loaded
    with _lock:
        if _loaded is None:
            file = _native.FILES["windows" if os.name == "nt" else "posix"]
            beside = pathlib.Path(__file__).with_name(file)
            _loaded = Library(path or os.environ.get("QUILLKIT_LIBRARY") or (beside if beside.exists() else file))
        elif path and os.path.abspath(path) != os.path.abspath(_loaded._path):
            raise LoadError(f"cannot load {os.fspath(path)}: this process uses {_loaded._path} already")
        return _loaded
