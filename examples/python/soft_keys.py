#!/usr/bin/env python3
"""Programs soft keys from Python: logs in, adds a key with items, renames it, lists all, logs out.

usage: soft_keys.py LIBRARY [HOST USER PASSWORD]

LIBRARY is the path of libquillkit_c.so, or of quillkit_c.dll for a 32-bit Python. Without a host the
administrator of the simulated appliance logs in. What the functions do stands in capi/quillkit_c.h.
"""
import ctypes
import os
import sys

Handle = ctypes.c_uint64
ENCODING = "iso-8859-1"  # the appliance's texts are bytes; this keeps them whatever they mean


class QuillError(Exception):
    """A call that failed."""


class Quillkit:
    """The functions of quillkit_c, with Python's own arguments and results.

    An argument that a function fills in is left out of a call: what it receives is the result.
    """

    def __init__(self, library):
        # A bare name would be looked for where the system has its libraries.
        self._library = ctypes.CDLL(os.path.abspath(library))
        self._library.quill_error_text.restype = ctypes.c_char_p

    def number(self, name, *arguments):
        """The number that a function gives. Errors of quillkit_c are raised."""
        result = getattr(self._library, f"quill_{name}")(*map(self._as_c, arguments))
        error = self._library.quill_error_text(result)
        if error:
            raise QuillError(f"{name}: {error.decode()}")
        return result

    def do(self, name, *arguments):
        """Calls a function that gives a status, which has to be 0."""
        status = self.number(name, *arguments)
        if status != 0:
            raise QuillError(f"{name}: {self.text('translate_toolkit_error', status)}")

    def handle(self, name, *arguments):
        """The handle that a function gives; None when there is no such object."""
        handle = Handle()
        return handle if self.number(name, *arguments, ctypes.byref(handle)) == 1 else None

    def text(self, name, of):
        """The text that a function gives. Asks first how long it is."""
        size = ctypes.c_uint32(0)
        function = getattr(self._library, f"quill_{name}")
        function(of, None, ctypes.byref(size))
        buffer = ctypes.create_string_buffer(size.value)
        self.number(name, of, buffer, ctypes.byref(size))
        return buffer.value.decode(ENCODING)

    @staticmethod
    def _as_c(argument):
        return argument.encode(ENCODING) if isinstance(argument, str) else argument


def add_key(quill, keys, name, items):
    """Adds a soft key with items, each a name, an address and a path."""
    quill.do("add_key", keys, name, 1)
    key = quill.handle("get_key_at", keys, quill.number("find_soft_key_index", keys, name))
    item = quill.handle("create_menu_item")
    for item_name, address, path in items:
        for field, text in ("name", item_name), ("ip_address", address), ("path", path):
            if quill.number(f"set_{field}", item, text) != 1:
                raise QuillError(f"{text} is too long")
        if quill.number("fast_item_add", key, item) < 0:
            raise QuillError(f"the appliance does not take {item_name}")
    quill.number("destroy_menu_item", item)


def rename_key(quill, keys, old_name, new_name):
    """Renames a soft key, and reads all keys anew."""
    named = quill.handle("create_soft_key", new_name, keys)
    quill.do("rename_soft_key", keys, old_name, named)
    quill.number("destroy_soft_key", named)
    quill.do("load_top_level_abook", keys, 1)


def list_keys(quill, keys):
    for index in range(quill.number("get_count", keys)):
        key = quill.handle("get_key_at", keys, index)
        print(quill.text("get_key_name", key))
        for place in range(quill.number("get_item_count", key)):
            item = quill.handle("get_item_at", key, place)
            fields = [quill.text(field, item) for field in ("get_item_name", "ip_address", "path")]
            print("  {:<16}{:<20}{}".format(*fields))


def show_refusal(call, *arguments):
    """Makes a call that has to fail, and prints why it did."""
    try:
        call(*arguments)
    except QuillError as error:
        print("Refused:", error)


def main():
    if len(sys.argv) not in (2, 5):
        sys.exit(__doc__)
    library, *account = sys.argv[1:]
    quill = Quillkit(library)
    host, user, password = account or ("127.0.0.1", "ADMINISTRATOR", "quill")
    box = quill.handle("log_to_quillbox", host, user, password, "", 1)
    if box is None:
        status = quill.number("get_last_toolkit_error")
        raise QuillError(f"no login: {quill.text('translate_toolkit_error', status)}")
    print("Connected to", quill.text("get_scanner_name", box))
    keys = quill.handle("get_top_level_abook", box)
    add_key(quill, keys, "Accounting", [("Invoices in", "files.example.com", "/in"),
                                        ("Tax office", "tax.example.org", "/upload")])
    rename_key(quill, keys, "Accounting", "Bookkeeping")
    list_keys(quill, keys)
    show_refusal(quill.do, "add_key", keys, "Archive", 0)
    quill.number("logout")
    show_refusal(quill.do, "add_key", keys, "Late", 0)
    quill.number("exit")
    show_refusal(quill.number, "get_count", keys)


if __name__ == "__main__":
    try:
        main()
    except (QuillError, OSError, UnicodeError) as failure:
        sys.exit(f"soft_keys.py: {failure}")
