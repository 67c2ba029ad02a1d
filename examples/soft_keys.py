#!/usr/bin/env python3
"""Soft keys in Python: logs in, adds a key with two items, renames it, lists all keys, and shows how
a call reports that it failed.

usage: soft_keys.py LIBRARY    the path of libquillkit_c.so, or of quillkit_c.dll (32-bit Python)
"""
import ctypes
import os
import sys


class QuillError(Exception):
    pass


class Quillkit:
    """The functions of quillkit_c. The methods return what a function stores in its arguments."""
    def __init__(self, library):
        # Given a bare name, CDLL would search the folders of the system's libraries.
        self._library = ctypes.CDLL(os.path.abspath(library))
        self._library.quill_error_text.restype = ctypes.c_char_p

    def number(self, name, *arguments):
        """The number that a function returns. Raises an error of quillkit_c. Texts are Latin-1."""
        arguments = [each.encode("latin-1") if isinstance(each, str) else each for each in arguments]
        result = getattr(self._library, f"quill_{name}")(*arguments)
        if error := self._library.quill_error_text(result):
            raise QuillError(error.decode())
        return result

    def do(self, name, *arguments):
        """Calls a function that returns a status. Raises an error unless it is 0."""
        if (status := self.number(name, *arguments)) != 0:
            raise QuillError(self.text("translate_toolkit_error", status))

    def handle(self, name, *arguments):
        """The handle that a function fills in. Raises if there is no such object. The last argument is
        for the error of a call; a function without one ignores it."""
        handle = ctypes.c_uint64()
        if self.number(name, *arguments, ctypes.byref(handle), None) != 1:
            raise QuillError(f"{name}: code {self.number('get_last_toolkit_error')}")
        return handle

    def text(self, name, of):
        """The text that a function fills in. Asks for its size first."""
        size = ctypes.c_uint32(0)
        getattr(self._library, f"quill_{name}")(of, None, ctypes.byref(size))
        buffer = ctypes.create_string_buffer(size.value)
        self.number(name, of, buffer, ctypes.byref(size))
        return buffer.value.decode("latin-1")


def add_item(quill, key, **fields):
    item = quill.handle("create_menu_item")
    taken = all(quill.number(f"set_{field}", item, text) == 1 for field, text in fields.items())
    if not taken or quill.number("fast_item_add", key, item, None) < 0:
        raise QuillError(f"refused: {fields}")
    quill.number("destroy_menu_item", item)


def list_keys(quill, keys):
    for index in range(quill.number("get_count", keys)):
        key = quill.handle("get_key_at", keys, index)
        print(quill.text("get_key_name", key))
        for place in range(quill.number("get_item_count", key)):
            item = quill.handle("get_item_at", key, place)
            fields = [quill.text(field, item) for field in ("get_item_name", "ip_address", "path")]
            print("  {:<16}{:<20}{}".format(*fields))


def try_to_add(quill, keys, name):
    try:
        quill.do("add_key", keys, name, 0)
    except QuillError as error:
        print("Refused:", error)


def main(library):
    quill = Quillkit(library)
    box = quill.handle("log_to_quillbox", "127.0.0.1", "ADMINISTRATOR", "quill", "", 1)
    print("Connected to", quill.text("get_scanner_name", box))
    keys = quill.handle("get_top_level_abook", box)
    quill.do("add_key", keys, "Accounting", 1)
    key = quill.handle("get_key_at", keys, quill.number("find_soft_key_index", keys, "Accounting"))
    add_item(quill, key, name="Invoices in", ip_address="files.example.com", path="/in")
    add_item(quill, key, name="Tax office", ip_address="tax.example.org", path="/upload")
    named = quill.handle("create_soft_key", "Bookkeeping", keys)
    quill.do("rename_soft_key", keys, "Accounting", named)  # not in memory
    quill.do("load_top_level_abook", keys, 1)
    quill.number("destroy_soft_key", named)
    list_keys(quill, keys)
    try_to_add(quill, keys, "Archive")  # already exists
    quill.number("logout")
    try_to_add(quill, keys, "Late")
    quill.number("exit")


try:
    main(sys.argv[1] if len(sys.argv) == 2 else sys.exit(__doc__))
except (QuillError, OSError) as failure:
    sys.exit(f"soft_keys.py: {failure}")
