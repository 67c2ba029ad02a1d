# Generated from src/toolkit/api.json by scripts/make_bindings. Do not edit.
"""The functions, constants and structures of quillkit_c, as they are."""
from ctypes import POINTER, Structure, c_char, c_char_p, c_int32, c_uint32, c_uint64

VERSION = "0.1.0"
CONTRACT = 1
FILES = {"windows": "quillkit_c.dll", "posix": "libquillkit_c.so"}

# Errors of quillkit_c.
E_NULL = -1001
E_STALE = -1002
E_FOREIGN = -1003
E_OWNER = -1004
E_ARGUMENT = -1005
E_BUFFER = -1006
E_MEMORY = -1007
E_INTERNAL = -1008
E_NESTED = -1009
E_FORKED = -1010

# Codes of the server, and local codes below 0.
STATUS_NO_ERROR = 0
STATUS_DUPLICATE_LOGIN = 1
STATUS_WRONG_USER = 2
STATUS_NO_SUCH_BOOK = 3
STATUS_DATA_NOT_FOUND = 4
STATUS_NO_MORE_ADDRESSES = 5
STATUS_GENERAL_FAILURE = 6
STATUS_INVALID_FIELD = 7
STATUS_BOOK_LOCKED = 8
STATUS_DUPLICATE_BOOK = 9
STATUS_NOT_LOGGED_IN = 10
STATUS_ACCESS_DENIED = 11
STATUS_STATIC_BOOK = 12
STATUS_NOT_IMPLEMENTED = 13
STATUS_NAME_CONFLICT = 14
STATUS_SERVER_IDLE = 15
STATUS_SERVER_BUSY = 16
STATUS_BAD_COMMAND = 17
STATUS_SERVER_FAILURE = 18
STATUS_TIMEOUT_EXPIRED = 19
STATUS_NOT_INITIALISED = 20
STATUS_MORE_DATA = 21
STATUS_BUSY = 22
STATUS_BOOK_FULL = 24
STATUS_INVALID_HOST = 25
STATUS_REFUSED = -1
STATUS_UNUSABLE_INPUT = -2
STATUS_MISSING_ARGUMENT = -3
STATUS_UNKNOWN_FORMAT = -11

# Numbers of objects, and characters of texts without the NUL.
MAX_KEYS = 11
MAX_ITEMS = 512
MAX_NAME = 31
MAX_IP_ADDRESS = 255
MAX_PATH = 127
MAX_APP_TAG = 127
MAX_PASSWORD = 15
MAX_THIRD = 255
MAX_EMAIL_ENTRIES = 200000
MAX_FAX_ENTRIES = 2048
MAX_LISTS = 512
MAX_MEMBERS = 512

# Books and kinds of lists.
BOOK_EMAIL = 1
BOOK_FAX = 2
BOOK_USERS = 4
BOOK_PRINTERS = 8
BOOK_PRIVATE_EMAIL = 16
LIST_EMAIL = 64
LIST_PRIVATE_EMAIL = 128
LIST_FAX = 768

# Kinds of views.
VIEW_SLIDING = 0
VIEW_LETTER = 1
VIEW_FULL = 2

# Where a view moves to.
GO_FIRST = 0
GO_LAST = 1
GO_NEXT = 2
GO_PREV = 3
GO_AT = 4

# What a view finds.
FIND_NAME = 0
FIND_PREFIX = 1
FIND_LETTER = 2
FIND_NEXT = 3

# Formats of an imported file.
FORMAT_DELIMITED = 1
FORMAT_DIRECTORY = 16
FORMAT_MAIL_SERVER = 256
FORMAT_SCRIPT = 4096

# Books that a delimited file fills.
TARGET_EMAIL = 1
TARGET_FAX = 2
TARGET_PRINTERS = 3
TARGET_USERS = 4

# Sizes of arrays in structures.
ENTRY_TEXTS = 3
ENTRY_NUMBERS = 3
ENTRY_TEXT_SIZE = 256
IMPORT_COLUMNS = 4

