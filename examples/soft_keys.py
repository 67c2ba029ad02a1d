#!/usr/bin/env python3
"""Soft keys in Python: logs in, adds a key with two items, renames it, lists all keys, and shows how
a call reports that it failed.

usage: soft_keys.py [LIBRARY]    the path of libquillkit_c.so, or of quillkit_c.dll (32-bit Python)
"""
import pathlib
import sys

# The package beside the examples; not needed if it is installed.
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "bindings/python"))
import quillkit


def list_keys(keys):
    for key in keys:
        print(key.name)
        for item in key:
            print(f"  {item.name:<16}{item.address:<20}{item.path}")


def try_to_add(keys, name):
    try:
        keys.add(name)
    except quillkit.QuillError as error:
        print("Refused:", error.text)


def main(library=None):
    with quillkit.Session("127.0.0.1", "ADMINISTRATOR", "quill", library=library) as box:
        print("Connected to", box.name)
        keys = box.keys
        key = keys.add("Accounting")
        key.add(quillkit.Item("Invoices in", address="files.example.com", path="/in"))
        key.add(quillkit.Item("Tax office", address="tax.example.org", path="/upload"))
        keys.rename("Accounting", "Bookkeeping")
        keys.reload()
        list_keys(keys)
        try_to_add(keys, "Archive")  # already exists
    try_to_add(keys, "Late")


try:
    main(*sys.argv[1:])
except (quillkit.QuillError, quillkit.LoadError) as failure:
    sys.exit(f"soft_keys.py: {failure}")
