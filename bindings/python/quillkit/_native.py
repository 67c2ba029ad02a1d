# Generated from src/toolkit/api.json by scripts/make_bindings. Do not edit.
"""The functions, constants and structures of quillkit_c, as they are."""
from ctypes import POINTER, Structure, c_char, c_char_p, c_int32, c_uint32, c_uint64

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
    -1: "Unknown Error Code !",
    -2: "Unknown Error Code !",
    -3: "Unknown Error Code !",
    -11: "Unknown Error Code !",
}


class Entry(Structure):
    """An entry of a book, or a member of a list."""
    _fields_ = [("name", c_char * 32), ("texts", c_char * 256 * 3), ("numbers", c_uint32 * 3)]


class ImportOptions(Structure):
    """The options of an import."""
    _fields_ = [("skip_header", c_int32), ("clear_first", c_int32), ("format", c_uint32),
                ("target_book", c_int32), ("column_count", c_int32), ("column_map", c_int32 * 4)]


# Result, then the arguments.
FUNCTIONS = {
    # The version of the library. ()
    "quill_version": (c_char_p,),
    # The number of the library's interface. ()
    "quill_contract": (c_int32,),
    # The text of an error of quillkit_c. (error)
    "quill_error_text": (c_char_p, c_int32),
    # Waits and keeps the session alive. (milliseconds)
    "quill_wait": (c_int32, c_uint32),
    # The descriptor that is readable while a keep-alive is due. ()
    "quill_event_descriptor": (c_int32,),
    # Sends the keep-alive if it is due. ()
    "quill_dispatch_events": (c_int32,),
    # Logs in to an appliance. (host, user, password, third, load_top_book, scanner, error)
    "quill_log_to_quillbox": (c_int32, c_char_p, c_char_p, c_char_p, c_char_p, c_int32,
        POINTER(c_uint64), POINTER(c_int32)),
    # Ends the session; the objects stay. ()
    "quill_logout": (c_int32,),
    # Destroys the objects that the library owns and unloads the server library. ()
    "quill_exit": (c_int32,),
    # The last recorded status. ()
    "quill_get_last_toolkit_error": (c_int32,),
    # The text of a status. (code, buffer, size)
    "quill_translate_toolkit_error": (c_int32, c_int32, c_char_p, POINTER(c_uint32)),
    # The host as passed at login. (scanner, buffer, size)
    "quill_get_scanner_name": (c_int32, c_uint64, c_char_p, POINTER(c_uint32)),
    # The version that the server reported at login. (scanner, buffer, size)
    "quill_get_scanner_version": (c_int32, c_uint64, c_char_p, POINTER(c_uint32)),
    # The model that the server reported at login. (scanner, buffer, size)
    "quill_get_scanner_model": (c_int32, c_uint64, c_char_p, POINTER(c_uint32)),
    # The IPv4 address, in network byte order. (scanner, value)
    "quill_get_scanner_address": (c_int32, c_uint64, POINTER(c_uint32)),
    # The user who is logged in. (scanner, user)
    "quill_get_current_connected_user": (c_int32, c_uint64, POINTER(c_uint64)),
    # Whether ADMINISTRATOR is logged in. (scanner)
    "quill_is_admin_connected": (c_int32, c_uint64),
    # The top-level book of the open session. (scanner, book)
    "quill_get_top_level_abook": (c_int32, c_uint64, POINTER(c_uint64)),
    # The number of keys in memory. (book)
    "quill_get_count": (c_int32, c_uint64),
    # Reads the keys again, with or without items. (book, with_items)
    "quill_load_top_level_abook": (c_int32, c_uint64, c_int32),
    # Adds a key on the server. (book, name, reload)
    "quill_add_key": (c_int32, c_uint64, c_char_p, c_int32),
    # Deletes a key and its items on the server. (book, name, reload)
    "quill_delete_key": (c_int32, c_uint64, c_char_p, c_int32),
    # Writes a key on the server. (book, key, reload)
    "quill_modify_key": (c_int32, c_uint64, c_uint64, c_int32),
    # Renames a key on the server. (book, old_name, key)
    "quill_rename_soft_key": (c_int32, c_uint64, c_char_p, c_uint64),
    # The key at an index. (book, index, key)
    "quill_get_key_at": (c_int32, c_uint64, c_int32, POINTER(c_uint64)),
    # The index of the key with a name. (book, name)
    "quill_find_soft_key_index": (c_int32, c_uint64, c_char_p),
    # Adds a key on the server and in memory. (book, key, error)
    "quill_fast_key_add": (c_int32, c_uint64, c_uint64, POINTER(c_int32)),
    # Removes a key on the server and in memory. (book, key, error)
    "quill_fast_key_remove": (c_int32, c_uint64, c_uint64, POINTER(c_int32)),
    # Writes a key on the server and in memory. (book, key, error)
    "quill_fast_key_modify": (c_int32, c_uint64, c_uint64, POINTER(c_int32)),
    # Renames a key on the server and in memory. (book, old_name, key, error)
    "quill_fast_key_rename": (c_int32, c_uint64, c_char_p, c_uint64, POINTER(c_int32)),
    # Makes a key that the application owns. (name, book, key)
    "quill_create_soft_key": (c_int32, c_char_p, c_uint64, POINTER(c_uint64)),
    # Frees a key that the application owns. (key)
    "quill_destroy_soft_key": (c_int32, c_uint64),
    # The key with a name, if its items can be read. (book, name, key, error)
    "quill_load_items": (c_int32, c_uint64, c_char_p, POINTER(c_uint64), POINTER(c_int32)),
    # The key's name. (key, buffer, size)
    "quill_get_key_name": (c_int32, c_uint64, c_char_p, POINTER(c_uint32)),
    # Whether no items are in memory. (key)
    "quill_is_soft_key_empty": (c_int32, c_uint64),
    # The number of items in memory. (key)
    "quill_get_item_count": (c_int32, c_uint64),
    # The number of items on the server. (key, count)
    "quill_get_db_item_count": (c_int32, c_uint64, POINTER(c_uint32)),
    # The item at an index. (key, index, item)
    "quill_get_item_at": (c_int32, c_uint64, c_int32, POINTER(c_uint64)),
    # Copies an item over the one at an index, in memory. (key, index, item)
    "quill_set_item_at": (c_int32, c_uint64, c_int32, c_uint64),
    # Removes the item at an index, in memory. (key, index)
    "quill_remove_item_at": (c_int32, c_uint64, c_int32),
    # The first item whose name matches. (key, pattern, whole_name)
    "quill_find_first_item": (c_int32, c_uint64, c_char_p, c_int32),
    # The next item whose name matches. (key, whole_name)
    "quill_find_next_item": (c_int32, c_uint64, c_int32),
    # The index of the item with an item's name. (key, item)
    "quill_find_menu_item_index": (c_int32, c_uint64, c_uint64),
    # Adds an item on the server. (key, item, reload)
    "quill_add_menu_item": (c_int32, c_uint64, c_uint64, c_int32),
    # Writes an item on the server. (key, item, reload)
    "quill_modify_menu_item": (c_int32, c_uint64, c_uint64, c_int32),
    # Renames an item on the server. (key, old_name, item, reload)
    "quill_rename_menu_item": (c_int32, c_uint64, c_char_p, c_uint64, c_int32),
    # Deletes an item on the server. (key, name, reload)
    "quill_delete_menu_item": (c_int32, c_uint64, c_char_p, c_int32),
    # Adds an item on the server and in memory. (key, item, error)
    "quill_fast_item_add": (c_int32, c_uint64, c_uint64, POINTER(c_int32)),
    # Removes an item on the server and in memory. (key, item, error)
    "quill_fast_item_remove": (c_int32, c_uint64, c_uint64, POINTER(c_int32)),
    # Writes an item on the server and in memory. (key, item, error)
    "quill_fast_item_modify": (c_int32, c_uint64, c_uint64, POINTER(c_int32)),
    # Renames an item on the server and in memory. (key, old_name, item, error)
    "quill_fast_item_rename": (c_int32, c_uint64, c_char_p, c_uint64, POINTER(c_int32)),
    # Makes a blank item that the application owns. (item)
    "quill_create_menu_item": (c_int32, POINTER(c_uint64)),
    # Frees an item that the application owns. (item)
    "quill_destroy_menu_item": (c_int32, c_uint64),
    # The item's name. (item, buffer, size)
    "quill_get_item_name": (c_int32, c_uint64, c_char_p, POINTER(c_uint32)),
    # The item's address. (item, buffer, size)
    "quill_ip_address": (c_int32, c_uint64, c_char_p, POINTER(c_uint32)),
    # The item's path. (item, buffer, size)
    "quill_path": (c_int32, c_uint64, c_char_p, POINTER(c_uint32)),
    # The item's application tag. (item, buffer, size)
    "quill_app_tag": (c_int32, c_uint64, c_char_p, POINTER(c_uint32)),
    # The item's file format. (item, value)
    "quill_file_format": (c_int32, c_uint64, POINTER(c_uint32)),
    # The item's settings. (item, value)
    "quill_settings": (c_int32, c_uint64, POINTER(c_uint32)),
    # Stores the item's name. (item, text)
    "quill_set_name": (c_int32, c_uint64, c_char_p),
    # Stores the item's address. (item, text)
    "quill_set_ip_address": (c_int32, c_uint64, c_char_p),
    # Stores the item's path. (item, text)
    "quill_set_path": (c_int32, c_uint64, c_char_p),
    # Stores the item's application tag. (item, text)
    "quill_set_app_tag": (c_int32, c_uint64, c_char_p),
    # Stores the item's file format. (item, value)
    "quill_set_file_format": (c_int32, c_uint64, c_uint32),
    # Stores the item's settings. (item, value)
    "quill_set_settings": (c_int32, c_uint64, c_uint32),
    # Opens the entries of a book, or the members of a list. (scanner, kind, name, entries)
    "quill_open_entries": (c_int32, c_uint64, c_int32, c_char_p, POINTER(c_uint64)),
    # Closes them. (entries)
    "quill_close_entries": (c_int32, c_uint64),
    # The number of entries on the server. (entries, count)
    "quill_entry_count": (c_int32, c_uint64, POINTER(c_uint32)),
    # Reads a page of entries. (entries, first, filter, skip, direction, page, count)
    "quill_read_entries": (c_int32, c_uint64, c_char_p, c_char_p, c_int32, c_int32, POINTER(Entry),
        POINTER(c_uint32)),
    # Reads one entry by its name. (entries, name, entry)
    "quill_read_entry": (c_int32, c_uint64, c_char_p, POINTER(Entry)),
    # Adds an entry. (entries, entry)
    "quill_add_entry": (c_int32, c_uint64, POINTER(Entry)),
    # Replaces the entry with an entry's name. (entries, entry)
    "quill_modify_entry": (c_int32, c_uint64, POINTER(Entry)),
    # Replaces an entry by one with another name. (entries, old_name, entry)
    "quill_rename_entry": (c_int32, c_uint64, c_char_p, POINTER(Entry)),
    # Deletes an entry by its name. (entries, name)
    "quill_delete_entry": (c_int32, c_uint64, c_char_p),
    # Reads the names of all lists of a kind. (scanner, kind, lists, count)
    "quill_enumerate_lists": (c_int32, c_uint64, c_int32, POINTER(Entry), POINTER(c_uint32)),
    # Creates a list without members. (entries)
    "quill_create_list": (c_int32, c_uint64),
    # Deletes a list with its members. (entries)
    "quill_delete_list": (c_int32, c_uint64),
    # Opens a view of the public e-mail book. (scanner, mode, view)
    "quill_open_view": (c_int32, c_uint64, c_int32, POINTER(c_uint64)),
    # Closes a view. (view)
    "quill_close_view": (c_int32, c_uint64),
    # Moves a view and reads the entry there. (view, where, index, entry)
    "quill_view_go": (c_int32, c_uint64, c_int32, c_int32, POINTER(Entry)),
    # Finds an entry by its name. (view, what, key, entry)
    "quill_view_find": (c_int32, c_uint64, c_int32, c_char_p, POINTER(Entry)),
    # Fills an address book from a file. (scanner, path, options)
    "quill_import_address_book": (c_int32, c_uint64, c_char_p, POINTER(ImportOptions)),
}
