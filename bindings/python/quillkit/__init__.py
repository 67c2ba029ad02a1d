"""Control of a Quillbox, a network scanning appliance, through quillkit_c.

    import quillkit

    with quillkit.Session("quillbox.example", "ADMINISTRATOR", password) as box:
        for key in box.keys:
            print(key.name, len(key))
"""
from . import _native
from ._library import load
from ._native import *
from .entries import EmailEntry, Entries, FaxEntry, Lists, PrinterEntry, UserEntry, View
from .errors import LoadError, QuillError
from .keys import Item, Key, Keys
from .session import Session

__all__ = ["EmailEntry", "Entries", "FaxEntry", "Item", "Key", "Keys", "Lists", "LoadError", "PrinterEntry",
           "QuillError", "Session", "UserEntry", "View", "load"]
__all__ += _native.__all__
