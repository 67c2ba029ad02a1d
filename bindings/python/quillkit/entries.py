"""The entries of address books and distribution lists, and views of the e-mail book."""
from __future__ import annotations

import dataclasses
import weakref
from collections.abc import Iterator
from types import TracebackType
from typing import Any, Generic, TypeVar

from . import _native
from ._library import TEXT_ENCODING, Library, encoded, field, name as name_of, number
from .errors import QuillError

PAGE = 64  # entries that an iteration reads at once


@dataclasses.dataclass(frozen=True)
class EmailEntry:
    """An e-mail entry. In a private list, `flags` is 1 for an entry of the private book."""
    name: str
    address: str = ""
    flags: int = 0


@dataclasses.dataclass(frozen=True)
class FaxEntry:
    name: str
    number: str = ""
    third: str = ""


@dataclasses.dataclass(frozen=True)
class PrinterEntry:
    name: str
    description: str = ""
    model: str = ""
    is_default: int = 0


@dataclasses.dataclass(frozen=True)
class UserEntry:
    name: str
    password: str = dataclasses.field(default="", repr=False)
    third: str = ""
    fourth: str = ""
    tag: int = 0
    flags: int = 0
    nibbles: int = 0


E = TypeVar("E", EmailEntry, FaxEntry, PrinterEntry, UserEntry)

CLASSES: dict[int, type] = {
    _native.BOOK_EMAIL: EmailEntry, _native.BOOK_FAX: FaxEntry, _native.BOOK_USERS: UserEntry,
    _native.BOOK_PRINTERS: PrinterEntry, _native.BOOK_PRIVATE_EMAIL: EmailEntry,
    _native.LIST_EMAIL: EmailEntry, _native.LIST_PRIVATE_EMAIL: EmailEntry, _native.LIST_FAX: FaxEntry}


def _fields(kind: Any, of: type) -> list[str]:
    """The names of the fields after the name that hold texts, or numbers."""
    return [each.name for each in dataclasses.fields(kind)[1:] if isinstance(each.default, of)]


def to_native(entry: Any) -> _native.Entry:
    native = _native.Entry(name=name_of(entry.name))
    for i, text in enumerate(_fields(entry, str)):
        native.texts[i].value = field(getattr(entry, text), _native.ENTRY_TEXT_SIZE)
    for i, each in enumerate(_fields(entry, int)):
        native.numbers[i] = number(_native.c_uint32, getattr(entry, each))
    return native


def from_native(native: _native.Entry, kind: type[E]) -> E:
    texts = [each.value.decode(TEXT_ENCODING) for each in native.texts]
    values: dict[str, Any] = {**dict(zip(_fields(kind, str), texts)), **dict(zip(_fields(kind, int), native.numbers))}
    return kind(native.name.decode(TEXT_ENCODING), **values)


def _close(close: Any, handle: int) -> None:
    """Ends a handle. One that has ended already needs nothing."""
    try:
        close(handle)
    except QuillError:
        pass


O = TypeVar("O", bound="Owned")


class Owned:
    """An object of the library that this process owns. It ends with close(), or with its last
    reference."""

    def __init__(self, close: Any, handle: int) -> None:
        self.handle = handle
        self._end = weakref.finalize(self, _close, close, handle)

    def close(self) -> None:
        self._end()

    def __enter__(self: O) -> O:
        return self

    def __exit__(self, kind: type[BaseException] | None, value: BaseException | None,
                 traceback: TracebackType | None) -> None:
        self.close()


