"""The soft keys of an appliance, and their menu items."""
from __future__ import annotations

import contextlib
import dataclasses
from collections.abc import Iterator

from . import _native
from ._library import Library, name as name_of
from .entries import Owned
from .errors import QuillError


@dataclasses.dataclass(frozen=True)
class Item:
    """A menu item. The name identifies it in its key."""
    name: str
    address: str = ""
    path: str = ""
    tag: str = ""
    file_format: int = 0
    settings: int = 0


# The functions that read and store each field.
_FIELDS = {"name": ("get_item_name", "set_name"), "address": ("ip_address", "set_ip_address"),
           "path": ("path", "set_path"), "tag": ("app_tag", "set_app_tag"),
           "file_format": ("file_format", "set_file_format"), "settings": ("settings", "set_settings")}


class ItemHandle(Owned):
    """An item of this process, with the fields of `item`."""

    def __init__(self, library: Library, item: Item) -> None:
        super().__init__(library.destroy_menu_item, library.create_menu_item())
        for field, (_, store) in _FIELDS.items():
            if not getattr(library, store)(self.handle, getattr(item, field)):
                raise QuillError(_native.STATUS_REFUSED)  # the text is too long


class Key:
    """A soft key in memory. It ends when its book is loaded again, or when the key is removed."""

    def __init__(self, library: Library, handle: int) -> None:
        self._library, self.handle = library, handle

    @property
    def name(self) -> str:
        return self._library.get_key_name(self.handle)

    def __len__(self) -> int:
        return self._library.get_item_count(self.handle)

    def __bool__(self) -> bool:
        return True  # also without items

    def __iter__(self) -> Iterator[Item]:
        """The items of now: the loop may change the key."""
        return iter([self[i] for i in range(len(self))])

    def __contains__(self, name: str) -> bool:
        return self._library.find_first_item(self.handle, name, 1) >= 0

    def __getitem__(self, place: int | str) -> Item:
        """The item at an index, or with a name."""
        if isinstance(place, str):
            found = self._library.find_first_item(self.handle, place, 1)
            if found < 0:
                raise KeyError(place)
            place = found
        item = self._library.get_item_at(self.handle, place)
        if item is None:
            raise IndexError(place)
        return Item(**{field: getattr(self._library, read)(item) for field, (read, _) in _FIELDS.items()})

    def add(self, item: Item) -> None:
        with contextlib.closing(ItemHandle(self._library, item)) as made:
            self._library.fast_item_add(self.handle, made.handle)

    def modify(self, item: Item) -> None:
        """Replaces the item with the name of `item`."""
        with contextlib.closing(ItemHandle(self._library, item)) as made:
            self._library.fast_item_modify(self.handle, made.handle)

    def rename(self, old_name: str, item: Item) -> None:
        """Replaces the item `old_name` by `item`."""
        with contextlib.closing(ItemHandle(self._library, item)) as made:
            self._library.fast_item_rename(self.handle, name_of(old_name), made.handle)

    def remove(self, name: str) -> None:
        with contextlib.closing(ItemHandle(self._library, Item(name))) as made:
            self._library.fast_item_remove(self.handle, made.handle)


class Keys:
    """The soft keys of an appliance, as they were loaded. Changes are made on the server too."""

    def __init__(self, library: Library, book: int) -> None:
        self._library, self.handle = library, book

    def __len__(self) -> int:
        return self._library.get_count(self.handle)

    def __bool__(self) -> bool:
        return True  # also without keys

    def __iter__(self) -> Iterator[Key]:
        """The keys of now: the loop may add and delete keys."""
        return iter([self[i] for i in range(len(self))])

    def __getitem__(self, place: int | str) -> Key:
        """The key at an index, or with a name."""
        if isinstance(place, str):
            found = self._library.find_soft_key_index(self.handle, place)
            if found < 0:
                raise KeyError(place)
            place = found
        key = self._library.get_key_at(self.handle, place)
        if key is None:
            raise IndexError(place)
        return Key(self._library, key)

    def __contains__(self, name: str) -> bool:
        return self._library.find_soft_key_index(self.handle, name) >= 0

    def _named(self, name: str) -> contextlib.closing[Owned]:
        handle = self._library.create_soft_key(name_of(name), self.handle)
        return contextlib.closing(Owned(self._library.destroy_soft_key, handle))

    def add(self, name: str) -> Key:
        """Adds a key without items."""
        with self._named(name) as made:
            self._library.fast_key_add(self.handle, made.handle)
        return self[name]

    def delete(self, name: str) -> None:
        with self._named(name) as made:
            self._library.fast_key_remove(self.handle, made.handle)

    def rename(self, old_name: str, new_name: str) -> None:
        with self._named(new_name) as made:
            self._library.fast_key_rename(self.handle, name_of(old_name), made.handle)

    def reload(self) -> None:
        """Loads all keys again. The Key objects of before end."""
        self._library.load_top_level_abook(self.handle, 1)
