"""A session with an appliance."""
from __future__ import annotations

import os
import socket
import struct
import threading
import time
from collections.abc import Awaitable, Callable, Sequence
from types import TracebackType
from typing import ClassVar

from . import _native
from ._library import load, number
from .entries import EmailEntry, Entries, FaxEntry, Lists, PrinterEntry, UserEntry, View
from .errors import QuillError
from .keys import Keys

_SLICE = 0.2  # seconds of a wait after which Python can handle a signal


class Session:
    """The one session of this process. It begins with the object and ends with close(), at the end of
    a `with` block, or with the next session.

    The library keeps the session alive by a timer of this thread, which runs in every call, in
    wait() and in dispatch(). In an `async with` block the event loop runs it."""

    _open: ClassVar[Session | None] = None

    def __init__(self, host: str, user: str, password: str, *, third: str = "", load_keys: bool = True,
                 library: str | os.PathLike[str] | None = None) -> None:
        self._library = load(library)
        self.handle: int = self._library.log_to_quillbox(host, user, password, third, load_keys)
        self._thread = threading.get_ident()
        Session._open = self

    def close(self) -> None:
        """Logs out, unless this session has ended. Keys stay readable; calls to the server fail."""
        if Session._open is self:
            self._library.logout()
            Session._open = None

    def __enter__(self) -> Session:
        return self

    def __exit__(self, kind: type[BaseException] | None, value: BaseException | None,
                 traceback: TracebackType | None) -> None:
        self.close()

    # --- The appliance ---

    @property
    def name(self) -> str:
        return self._library.get_scanner_name(self.handle)

    @property
    def version(self) -> str:
        return self._library.get_scanner_version(self.handle)

    @property
    def model(self) -> str:
        return self._library.get_scanner_model(self.handle)

    @property
    def address(self) -> str:
        """The dotted IPv4 address."""
        return socket.inet_ntoa(struct.pack("=I", self._library.get_scanner_address(self.handle)))

    @property
    def is_administrator(self) -> bool:
        return self._library.is_admin_connected(self.handle)

    # --- Its books ---

    @property
    def keys(self) -> Keys:
        """The soft keys. Only ADMINISTRATOR and TOOLKIT have them, during a session."""
        book = self._library.get_top_level_abook(self.handle)
        if book is None:
            raise QuillError(_native.STATUS_NO_SUCH_BOOK)
        return Keys(self._library, book)

    @property
    def email(self) -> Entries[EmailEntry]:
        return Entries(self._library, self.handle, _native.BOOK_EMAIL)

    @property
    def fax(self) -> Entries[FaxEntry]:
        return Entries(self._library, self.handle, _native.BOOK_FAX)

    @property
    def users(self) -> Entries[UserEntry]:
        return Entries(self._library, self.handle, _native.BOOK_USERS)

    @property
    def printers(self) -> Entries[PrinterEntry]:
        return Entries(self._library, self.handle, _native.BOOK_PRINTERS)

    @property
    def private(self) -> Entries[EmailEntry]:
        """The private e-mail book of the connected user."""
        return Entries(self._library, self.handle, _native.BOOK_PRIVATE_EMAIL)

    @property
    def email_lists(self) -> Lists[EmailEntry]:
        return Lists(self._library, self.handle, _native.LIST_EMAIL)

    @property
    def fax_lists(self) -> Lists[FaxEntry]:
        return Lists(self._library, self.handle, _native.LIST_FAX)

    @property
    def private_lists(self) -> Lists[EmailEntry]:
        return Lists(self._library, self.handle, _native.LIST_PRIVATE_EMAIL)

    def view(self, mode: int = _native.VIEW_SLIDING) -> View:
        """A view of the public e-mail book."""
        return View(self._library, self.handle, mode)

    def import_file(self, path: str | os.PathLike[str], *, format: int = _native.FORMAT_DELIMITED,
                    target: int = _native.TARGET_EMAIL, columns: Sequence[int] = (0, 1),
                    skip_header: bool = False, clear_first: bool = False) -> None:
        """Fills an address book from a file. Entry i of `columns` is the column of the file, from 0, for
        field i of the book, or -1."""
        options = _native.ImportOptions(skip_header, clear_first, number(_native.c_uint32, format),
                                        number(_native.c_int32, target), len(columns))
        options.column_map[:len(columns)] = [number(_native.c_int32, each) for each in columns]
        self._library.import_address_book(self.handle, os.fsencode(path), options)

    # --- The keep-alive. On the thread that logged in. ---

    def _require_own_thread(self) -> None:
        if threading.get_ident() != self._thread:
            raise RuntimeError("the session is kept alive only on the thread that logged in")

    def wait(self, seconds: float) -> None:
        """Waits, and keeps the session alive."""
        self._require_own_thread()
        if seconds < 0:
            raise ValueError("a wait cannot be negative")
        end = time.monotonic() + seconds
        while (left := end - time.monotonic()) > 0:
            if not self._library.wait(round(min(left, _SLICE) * 1000)):
                break  # the thread has to quit

    def fileno(self) -> int:
        """A descriptor that is readable when dispatch() has to be called; -1 on Windows."""
        self._require_own_thread()
        return self._library.event_descriptor()

    def dispatch(self) -> None:
        """Sends the keep-alive if it is due."""
        self._require_own_thread()
        self._library.dispatch_events()

    async def __aenter__(self) -> Session:
        self._require_own_thread()
        import asyncio  # takes longer to import than this package
        loop = asyncio.get_running_loop()
        if self.fileno() >= 0:
            loop.add_reader(self.fileno(), self.dispatch)
            self._stop = lambda: loop.remove_reader(self.fileno())
        else:
            self._stop = loop.create_task(self._dispatch_often(asyncio.sleep)).cancel
        return self

    async def __aexit__(self, kind: type[BaseException] | None, value: BaseException | None,
                        traceback: TracebackType | None) -> None:
        self._stop()
        self.close()

    async def _dispatch_often(self, sleep: Callable[[float], Awaitable[None]]) -> None:
        while True:
            await sleep(_SLICE)
            self.dispatch()