# What the package exports.
__all__ = ["VERSION", "CONTRACT", "E_NULL", "E_STALE", "E_FOREIGN", "E_OWNER", "E_ARGUMENT",
           "E_BUFFER", "E_MEMORY", "E_INTERNAL", "E_NESTED", "E_FORKED", "STATUS_NO_ERROR",
           "STATUS_DUPLICATE_LOGIN", "STATUS_WRONG_USER", "STATUS_NO_SUCH_BOOK",
           "STATUS_DATA_NOT_FOUND", "STATUS_NO_MORE_ADDRESSES", "STATUS_GENERAL_FAILURE",
           "STATUS_INVALID_FIELD", "STATUS_BOOK_LOCKED", "STATUS_DUPLICATE_BOOK",
           "STATUS_NOT_LOGGED_IN", "STATUS_ACCESS_DENIED", "STATUS_STATIC_BOOK",
           "STATUS_NOT_IMPLEMENTED", "STATUS_NAME_CONFLICT", "STATUS_SERVER_IDLE",
           "STATUS_SERVER_BUSY", "STATUS_BAD_COMMAND", "STATUS_SERVER_FAILURE",
           "STATUS_TIMEOUT_EXPIRED", "STATUS_NOT_INITIALISED", "STATUS_MORE_DATA", "STATUS_BUSY",
           "STATUS_BOOK_FULL", "STATUS_INVALID_HOST", "STATUS_REFUSED", "STATUS_UNUSABLE_INPUT",
           "STATUS_MISSING_ARGUMENT", "STATUS_UNKNOWN_FORMAT", "MAX_KEYS", "MAX_ITEMS", "MAX_NAME",
           "MAX_IP_ADDRESS", "MAX_PATH", "MAX_APP_TAG", "MAX_PASSWORD", "MAX_THIRD",
           "MAX_EMAIL_ENTRIES", "MAX_FAX_ENTRIES", "MAX_LISTS", "MAX_MEMBERS", "VIEW_SLIDING",
           "VIEW_LETTER", "VIEW_FULL", "FORMAT_DELIMITED", "FORMAT_DIRECTORY", "FORMAT_MAIL_SERVER",
           "FORMAT_SCRIPT", "TARGET_EMAIL", "TARGET_FAX", "TARGET_PRINTERS", "TARGET_USERS"]

ERROR_TEXTS = {
    -1001: "the handle is 0",
    -1002: "the object of the handle no longer exists",
    -1003: "not a handle of such an object",
    -1004: "the object has a different owner",
    -1005: "an argument is null or out of range",
    -1006: "the buffer is too small",
    -1007: "out of memory",
    -1008: "internal failure",
    -1009: "the thread is inside another call",
    -1010: "the process is a fork of the one that loaded the library",
}

STATUS_TEXTS = {
    0: "No Error",
    1: "Duplicated Login",
    2: "Invalid User or Password",
    3: "Address Book Not Found",
    4: "Data Not Found",
    5: "No More Addresses",
    6: "General Failure",
    7: "Invalid Field",
    8: "Address Book Locked",
    9: "Duplicated Address Book's Name",
    10: "Not Logged In",
    11: "Access Denied",
    12: "Static Address Book",
    13: "Call Not Implemented",
    14: "Name Conflict",
    15: "IMSP Idle",
    16: "IMSP Server Busy",
    17: "Bad Command",
    18: "IMSP Failure",
    19: "Timeout Expired",
    20: "IMSP Unitialized",
    21: "More Data Available than request",
    22: "IMSP Busy",
    24: "Address Book Full",
    25: "Invalid host name",
    -1: "Not connected, invalid argument, no such file, or a text that is too long",
    -2: "The input file cannot be read",
    -3: "An argument is missing",
    -11: "Unknown import format",
}


class Entry(Structure):
    """An entry of a book, or a member of a list."""
    _fields_ = [("name", c_char * 32), ("texts", c_char * 256 * 3), ("numbers", c_uint32 * 3)]


class ImportOptions(Structure):
    """The options of an import."""
    _fields_ = [("skip_header", c_int32), ("clear_first", c_int32), ("format", c_uint32),
                ("target_book", c_int32), ("column_count", c_int32), ("column_map", c_int32 * 4)]