class Entries(Owned, Generic[E]):
    """The entries of a book, or the members of a list, on the server. Nothing is cached."""

    def __init__(self, library: Library, scanner: int, kind: int, name: str = "") -> None:
        super().__init__(library.close_entries, library.open_entries(scanner, kind, name_of(name)))
        self._library = library
        self._class: type[E] = CLASSES[kind]

    def __len__(self) -> int:
        return self._library.entry_count(self.handle)

    def __bool__(self) -> bool:
        return True  # without a call to the server

    def __iter__(self) -> Iterator[E]:
        page = self.page()
        while page:
            yield from page
            page = self.page(after=page[-1].name)

    def page(self, after: str = "", size: int = PAGE, *, filter: str = "*", skip: int = 0,
             backward: bool = False) -> list[E]:
        """Reads up to `size` entries after the name `after`, or before it. `filter` is "*", or the
        beginning of names and "*". Returns an empty list at the end of the book."""
        if size < 1:
            raise ValueError("a page has at least one entry")
        size = min(size, _native.MAX_EMAIL_ENTRIES)
        records = (_native.Entry * size)()
        count = _native.c_uint32(size)
        status = self._library.read_entries(self.handle, name_of(after), name_of(filter), skip, not backward, records,
                                            count, accept=(0, _native.STATUS_DATA_NOT_FOUND, _native.STATUS_MORE_DATA))
        delivered = 0 if status == _native.STATUS_DATA_NOT_FOUND else count.value
        return [from_native(each, self._class) for each in records[:delivered]]

    def __getitem__(self, name: str) -> E:
        entry = self.get(name)
        if entry is None:
            raise KeyError(name)
        return entry

    def get(self, name: str) -> E | None:
        """The entry of this name, or None."""
        native = _native.Entry()
        status = self._library.read_entry(self.handle, name_of(name), native, accept=(0, _native.STATUS_DATA_NOT_FOUND))
        return from_native(native, self._class) if status == 0 else None

    def __contains__(self, name: str) -> bool:
        return self.get(name) is not None

    def _to_native(self, entry: E) -> _native.Entry:
        """Raises a TypeError for an entry of another kind of book: its texts would be stored in other fields."""
        if not isinstance(entry, self._class):
            raise TypeError(f"the book holds entries of type {self._class.__name__}, not {type(entry).__name__}")
        return to_native(entry)

    def add(self, entry: E) -> None:
        self._library.add_entry(self.handle, self._to_native(entry))

    def modify(self, entry: E) -> None:
        """Replaces the entry with the name of `entry`."""
        self._library.modify_entry(self.handle, self._to_native(entry))

    def rename(self, old_name: str, entry: E) -> None:
        """Replaces the entry `old_name` by `entry`."""
        self._library.rename_entry(self.handle, name_of(old_name), self._to_native(entry))

    def delete(self, name: str) -> None:
        self._library.delete_entry(self.handle, name_of(name))


class Lists(Generic[E]):
    """The distribution lists of a kind, by name."""

    def __init__(self, library: Library, scanner: int, kind: int) -> None:
        self._library, self._scanner, self._kind = library, scanner, kind

    def __iter__(self) -> Iterator[str]:
        names = (_native.Entry * _native.MAX_LISTS)()
        count = _native.c_uint32(len(names))
        self._library.enumerate_lists(self._scanner, self._kind, names, count,
                                      accept=(0, _native.STATUS_DATA_NOT_FOUND, _native.STATUS_MORE_DATA))
        return iter([each.name.decode(TEXT_ENCODING) for each in names[:count.value]])

    def __contains__(self, name: str) -> bool:
        return encoded(name).decode(TEXT_ENCODING) in iter(self)

    def __getitem__(self, name: str) -> Entries[E]:
        if name not in self:
            raise KeyError(name)
        return Entries(self._library, self._scanner, self._kind, name)

    def create(self, name: str) -> Entries[E]:
        """Creates a list without members."""
        members: Entries[E] = Entries(self._library, self._scanner, self._kind, name)
        self._library.create_list(members.handle)
        return members

    def delete(self, name: str) -> None:
        """Deletes a list with its members."""
        members: Entries[E] = Entries(self._library, self._scanner, self._kind, name)
        self._library.delete_list(members.handle)


class View(Owned):
    """A position in the public e-mail book. Each operation returns the entry there, or None."""

    def __init__(self, library: Library, scanner: int, mode: int = _native.VIEW_SLIDING) -> None:
        super().__init__(library.close_view, library.open_view(scanner, mode))
        self._library = library

    def _move(self, function: Any, *arguments: Any) -> EmailEntry | None:
        native = _native.Entry()
        status = function(self.handle, *arguments, native, accept=(0, _native.STATUS_DATA_NOT_FOUND))
        return from_native(native, EmailEntry) if status == 0 else None

    def first(self) -> EmailEntry | None:
        return self._move(self._library.view_go, _native.GO_FIRST, 0)

    def last(self) -> EmailEntry | None:
        return self._move(self._library.view_go, _native.GO_LAST, 0)

    def next(self) -> EmailEntry | None:
        return self._move(self._library.view_go, _native.GO_NEXT, 0)

    def prev(self) -> EmailEntry | None:
        return self._move(self._library.view_go, _native.GO_PREV, 0)

    def at(self, index: int) -> EmailEntry | None:
        return self._move(self._library.view_go, _native.GO_AT, index)

    def find(self, name: str) -> EmailEntry | None:
        return self._move(self._library.view_find, _native.FIND_NAME, name_of(name))

    def find_prefix(self, prefix: str) -> EmailEntry | None:
        return self._move(self._library.view_find, _native.FIND_PREFIX, name_of(prefix))

    def find_letter(self, letter: str) -> EmailEntry | None:
        """The first entry whose name begins with this letter."""
        return self._move(self._library.view_find, _native.FIND_LETTER, name_of(letter))

    def find_next(self) -> EmailEntry | None:
        """The next entry for the prefix of the latest search."""
        return self._move(self._library.view_find, _native.FIND_NEXT, "")
