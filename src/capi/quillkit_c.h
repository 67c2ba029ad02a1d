// quillkit_c: the 60 functions of Quillkit for C, and for every language that can call C, with the
// entries of all address books and distribution lists.
//
//   quill_handle box, keys, key;
//   int32_t error;
//   char name[32];
//   if (quill_log_to_quillbox("quillbox.example", "ADMINISTRATOR", password, "", 1, &box, &error)
//   != 1)
//     return error;
//   quill_get_top_level_abook(box, &keys);
//   for (int32_t i = 0; quill_get_key_at(keys, i, &key) == 1; ++i) {
//     uint32_t size = sizeof name;
//     if (quill_get_key_name(key, name, &size) == 1) puts(name);
//   }
//   quill_logout();
//   quill_exit();
//
// CONVENTIONS
//
// Functions. Each function corresponds to the function of toolkit/quillkit.h whose name it spells
// in small letters with underscores. It makes the same server calls; they are listed there. This
// header describes the differences: handles are checked, texts are copied, and an invalid argument
// yields an error, never a crash. This library contains Quillkit, and loads and initialises the
// server library in the same way. If that fails, this library does not load on Windows; on POSIX
// every server call returns 20. Do not use Quillkit.dll or libQuillkit.so in the same process: it
// would be a second client of the same server library.
//
// Calling convention. On Windows, cdecl with undecorated names (QUILL_CALL), whatever the default
// of the compiler; elsewhere that of the system. The library is for 32-bit processes on Windows.
//
// Threads. Any thread may call any function. The library runs one call at a time; other threads
// wait until it returns, which can take up to an hour for an import. Handles, the session and the
// last error belong to the process: the call of another thread may end a handle, which is then
// refused as stale, or replace the last error. A call from inside another call of the same thread
// does nothing and returns QUILL_E_NESTED. This happens if the server library dispatches messages
// while it waits, and a window procedure calls this library.
//
// Keep-alive. The session keep-alive (IMSPWakeup; its status is discarded) is a timer of the thread
// that logged in, and ends with that thread. The timer runs when the thread is in quill_wait or
// calls quill_dispatch_events; on Windows also when the thread dispatches messages, on POSIX when
// it makes any call that is not refused (except quill_version, quill_contract and
// quill_error_text). The keep-alive waits for its turn like a call. If it is due while the call of
// another thread runs, that thread sends it at the end of its call; the thread that logged in does
// not wait. Log out on the thread that logged in: after a logout on another thread the timer
// continues without a session.
//
// Fork. In a child of fork(), every function except quill_version, quill_contract and
// quill_error_text does nothing, takes no lock and returns QUILL_E_FORKED. The session of the
// parent is not affected. End the child with exec or _exit(): exit() would send IMSPTerminate from
// the child.
//
// Handles. A handle is a number; 0 means none. It names one object for the life of that object. The
// same object always has the same handle, and no handle is used again for another object. A handle
// that is 0, has ended or never was one is refused with an error, before anything else happens.
//
//   scanner  quill_log_to_quillbox           Owned by the library. Ends with quill_exit, the next
//                                            login to the same address, and a failed login that
//                                            leaves no user connected.
//   book     quill_get_top_level_abook       Owned by the scanner. Ends with the scanner.
//   key      quill_get_key_at,               Owned by the book. Ends with the book;
//            quill_load_items                with quill_load_top_level_abook; with quill_add_key,
//                                            quill_delete_key and quill_modify_key if `reload` is
//                                            set, even if they fail; and when
//                                            quill_fast_key_remove removes it.
//            quill_create_soft_key           Owned by the application. Ends with
//                                            quill_destroy_soft_key. After its book has ended,
//                                            functions that call the server refuse it as stale; the
//                                            other functions still work.
//   item     quill_get_item_at               Owned by the key. Ends with the key; with
//                                            quill_set_item_at, quill_remove_item_at and the
//                                            quill_fast_item_ functions if they succeed; with
//                                            quill_add_menu_item, quill_modify_menu_item,
//                                            quill_rename_menu_item and quill_delete_menu_item if
//                                            `reload` is set, even if they fail; and with
//                                            quill_fast_key_modify if it moves items from one key
//                                            to another, for the items of both.
//            quill_create_menu_item          Owned by the application. Ends with
//                                            quill_destroy_menu_item.
//   entries  quill_open_entries              Owned by the application. End with
//   view     quill_open_view                 quill_close_entries and quill_close_view. After the
//                                            scanner has ended, the other functions refuse them as
//                                            stale.
//   user     quill_get_current_              Owned by the library. Ends with quill_logout,
//            connected_user                  quill_exit and every login, except a failed one that
//                                            leaves a user connected. No function accepts it.
//
// Text. 8-bit characters without a character set, NUL-terminated. The library copies a text
// argument before use. Null yields QUILL_E_ARGUMENT unless stated otherwise. A function with a text
// result copies it into `buffer`, which holds `*size` bytes, and returns 1. If the text does not
// fit, it leaves the buffer unchanged and returns QUILL_E_BUFFER. In both cases it stores the size
// of the text with its NUL, in bytes, in `*size`. To ask for the size, pass a null buffer and a
// size of 0. The one text with an encoding is the path of quill_import_address_book: UTF-8, on
// Windows too.
//
// Names. A key, item, entry or list has a name of at most 31 characters. quill_create_soft_key and
// the functions that call the server do not check a name that is passed as a text: they send a
// longer one as the empty name.
//
// Numbers. Signed 32-bit unless stated otherwise. A flag is a number; nonzero means yes.
//
// Results. Every function except quill_version and quill_error_text returns a number. With an
// invalid argument it does nothing and returns a QUILL_E_ value, -1001 or below. The other results
// have four styles:
//
//   Status   0 on success, otherwise a server code, or a local code from -1 to -11
//   count    the new number of objects, or -1 on failure
//   index    zero-based, or -1 if not found
//   1 or 0   1 on success. In all other cases, also after an error, a handle result is 0, unless
//            stated otherwise
//
// Errors. Every call gives its own error with it, so that no call of another thread can replace it.
// A status is the error itself. A function that calls the server and has another result stores its
// error in `*error`, which may be null: 0 on success; otherwise a QUILL_E_ value if that is the
// result, the status that this call recorded, or QUILL_STATUS_REFUSED if it recorded none. Any
// other function fails only for the reason that its contract states. quill_translate_toolkit_error
// gives the text of a status, quill_error_text that of a QUILL_E_ value.
//
// The last error, quill_get_last_toolkit_error, belongs to the process: it is what the latest call
// of any thread recorded. The QUILL_E_ values and the local codes are never recorded there.
//
// Plain and Fast functions. A plain function changes the server. With `reload` it then reads the
// changed key or all keys again; otherwise the cached objects keep the old state. A Fast function
// changes the server and then updates the cached objects, without a read.