# Style of the result, its type, and the arguments: name, type, direction.
FUNCTIONS = {
    # The version of the library.
    "quill_version": ("text", c_char_p, (
    )),
    # The number of the library's interface.
    "quill_contract": ("number", c_int32, (
    )),
    # The text of an error of quillkit_c.
    "quill_error_text": ("text", c_char_p, (
        ("error", c_int32, "in"),
    )),
    # Waits and keeps the session alive.
    "quill_wait": ("flag", c_int32, (
        ("milliseconds", c_uint32, "in"),
    )),
    # The descriptor that is readable while a keep-alive is due.
    "quill_event_descriptor": ("number", c_int32, (
    )),
    # Sends the keep-alive if it is due.
    "quill_dispatch_events": ("number", c_int32, (
    )),
    # Logs in to an appliance.
    "quill_log_to_quillbox": ("handle", c_int32, (
        ("host", c_char_p, "in"),
        ("user", c_char_p, "in"),
        ("password", c_char_p, "in"),
        ("third", c_char_p, "in"),
        ("load_top_book", c_int32, "in"),
        ("scanner", POINTER(c_uint64), "out"),
        ("error", POINTER(c_int32), "out"),
    )),
    # Ends the session; the objects stay.
    "quill_logout": ("none", c_int32, (
    )),
    # Destroys the objects that the library owns and unloads the server library.
    "quill_exit": ("none", c_int32, (
    )),
    # The last recorded status.
    "quill_get_last_toolkit_error": ("status", c_int32, (
    )),
    # The text of a status.
    "quill_translate_toolkit_error": ("flag", c_int32, (
        ("code", c_int32, "in"),
        ("buffer", c_char_p, "out"),
        ("size", POINTER(c_uint32), "inout"),
    )),
    # The host as passed at login.
    "quill_get_scanner_name": ("text", c_int32, (
        ("scanner", c_uint64, "in"),
        ("buffer", c_char_p, "out"),
        ("size", POINTER(c_uint32), "inout"),
    )),
    # The version that the server reported at login.
    "quill_get_scanner_version": ("text", c_int32, (
        ("scanner", c_uint64, "in"),
        ("buffer", c_char_p, "out"),
        ("size", POINTER(c_uint32), "inout"),
    )),
    # The model that the server reported at login.
    "quill_get_scanner_model": ("text", c_int32, (
        ("scanner", c_uint64, "in"),
        ("buffer", c_char_p, "out"),
        ("size", POINTER(c_uint32), "inout"),
    )),
    # The IPv4 address, in network byte order.
    "quill_get_scanner_address": ("value", c_int32, (
        ("scanner", c_uint64, "in"),
        ("value", POINTER(c_uint32), "out"),
    )),
    # The user who is logged in.
    "quill_get_current_connected_user": ("handle", c_int32, (
        ("scanner", c_uint64, "in"),
        ("user", POINTER(c_uint64), "out"),
    )),
    # Whether ADMINISTRATOR is logged in.
    "quill_is_admin_connected": ("flag", c_int32, (
        ("scanner", c_uint64, "in"),
    )),
    # The top-level book of the open session.
    "quill_get_top_level_abook": ("handle", c_int32, (
        ("scanner", c_uint64, "in"),
        ("book", POINTER(c_uint64), "out"),
    )),
    # The number of keys in memory.
    "quill_get_count": ("count", c_int32, (
        ("book", c_uint64, "in"),
    )),
    # Reads the keys again, with or without items.
    "quill_load_top_level_abook": ("status", c_int32, (
        ("book", c_uint64, "in"),
        ("with_items", c_int32, "in"),
    )),
    # Adds a key on the server.
    "quill_add_key": ("status", c_int32, (
        ("book", c_uint64, "in"),
        ("name", c_char_p, "in"),
        ("reload", c_int32, "in"),
    )),
    # Deletes a key and its items on the server.
    "quill_delete_key": ("status", c_int32, (
        ("book", c_uint64, "in"),
        ("name", c_char_p, "in"),
        ("reload", c_int32, "in"),
    )),
    # Writes a key on the server.
    "quill_modify_key": ("status", c_int32, (
        ("book", c_uint64, "in"),
        ("key", c_uint64, "in"),
        ("reload", c_int32, "in"),
    )),
    # Renames a key on the server.
    "quill_rename_soft_key": ("status", c_int32, (
        ("book", c_uint64, "in"),
        ("old_name", c_char_p, "in"),
        ("key", c_uint64, "in"),
    )),
    # The key at an index.
    "quill_get_key_at": ("handle", c_int32, (
        ("book", c_uint64, "in"),
        ("index", c_int32, "in"),
        ("key", POINTER(c_uint64), "out"),
    )),
    # The index of the key with a name.
    "quill_find_soft_key_index": ("index", c_int32, (
        ("book", c_uint64, "in"),
        ("name", c_char_p, "in"),
    )),
    # Adds a key on the server and in memory.
    "quill_fast_key_add": ("count", c_int32, (
        ("book", c_uint64, "in"),
        ("key", c_uint64, "in"),
        ("error", POINTER(c_int32), "out"),
    )),
    # Removes a key on the server and in memory.
    "quill_fast_key_remove": ("count", c_int32, (
        ("book", c_uint64, "in"),
        ("key", c_uint64, "in"),
        ("error", POINTER(c_int32), "out"),
    )),
    # Writes a key on the server and in memory.
    "quill_fast_key_modify": ("flag", c_int32, (
        ("book", c_uint64, "in"),
        ("key", c_uint64, "in"),
        ("error", POINTER(c_int32), "out"),
    )),
    # Renames a key on the server and in memory.
    "quill_fast_key_rename": ("flag", c_int32, (
        ("book", c_uint64, "in"),
        ("old_name", c_char_p, "in"),
        ("key", c_uint64, "in"),
        ("error", POINTER(c_int32), "out"),
    )),
    # Makes a key that the application owns.
    "quill_create_soft_key": ("flag", c_int32, (
        ("name", c_char_p, "in"),
        ("book", c_uint64, "in"),
        ("key", POINTER(c_uint64), "out"),
    )),
    # Frees a key that the application owns.
    "quill_destroy_soft_key": ("none", c_int32, (
        ("key", c_uint64, "in"),
    )),
    # The key with a name, if its items can be read.
    "quill_load_items": ("handle", c_int32, (
        ("book", c_uint64, "in"),
        ("name", c_char_p, "in"),
        ("key", POINTER(c_uint64), "out"),
        ("error", POINTER(c_int32), "out"),
    )),
    # The key's name.
    "quill_get_key_name": ("text", c_int32, (
        ("key", c_uint64, "in"),
        ("buffer", c_char_p, "out"),
        ("size", POINTER(c_uint32), "inout"),
    )),
    # Whether no items are in memory.
    "quill_is_soft_key_empty": ("flag", c_int32, (
        ("key", c_uint64, "in"),
    )),
    # The number of items in memory.
    "quill_get_item_count": ("count", c_int32, (
        ("key", c_uint64, "in"),
    )),
    # The number of items on the server.
    "quill_get_db_item_count": ("status", c_int32, (
        ("key", c_uint64, "in"),
        ("count", POINTER(c_uint32), "out"),
    )),
    # The item at an index.
    "quill_get_item_at": ("handle", c_int32, (
        ("key", c_uint64, "in"),
        ("index", c_int32, "in"),
        ("item", POINTER(c_uint64), "out"),
    )),
    # Copies an item over the one at an index, in memory.
    "quill_set_item_at": ("flag", c_int32, (
        ("key", c_uint64, "in"),
        ("index", c_int32, "in"),
        ("item", c_uint64, "in"),
    )),
    # Removes the item at an index, in memory.
    "quill_remove_item_at": ("flag", c_int32, (
        ("key", c_uint64, "in"),
        ("index", c_int32, "in"),
    )),
    # The first item whose name matches.
    "quill_find_first_item": ("index", c_int32, (
        ("key", c_uint64, "in"),
        ("pattern", c_char_p, "in"),
        ("whole_name", c_int32, "in"),
    )),
    # The next item whose name matches.
    "quill_find_next_item": ("index", c_int32, (
        ("key", c_uint64, "in"),
        ("whole_name", c_int32, "in"),
    )),
    # The index of the item with an item's name.
    "quill_find_menu_item_index": ("index", c_int32, (
        ("key", c_uint64, "in"),
        ("item", c_uint64, "in"),
    )),
    # Adds an item on the server.
    "quill_add_menu_item": ("status", c_int32, (
        ("key", c_uint64, "in"),
        ("item", c_uint64, "in"),
        ("reload", c_int32, "in"),
    )),
    # Writes an item on the server.
    "quill_modify_menu_item": ("status", c_int32, (
        ("key", c_uint64, "in"),
        ("item", c_uint64, "in"),
        ("reload", c_int32, "in"),
    )),
    # Renames an item on the server.
    "quill_rename_menu_item": ("status", c_int32, (
        ("key", c_uint64, "in"),
        ("old_name", c_char_p, "in"),
        ("item", c_uint64, "in"),
        ("reload", c_int32, "in"),
    )),
    # Deletes an item on the server.
    "quill_delete_menu_item": ("status", c_int32, (
        ("key", c_uint64, "in"),
        ("name", c_char_p, "in"),
        ("reload", c_int32, "in"),
    )),
    # Adds an item on the server and in memory.
    "quill_fast_item_add": ("count", c_int32, (
        ("key", c_uint64, "in"),
        ("item", c_uint64, "in"),
        ("error", POINTER(c_int32), "out"),
    )),
    # Removes an item on the server and in memory.
    "quill_fast_item_remove": ("count", c_int32, (
        ("key", c_uint64, "in"),
        ("item", c_uint64, "in"),
        ("error", POINTER(c_int32), "out"),
    )),
    # Writes an item on the server and in memory.
    "quill_fast_item_modify": ("flag", c_int32, (
        ("key", c_uint64, "in"),
        ("item", c_uint64, "in"),
        ("error", POINTER(c_int32), "out"),
    )),
    # Renames an item on the server and in memory.
    "quill_fast_item_rename": ("flag", c_int32, (
        ("key", c_uint64, "in"),
        ("old_name", c_char_p, "in"),
        ("item", c_uint64, "in"),
        ("error", POINTER(c_int32), "out"),
    )),
    # Makes a blank item that the application owns.
    "quill_create_menu_item": ("flag", c_int32, (
        ("item", POINTER(c_uint64), "out"),
    )),
    # Frees an item that the application owns.
    "quill_destroy_menu_item": ("none", c_int32, (
        ("item", c_uint64, "in"),
    )),
    # The item's name.
    "quill_get_item_name": ("text", c_int32, (
        ("item", c_uint64, "in"),
        ("buffer", c_char_p, "out"),
        ("size", POINTER(c_uint32), "inout"),
    )),
    # The item's address.
    "quill_ip_address": ("text", c_int32, (
        ("item", c_uint64, "in"),
        ("buffer", c_char_p, "out"),
        ("size", POINTER(c_uint32), "inout"),
    )),
    # The item's path.
    "quill_path": ("text", c_int32, (
        ("item", c_uint64, "in"),
        ("buffer", c_char_p, "out"),
        ("size", POINTER(c_uint32), "inout"),
    )),
    # The item's application tag.
    "quill_app_tag": ("text", c_int32, (
        ("item", c_uint64, "in"),
        ("buffer", c_char_p, "out"),
        ("size", POINTER(c_uint32), "inout"),
    )),
    # The item's file format.
    "quill_file_format": ("value", c_int32, (
        ("item", c_uint64, "in"),
        ("value", POINTER(c_uint32), "out"),
    )),
    # The item's settings.
    "quill_settings": ("value", c_int32, (
        ("item", c_uint64, "in"),
        ("value", POINTER(c_uint32), "out"),
    )),
    # Stores the item's name.
    "quill_set_name": ("flag", c_int32, (
        ("item", c_uint64, "in"),
        ("text", c_char_p, "in"),
    )),
    # Stores the item's address.
    "quill_set_ip_address": ("flag", c_int32, (
        ("item", c_uint64, "in"),
        ("text", c_char_p, "in"),
    )),
    # Stores the item's path.
    "quill_set_path": ("flag", c_int32, (
        ("item", c_uint64, "in"),
        ("text", c_char_p, "in"),
    )),
    # Stores the item's application tag.
    "quill_set_app_tag": ("flag", c_int32, (
        ("item", c_uint64, "in"),
        ("text", c_char_p, "in"),
    )),
    # Stores the item's file format.
    "quill_set_file_format": ("flag", c_int32, (
        ("item", c_uint64, "in"),
        ("value", c_uint32, "in"),
    )),
    # Stores the item's settings.
    "quill_set_settings": ("flag", c_int32, (
        ("item", c_uint64, "in"),
        ("value", c_uint32, "in"),
    )),
    # Opens the entries of a book, or the members of a list.
    "quill_open_entries": ("status", c_int32, (
        ("scanner", c_uint64, "in"),
        ("kind", c_int32, "in"),
        ("name", c_char_p, "in"),
        ("entries", POINTER(c_uint64), "out"),
    )),
    # Closes them.
    "quill_close_entries": ("status", c_int32, (
        ("entries", c_uint64, "in"),
    )),
    # The number of entries on the server.
    "quill_entry_count": ("status", c_int32, (
        ("entries", c_uint64, "in"),
        ("count", POINTER(c_uint32), "out"),
    )),
    # Reads a page of entries.
    "quill_read_entries": ("status", c_int32, (
        ("entries", c_uint64, "in"),
        ("first", c_char_p, "in"),
        ("filter", c_char_p, "in"),
        ("skip", c_int32, "in"),
        ("direction", c_int32, "in"),
        ("page", POINTER(Entry), "out"),
        ("count", POINTER(c_uint32), "inout"),
    )),
    # Reads one entry by its name.
    "quill_read_entry": ("status", c_int32, (
        ("entries", c_uint64, "in"),
        ("name", c_char_p, "in"),
        ("entry", POINTER(Entry), "out"),
    )),
    # Adds an entry.
    "quill_add_entry": ("status", c_int32, (
        ("entries", c_uint64, "in"),
        ("entry", POINTER(Entry), "in"),
    )),
    # Replaces the entry with an entry's name.
    "quill_modify_entry": ("status", c_int32, (
        ("entries", c_uint64, "in"),
        ("entry", POINTER(Entry), "in"),
    )),
    # Replaces an entry by one with another name.
    "quill_rename_entry": ("status", c_int32, (
        ("entries", c_uint64, "in"),
        ("old_name", c_char_p, "in"),
        ("entry", POINTER(Entry), "in"),
    )),
    # Deletes an entry by its name.
    "quill_delete_entry": ("status", c_int32, (
        ("entries", c_uint64, "in"),
        ("name", c_char_p, "in"),
    )),
    # Reads the names of all lists of a kind.
    "quill_enumerate_lists": ("status", c_int32, (
        ("scanner", c_uint64, "in"),
        ("kind", c_int32, "in"),
        ("lists", POINTER(Entry), "out"),
        ("count", POINTER(c_uint32), "inout"),
    )),
    # Creates a list without members.
    "quill_create_list": ("status", c_int32, (
        ("entries", c_uint64, "in"),
    )),
    # Deletes a list with its members.
    "quill_delete_list": ("status", c_int32, (
        ("entries", c_uint64, "in"),
    )),
    # Opens a view of the public e-mail book.
    "quill_open_view": ("status", c_int32, (
        ("scanner", c_uint64, "in"),
        ("mode", c_int32, "in"),
        ("view", POINTER(c_uint64), "out"),
    )),
    # Closes a view.
    "quill_close_view": ("status", c_int32, (
        ("view", c_uint64, "in"),
    )),
    # Moves a view and reads the entry there.
    "quill_view_go": ("status", c_int32, (
        ("view", c_uint64, "in"),
        ("where", c_int32, "in"),
        ("index", c_int32, "in"),
        ("entry", POINTER(Entry), "out"),
    )),
    # Finds an entry by its name.
    "quill_view_find": ("status", c_int32, (
        ("view", c_uint64, "in"),
        ("what", c_int32, "in"),
        ("key", c_char_p, "in"),
        ("entry", POINTER(Entry), "out"),
    )),
    # Fills an address book from a file.
    "quill_import_address_book": ("status", c_int32, (
        ("scanner", c_uint64, "in"),
        ("path", c_char_p, "in"),
        ("options", POINTER(ImportOptions), "in"),
    )),
}
