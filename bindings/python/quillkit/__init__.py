"""Control of a Quillbox, a network scanning appliance, through quillkit_c.

    import quillkit

    with quillkit.Session("quillbox.example", "ADMINISTRATOR", password) as box:
        for key in box.keys:
            print(key.name, len(key))
"""
from ._library import load
from ._native import CONTRACT
from ._native import (FORMAT_DELIMITED, FORMAT_DIRECTORY, FORMAT_MAIL_SERVER, FORMAT_SCRIPT, TARGET_EMAIL,
                      TARGET_FAX, TARGET_PRINTERS, TARGET_USERS, VERSION, VIEW_FULL, VIEW_LETTER, VIEW_SLIDING)
from .entries import EmailEntry, Entries, FaxEntry, Lists, PrinterEntry, UserEntry, View
from .errors import LoadError, QuillError
from .keys import Item, Key, Keys
from .session import Session

__all__ = ["CONTRACT", "EmailEntry", "Entries", "FORMAT_DELIMITED", "FORMAT_DIRECTORY", "FORMAT_MAIL_SERVER",
           "FORMAT_SCRIPT", "FaxEntry", "Item", "Key", "Keys", "Lists", "LoadError", "PrinterEntry", "QuillError",
           "Session", "TARGET_EMAIL", "TARGET_FAX", "TARGET_PRINTERS", "TARGET_USERS", "UserEntry",
           "VERSION", "VIEW_FULL", "VIEW_LETTER", "VIEW_SLIDING", "View", "load"]