#ifndef QUILLKIT_CAPI_QUILLKIT_C_H_
#define QUILLKIT_CAPI_QUILLKIT_C_H_

#include <stdint.h>  // NOLINT(modernize-deprecated-headers): C has this one alone

#include "toolkit/version.h"

#if defined(_WIN32)
#define QUILL_API
#define QUILL_CALL __cdecl
#else
#define QUILL_API __attribute__((visibility("default")))
#define QUILL_CALL
#endif

// The number of this interface. It changes with every change that an existing program or binding
// would notice. A binding compares it with quill_contract() of the library that it has loaded.
#define QUILL_CONTRACT 1

#ifdef __cplusplus
extern "C" {
#endif

typedef uint64_t quill_handle;

// Errors of this library.
enum {
  QUILL_E_NULL = -1001,      // the handle is 0
  QUILL_E_STALE = -1002,     // the object of the handle, or the book of the key, was destroyed
  QUILL_E_FOREIGN = -1003,   // not a handle, or a handle of another kind of object
  QUILL_E_OWNER = -1004,     // the application does not own the object, or its book is another
  QUILL_E_ARGUMENT = -1005,  // a text, result or size is null, or a number means nothing
  QUILL_E_BUFFER = -1006,    // the text needs a larger buffer
  QUILL_E_MEMORY = -1007,    // an allocation failed; what the call did before that remains
  QUILL_E_INTERNAL = -1008,  // another internal failure, with the same effect
  QUILL_E_NESTED = -1009,    // the thread is inside another call
  QUILL_E_FORKED = -1010     // the process is a fork of the one that loaded the library
};

// Codes of the server. Texts: quill_translate_toolkit_error.
enum {
  QUILL_STATUS_NO_ERROR = 0,
  QUILL_STATUS_DUPLICATE_LOGIN = 1,
  QUILL_STATUS_WRONG_USER = 2,
  QUILL_STATUS_NO_SUCH_BOOK = 3,
  QUILL_STATUS_DATA_NOT_FOUND = 4,  // also an empty result
  QUILL_STATUS_NO_MORE_ADDRESSES = 5,
  QUILL_STATUS_GENERAL_FAILURE = 6,
  QUILL_STATUS_INVALID_FIELD = 7,
  QUILL_STATUS_BOOK_LOCKED = 8,
  QUILL_STATUS_DUPLICATE_BOOK = 9,
  QUILL_STATUS_NOT_LOGGED_IN = 10,
  QUILL_STATUS_ACCESS_DENIED = 11,
  QUILL_STATUS_STATIC_BOOK = 12,
  QUILL_STATUS_NOT_IMPLEMENTED = 13,
  QUILL_STATUS_NAME_CONFLICT = 14,
  QUILL_STATUS_SERVER_IDLE = 15,
  QUILL_STATUS_SERVER_BUSY = 16,
  QUILL_STATUS_BAD_COMMAND = 17,
  QUILL_STATUS_SERVER_FAILURE = 18,
  QUILL_STATUS_TIMEOUT_EXPIRED = 19,
  QUILL_STATUS_NOT_INITIALISED = 20,  // the server library is not loaded
  QUILL_STATUS_MORE_DATA = 21,        // success; more data than the buffer holds
  QUILL_STATUS_BUSY = 22,
  QUILL_STATUS_BOOK_FULL = 24,  // a limit of the library or the server
  QUILL_STATUS_INVALID_HOST = 25
};

// Local codes: returned as a status, never recorded.
enum {
  QUILL_STATUS_REFUSED = -1,  // not connected, invalid argument, no such file, or a text too long
  QUILL_STATUS_UNUSABLE_INPUT = -2,    // the input file cannot be read
  QUILL_STATUS_MISSING_ARGUMENT = -3,  // an argument is null
  QUILL_STATUS_UNKNOWN_FORMAT = -11    // of an import
};

// Limits: numbers of objects, and characters of texts without the NUL.
enum {
  QUILL_MAX_KEYS = 11,
  QUILL_MAX_ITEMS = 512,  // of a key
  QUILL_MAX_NAME = 31,
  QUILL_MAX_IP_ADDRESS = 255,
  QUILL_MAX_PATH = 127,
  QUILL_MAX_APP_TAG = 127,
  QUILL_MAX_PASSWORD = 15,
  QUILL_MAX_THIRD = 255,
  QUILL_MAX_EMAIL_ENTRIES = 200000,
  QUILL_MAX_FAX_ENTRIES = 2048,
  QUILL_MAX_LISTS = 512,
  QUILL_MAX_MEMBERS = 512  // of a list
};

// ---------------------------------------------------------------------------------------------
// This library
// ---------------------------------------------------------------------------------------------

// quill_version returns the version of the library (QUILLKIT_VERSION when it was built).
// quill_contract returns the number of its interface: do not use the library if it is not
// QUILL_CONTRACT. quill_error_text returns the text of a QUILL_E_ value, or "" for any other
// number. The texts are valid as long as the library.
QUILL_API const char* QUILL_CALL quill_version(void);
QUILL_API int32_t QUILL_CALL quill_contract(void);
QUILL_API const char* QUILL_CALL quill_error_text(int32_t error);

// ---------------------------------------------------------------------------------------------
// Keep-alive. Call these functions on the thread that logged in.
// ---------------------------------------------------------------------------------------------

// Waits, and keeps the session alive meanwhile: sends the keep-alive when it is due, on Windows by
// dispatching the messages of the thread. Other threads can make calls. Returns 1 after the time; 0
// as soon as the thread gets a quit message, which is posted again.
// Server calls: IMSPWakeup if it is due.
QUILL_API int32_t QUILL_CALL quill_wait(uint32_t milliseconds);

// For a program with an event loop. quill_event_descriptor returns a descriptor that is readable
// while a keep-alive is due, or -1 on Windows, where the message loop of the thread is enough, and
// if the system cannot create one. It stays the same for the life of the thread; do not read, write
// or close it. quill_dispatch_events sends the keep-alive if it is due, on Windows by dispatching
// the pending messages of the thread, and returns the number of timers or messages that it handled.
// Server calls: IMSPWakeup if it is due.
QUILL_API int32_t QUILL_CALL quill_event_descriptor(void);
QUILL_API int32_t QUILL_CALL quill_dispatch_events(void);

// ---------------------------------------------------------------------------------------------
// Session and errors
// ---------------------------------------------------------------------------------------------

// Logs in to an appliance and stores its handle in `*scanner`. Returns 1, or 0 on failure.
//   `host`           A name or a dotted IPv4 address.
//   `user`           At most 31 characters.
//   `password`       At most 15 characters. The library wipes every copy that it makes, at the
//                    latest when the session ends.
//   `third`          The third text of the account record, at most 255 characters. The text from
//                    the server replaces it.
//   `load_top_book`  Nonzero: load the top-level book with all items.
// Only ADMINISTRATOR and TOOLKIT have a top-level book. If loading it fails, the login still
// succeeds, and `*error` is the status of the load. A text that is too long and the host 0.0.0.0
// record nothing.
QUILL_API int32_t QUILL_CALL quill_log_to_quillbox(const char* host, const char* user,
                                                   const char* password, const char* third,
                                                   int32_t load_top_book, quill_handle* scanner,
                                                   int32_t* error);

// Ends the session. The scanner and its objects remain. Returns 1.
QUILL_API int32_t QUILL_CALL quill_logout(void);

// Destroys the objects that the library owns and unloads the server library; every later server
// call returns 20. The application must still destroy its own keys and items. Returns 1.
QUILL_API int32_t QUILL_CALL quill_exit(void);

// Returns the last recorded status and keeps it.
QUILL_API int32_t QUILL_CALL quill_get_last_toolkit_error(void);

// Copies the text of a status. Codes 23 and 26 to 31 have an empty text; codes below 0 and above 31
// have "Unknown Error Code !".
QUILL_API int32_t QUILL_CALL quill_translate_toolkit_error(int32_t code, char* buffer,
                                                           uint32_t* size);

// ---------------------------------------------------------------------------------------------
// The appliance
// ---------------------------------------------------------------------------------------------

// quill_get_scanner_name copies the host as passed at login. The others copy what the server
// reported, at most 63 characters.
QUILL_API int32_t QUILL_CALL quill_get_scanner_name(quill_handle scanner, char* buffer,
                                                    uint32_t* size);
QUILL_API int32_t QUILL_CALL quill_get_scanner_version(quill_handle scanner, char* buffer,
                                                       uint32_t* size);
QUILL_API int32_t QUILL_CALL quill_get_scanner_model(quill_handle scanner, char* buffer,
                                                     uint32_t* size);

// Stores the IPv4 address, in network byte order. Returns 1.
QUILL_API int32_t QUILL_CALL quill_get_scanner_address(quill_handle scanner, uint32_t* value);

// Stores the handle of the connected user. Returns 1, or 0 if there is none. `scanner` may be 0.
QUILL_API int32_t QUILL_CALL quill_get_current_connected_user(quill_handle scanner,
                                                              quill_handle* user);

// Returns 1 if ADMINISTRATOR is connected, otherwise 0. `scanner` may be 0.
QUILL_API int32_t QUILL_CALL quill_is_admin_connected(quill_handle scanner);

// Stores the handle of the top-level book. Returns 1, or 0 if the account has none or no session is
// open.
QUILL_API int32_t QUILL_CALL quill_get_top_level_abook(quill_handle scanner, quill_handle* book);

// ---------------------------------------------------------------------------------------------
// Soft keys: at most 11
// ---------------------------------------------------------------------------------------------

// Returns the number of cached keys.
QUILL_API int32_t QUILL_CALL quill_get_count(quill_handle book);

// Replaces the cached keys by those of the server, with their items if `with_items` is set. Returns
// a status; after a status other than 0, no keys are cached. A key loaded without items has no
// cached items, and only quill_get_db_item_count can reach its items on the server.
QUILL_API int32_t QUILL_CALL quill_load_top_level_abook(quill_handle book, int32_t with_items);

// Change keys on the server: quill_add_key adds a key, quill_delete_key deletes a key and its
// items, quill_modify_key writes the entry of the key with the name of `key`. Return a status;
// quill_add_key returns 24 if 11 keys are cached.
QUILL_API int32_t QUILL_CALL quill_add_key(quill_handle book, const char* name, int32_t reload);
QUILL_API int32_t QUILL_CALL quill_delete_key(quill_handle book, const char* name, int32_t reload);
QUILL_API int32_t QUILL_CALL quill_modify_key(quill_handle book, quill_handle key, int32_t reload);

// Gives the key `old_name` on the server the name of `key`. The cached key keeps the old name until
// the next load. Returns a status.
QUILL_API int32_t QUILL_CALL quill_rename_soft_key(quill_handle book, const char* old_name,
                                                   quill_handle key);

// Stores the handle of the key at `index`. Returns 1, or 0 for an index out of range.
QUILL_API int32_t QUILL_CALL quill_get_key_at(quill_handle book, int32_t index, quill_handle* key);

// Returns the lowest index of a cached key with exactly this name, or -1.
QUILL_API int32_t QUILL_CALL quill_find_soft_key_index(quill_handle book, const char* name);

// Change keys on the server and in the cache: quill_fast_key_add adds a key with the name of `key`,
// which stays owned by the application, quill_fast_key_remove removes the key with that name.
// Return the new count, or -1 on failure. An addition at 11 cached keys fails. The removal of a
// key that is not cached also fails, although the server removes it.
QUILL_API int32_t QUILL_CALL quill_fast_key_add(quill_handle book, quill_handle key,
                                                int32_t* error);
QUILL_API int32_t QUILL_CALL quill_fast_key_remove(quill_handle book, quill_handle key,
                                                   int32_t* error);

// Writes the entry of the key with the name of `key`, then moves the items of `key` into the cached
// key of that name; `key` is left without items. If `key` is the cached key itself, nothing moves.
// `key` must belong to this book or have been created for it; otherwise returns QUILL_E_OWNER.
// Returns 1, or 0 on failure; also 0 if the server changed a key that is not cached.
QUILL_API int32_t QUILL_CALL quill_fast_key_modify(quill_handle book, quill_handle key,
                                                   int32_t* error);

// Gives the key `old_name` the name of `key`, on the server and in the cache. Returns 1, or 0 on
// failure; also 0 if the server renamed a key that is not cached.
QUILL_API int32_t QUILL_CALL quill_fast_key_rename(quill_handle book, const char* old_name,
                                                   quill_handle key, int32_t* error);

// ---------------------------------------------------------------------------------------------
// Soft key object: at most 512 items
// ---------------------------------------------------------------------------------------------

// Creates a key with a name of any length and 512 blank items, owned by the application. Stores its
// handle in `*key` even if it returns 0. Returns 1. Returns 0 if the items cannot be allocated; the
// key then has no items. Returns 0 also if `book` is 0; the key then has no name and no items.
QUILL_API int32_t QUILL_CALL quill_create_soft_key(const char* name, quill_handle book,
                                                   quill_handle* key);

// Destroys a key that quill_create_soft_key made. Returns 1, or QUILL_E_OWNER for any other key.
QUILL_API int32_t QUILL_CALL quill_destroy_soft_key(quill_handle key);

// Stores the handle of the cached key `name` if its items can be read from the server. Returns 1,
// or 0. The cached key is unchanged.
QUILL_API int32_t QUILL_CALL quill_load_items(quill_handle book, const char* name,
                                              quill_handle* key, int32_t* error);

// quill_get_key_name copies the name of the key. quill_is_soft_key_empty returns 1 if it has no
// cached items, otherwise 0. quill_get_item_count returns the number of cached items.
QUILL_API int32_t QUILL_CALL quill_get_key_name(quill_handle key, char* buffer, uint32_t* size);
QUILL_API int32_t QUILL_CALL quill_is_soft_key_empty(quill_handle key);
QUILL_API int32_t QUILL_CALL quill_get_item_count(quill_handle key);

// Stores the number of items on the server in `*count` on success. Returns a status.
QUILL_API int32_t QUILL_CALL quill_get_db_item_count(quill_handle key, uint32_t* count);

// Stores the handle of the item at `index`. Returns 1, or 0 for an index out of range.
QUILL_API int32_t QUILL_CALL quill_get_item_at(quill_handle key, int32_t index, quill_handle* item);

// Change only the cache: copy the six fields of `item` into the item at `index`, or remove that
// item and move the later items down. Return 1, or 0 for an index out of range.
QUILL_API int32_t QUILL_CALL quill_set_item_at(quill_handle key, int32_t index, quill_handle item);
QUILL_API int32_t QUILL_CALL quill_remove_item_at(quill_handle key, int32_t index);

// Search the cached items by name, from the first item or after the last hit: the whole name if
// `whole_name` is set, otherwise its beginning. Return the index of the hit, or -1.
QUILL_API int32_t QUILL_CALL quill_find_first_item(quill_handle key, const char* pattern,
                                                   int32_t whole_name);
QUILL_API int32_t QUILL_CALL quill_find_next_item(quill_handle key, int32_t whole_name);

// Returns the lowest index of a cached item with the name of `item`, or -1.
QUILL_API int32_t QUILL_CALL quill_find_menu_item_index(quill_handle key, quill_handle item);

// Change an item of the key on the server: add `item`, replace the item with the name of `item`,
// replace the item `old_name` by `item`, which has the new name, or delete the item `name`. Return
// a status: -1 for a key loaded without items; 21, with `reload`, if the server has more than 512
// items.
QUILL_API int32_t QUILL_CALL quill_add_menu_item(quill_handle key, quill_handle item,
                                                 int32_t reload);
QUILL_API int32_t QUILL_CALL quill_modify_menu_item(quill_handle key, quill_handle item,
                                                    int32_t reload);
QUILL_API int32_t QUILL_CALL quill_rename_menu_item(quill_handle key, const char* old_name,
                                                    quill_handle item, int32_t reload);
QUILL_API int32_t QUILL_CALL quill_delete_menu_item(quill_handle key, const char* name,
                                                    int32_t reload);

// Change items on the server and in the cache: quill_fast_item_add adds `item` at the end of the
// cached items, quill_fast_item_remove removes the item with the name of `item`. Return the new
// count, or -1 on failure. An addition at 512 cached items fails and records 24. The removal of an
// item that is not cached fails, although the server removes it.
QUILL_API int32_t QUILL_CALL quill_fast_item_add(quill_handle key, quill_handle item,
                                                 int32_t* error);
QUILL_API int32_t QUILL_CALL quill_fast_item_remove(quill_handle key, quill_handle item,
                                                    int32_t* error);

// Replace the item with the name of `item`, or the item `old_name`, by `item`, on the server and in
// the cache. Return 1, or 0 on failure; also 0 if the server changed an item that is not cached.
QUILL_API int32_t QUILL_CALL quill_fast_item_modify(quill_handle key, quill_handle item,
                                                    int32_t* error);
QUILL_API int32_t QUILL_CALL quill_fast_item_rename(quill_handle key, const char* old_name,
                                                    quill_handle item, int32_t* error);

// ---------------------------------------------------------------------------------------------
// Menu item object. Works without a session.
// ---------------------------------------------------------------------------------------------

// Creates a blank item, owned by the application. Returns 1, or 0 if it cannot be allocated.
QUILL_API int32_t QUILL_CALL quill_create_menu_item(quill_handle* item);

// Destroys an item that quill_create_menu_item made. Returns 1, or QUILL_E_OWNER for any other.
QUILL_API int32_t QUILL_CALL quill_destroy_menu_item(quill_handle item);

// Copy or store the fields of the item. The last two store a number in `*value` and return 1.
QUILL_API int32_t QUILL_CALL quill_get_item_name(quill_handle item, char* buffer, uint32_t* size);
QUILL_API int32_t QUILL_CALL quill_ip_address(quill_handle item, char* buffer, uint32_t* size);
QUILL_API int32_t QUILL_CALL quill_path(quill_handle item, char* buffer, uint32_t* size);
QUILL_API int32_t QUILL_CALL quill_app_tag(quill_handle item, char* buffer, uint32_t* size);
QUILL_API int32_t QUILL_CALL quill_file_format(quill_handle item, uint32_t* value);
QUILL_API int32_t QUILL_CALL quill_settings(quill_handle item, uint32_t* value);

// Store a text of at most 31, 255, 127 and 127 characters. Return 1, or 0 and no change for a
// longer text.
QUILL_API int32_t QUILL_CALL quill_set_name(quill_handle item, const char* text);
QUILL_API int32_t QUILL_CALL quill_set_ip_address(quill_handle item, const char* text);
QUILL_API int32_t QUILL_CALL quill_set_path(quill_handle item, const char* text);
QUILL_API int32_t QUILL_CALL quill_set_app_tag(quill_handle item, const char* text);

// Store a value. Return 1.
QUILL_API int32_t QUILL_CALL quill_set_file_format(quill_handle item, uint32_t value);
QUILL_API int32_t QUILL_CALL quill_set_settings(quill_handle item, uint32_t value);

// ---------------------------------------------------------------------------------------------
// Entries of the address books and distribution lists, on the server
// ---------------------------------------------------------------------------------------------
//
// The functions of this part return a status. Nothing is cached: each makes one server call and
// returns its status, unless stated otherwise.

// The book or the kind of list of quill_open_entries. The members of a list are entries, too.
enum {
  QUILL_BOOK_EMAIL = 1,
  QUILL_BOOK_FAX = 2,
  QUILL_BOOK_USERS = 4,
  QUILL_BOOK_PRINTERS = 8,
  QUILL_BOOK_PRIVATE_EMAIL = 16,  // of the connected user
  QUILL_LIST_EMAIL = 64,
  QUILL_LIST_PRIVATE_EMAIL = 128,  // of the connected user
  QUILL_LIST_FAX = 768
};

enum { QUILL_ENTRY_TEXTS = 3, QUILL_ENTRY_NUMBERS = 3, QUILL_ENTRY_TEXT_SIZE = 256 };

// An entry. The fields that a book does not have are ignored and delivered as empty and 0.
//
//   books and lists   texts, each with the most characters      numbers
//   e-mail, private   address 255                               flags
//   fax               number 79, third 10
//   printers          description 255, model 31                 1: the default printer
//   users             password 15, third 255, fourth 255        tag, flags, nibbles
//
// Flags of an e-mail entry: in a member of a private list, 1 for an entry of the private book, 0
// for a reference to the public one; otherwise 0. Wipe the entries of users: they hold passwords.
typedef struct quill_entry {
  char name[32];  // the key: books are ordered by it, byte for byte
  char texts[QUILL_ENTRY_TEXTS][QUILL_ENTRY_TEXT_SIZE];
  uint32_t numbers[QUILL_ENTRY_NUMBERS];
} quill_entry;

// quill_open_entries stores a handle for the entries of a book, or for the members of the list
// `name`; `name` is ignored for a book. Makes no server call, so the book or list need not exist.
// Returns 0, or QUILL_E_ARGUMENT for an unknown `kind`. quill_close_entries ends the handle and
// returns 0.
QUILL_API int32_t QUILL_CALL quill_open_entries(quill_handle scanner, int32_t kind,
                                                const char* name, quill_handle* entries);
QUILL_API int32_t QUILL_CALL quill_close_entries(quill_handle entries);

// Stores the number of entries on the server in `*count` on success.
// Server calls: IMSPSizeofAB.
QUILL_API int32_t QUILL_CALL quill_entry_count(quill_handle entries, uint32_t* count);

// Reads a page: up to `*count` entries, at most QUILL_MAX_EMAIL_ENTRIES, in the order of the book,
// and stores the number read in `*count`: 0 after every failure.
//   `first`      The page begins after this name; empty: at the beginning of the book.
//   `filter`     "*" or empty for all entries, or text and "*" for names that begin with the text.
//   `skip`       The number of entries to skip first.
//   `direction`  1; or 0 to read the page before `first`, in the same order.
// Returns 0 if the page holds all that is left, 21 if more entries follow, 4 if there are none, -1
// for a `*count` of 0.
// Server calls: IMSPReadAB.
QUILL_API int32_t QUILL_CALL quill_read_entries(quill_handle entries, const char* first,
                                                const char* filter, int32_t skip, int32_t direction,
                                                quill_entry* page, uint32_t* count);

// Reads the entry `name` into `*entry`. Returns 4 if there is none.
// Server calls: IMSPReadEntryProperties.
QUILL_API int32_t QUILL_CALL quill_read_entry(quill_handle entries, const char* name,
                                              quill_entry* entry);

// Change the book or list: add `entry`, replace the entry with the name of `entry`, replace the
// entry `old_name` by `entry`, which has the new name, or delete the entry `name`. Return -1 and
// make no server call for a text that is too long for its field or has no NUL.
// Server calls: IMSPCreateEntry, IMSPModifyEntry, IMSPModifyEntry or IMSPDeleteEntry.
QUILL_API int32_t QUILL_CALL quill_add_entry(quill_handle entries, const quill_entry* entry);
QUILL_API int32_t QUILL_CALL quill_modify_entry(quill_handle entries, const quill_entry* entry);
QUILL_API int32_t QUILL_CALL quill_rename_entry(quill_handle entries, const char* old_name,
                                                const quill_entry* entry);
QUILL_API int32_t QUILL_CALL quill_delete_entry(quill_handle entries, const char* name);

// Reads the names of all lists of a kind: up to `*count`, each as an entry without fields, and
// stores the number read in `*count`: 0 after every failure. Returns -1 for a `*count` of 0, and
// QUILL_E_ARGUMENT for another `kind`.
// Server calls: IMSPListAB.
QUILL_API int32_t QUILL_CALL quill_enumerate_lists(quill_handle scanner, int32_t kind,
                                                   quill_entry* lists, uint32_t* count);

// Create the list of `entries` without members, or delete it with its members. Return
// QUILL_E_ARGUMENT for the entries of a book.
// Server calls: IMSPCreateAB or IMSPDeleteAB.
QUILL_API int32_t QUILL_CALL quill_create_list(quill_handle entries);
QUILL_API int32_t QUILL_CALL quill_delete_list(quill_handle entries);

// ---------------------------------------------------------------------------------------------
// Views: walk and search the public e-mail book, of any size, with a few entries in memory
// ---------------------------------------------------------------------------------------------

// quill_open_view: the kind of view.
enum {
  QUILL_VIEW_SLIDING = 0,  // three pages of 16 entries around the position
  QUILL_VIEW_LETTER = 1,   // the entries of one first letter
  QUILL_VIEW_FULL = 2      // all entries, at most 512
};

// quill_view_go: where to.
enum {
  QUILL_GO_FIRST = 0,
  QUILL_GO_LAST = 1,
  QUILL_GO_NEXT = 2,
  QUILL_GO_PREV = 3,
  QUILL_GO_AT = 4
};

// quill_view_find: what to find.
enum {
  QUILL_FIND_NAME = 0,    // the entry `key`
  QUILL_FIND_PREFIX = 1,  // the first entry whose name begins with `key`
  QUILL_FIND_LETTER = 2,  // the same for the first character of `key`
  QUILL_FIND_NEXT = 3     // the next entry for the prefix of the latest search; `key` is ignored
};

// quill_open_view stores the handle of a new view. Returns 0; 21 for a full view of more than 512
// entries; another status for one that cannot be read; QUILL_E_ARGUMENT for an unknown `mode`.
// quill_close_view ends the view and returns 0.
// Server calls: IMSPReadAB for a full view.
QUILL_API int32_t QUILL_CALL quill_open_view(quill_handle scanner, int32_t mode,
                                             quill_handle* view);
QUILL_API int32_t QUILL_CALL quill_close_view(quill_handle view);

// Move the view, and copy the entry at the new position into `*entry`. `index` is that of
// QUILL_GO_AT, from 0. Return 0; 4 if there is no such entry; another status if the server fails;
// QUILL_E_ARGUMENT for an unknown `where` or `what`. A search without a hit can move the view, too.
// In a full view, QUILL_FIND_NEXT finds nothing.
// Server calls: some of IMSPSizeofAB, IMSPReadPageBoundaries and IMSPReadAB, but none of a full
// view; views/sliding_entry_view.h and views/letter_entry_view.h list them.
QUILL_API int32_t QUILL_CALL quill_view_go(quill_handle view, int32_t where, int32_t index,
                                           quill_entry* entry);
QUILL_API int32_t QUILL_CALL quill_view_find(quill_handle view, int32_t what, const char* key,
                                             quill_entry* entry);

// ---------------------------------------------------------------------------------------------
// Import
// ---------------------------------------------------------------------------------------------

enum { QUILL_IMPORT_COLUMNS = 4 };

// quill_import_options::format: the format of the file.
enum {
  QUILL_FORMAT_DELIMITED = 1,      // comma-separated fields
  QUILL_FORMAT_DIRECTORY = 16,     // attribute lines after "dn:" lines
  QUILL_FORMAT_MAIL_SERVER = 256,  // rows of a mail server's export
  QUILL_FORMAT_SCRIPT = 4096       // a ready-made import script
};

// quill_import_options::target_book: the book that a delimited file fills.
enum {
  QUILL_TARGET_EMAIL = 1,
  QUILL_TARGET_FAX = 2,
  QUILL_TARGET_PRINTERS = 3,
  QUILL_TARGET_USERS = 4
};

// The options of an import. Set all fields; import/import_options.h describes them in detail.
typedef struct quill_import_options {
  int32_t skip_header;   // delimited only; nonzero: skip the first line that is not empty
  int32_t clear_first;   // nonzero: clear the book first, if ADMINISTRATOR is connected
  uint32_t format;       // a QUILL_FORMAT_ value
  int32_t target_book;   // delimited only: a QUILL_TARGET_ value
  int32_t column_count;  // delimited only: the number of entries in use; larger values mean all
  int32_t column_map[QUILL_IMPORT_COLUMNS];  // entry i: the zero-based column of the file for field
                                             // i of the book, or -1 for none
} quill_import_options;

// Fills an address book of the appliance from a file of this machine. `path` is UTF-8. On Windows
// it is converted to the code page of the process; a path that this code page cannot express is
// replaced by its short form, and matches no file if it has none. Returns a status: 0 if the server
// ran the whole import; -3 if `options` is null; -1 if `path` is null or matches no file, or if the
// script cannot be written; -2 if the file cannot be read; -11 for an unknown format. Any other
// status is the server's; what the import did before the error remains.
QUILL_API int32_t QUILL_CALL quill_import_address_book(quill_handle scanner, const char* path,
                                                       const quill_import_options* options);

#ifdef __cplusplus
}
#endif

#endif  // QUILLKIT_CAPI_QUILLKIT_C_H_
