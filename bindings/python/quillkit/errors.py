"""The exceptions of this package."""
from __future__ import annotations

from . import _native


class QuillError(Exception):
    """A call failed. `code` is a status of the server, a local code below 0, or an E_ value of
    quillkit_c; `text` is its message."""

    def __init__(self, code: int) -> None:
        self.code = code
        self.text = _native.ERROR_TEXTS.get(code) or _native.STATUS_TEXTS.get(code) or "Unknown error"
        super().__init__(f"{self.text} ({code})")

    def __reduce__(self) -> tuple[type[QuillError], tuple[int]]:
        return QuillError, (self.code,)


class LoadError(ImportError):
    """The library cannot be loaded, or this package does not fit it."""
