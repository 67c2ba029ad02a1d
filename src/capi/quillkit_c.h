// quillkit_c: Quillkit's 60 functions for C, and for every language that can call C.
//
//   quill_handle box, keys, key;
//   char name[32];
//   if (quill_log_to_quillbox("quillbox.example", "ADMINISTRATOR", password, "", 1, &box) != 1)
//     return 1;  // not the last error, which is 0 if nothing was recorded
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
// Functions. Each is the function of toolkit/quillkit.h whose name it spells in small letters with
// underscores, and makes the same calls to the server, which are listed there. What differs is said
// here: handles are checked, texts are copied, and nothing ends the process that is called wrongly.
// This library contains Quillkit, and loads and starts the server library as that does: if it
// cannot, then on Windows this library does not load; on POSIX every server call gives 20. Do not
// use Quillkit.dll or libQuillkit.so in the same process: it would be a second client of the same
// server library.
//
// Threads. Any thread may call any function. The library runs one call at a time; other threads
// wait until it returns, which can take up to an hour for an import. Handles, the session and the
// last error belong to the process: another thread's call may end a handle, which is then refused
// as stale, or replace the last error. A call from inside another call of the same thread does
// nothing and gives QUILL_E_NESTED. This happens if the server library dispatches messages while it
// waits, and a window procedure calls this library.
//
// Keep-alive. The session keep-alive (IMSPWakeup; its status is discarded) is a timer of the thread
// that logged in, and ends with that thread. The thread has to let it run: on Windows by
// dispatching messages; on POSIX by any call that is not refused, or by QuillkitDispatchEvents
// (platform/posix/event_loop.h), which this library exports too. The keep-alive takes its turn as
// calls do. If it falls due while another thread's call runs, it is sent at the end of that call,
// by the thread that made the call; the thread that logged in does not wait for it. Log out on the
// thread that logged in: after a logout on another thread the timer continues, without a session.
//
// Fork. In a child of fork() every function but quill_version and quill_error_text does nothing,
// takes no lock and gives QUILL_E_FORKED. The parent's session is not affected. End the child by
// exec or _exit(): exit() would send IMSPTerminate from the child.
//
// Handles. Numbers, 0 for none. A handle names one object as long as that lives, the same object
// has the same handle, and no handle ever comes to name another object. One that has ended, is 0 or
// never was a handle is refused with an error, before anything else happens.
//
//   scanner  quill_log_to_quillbox           the library's. Ends with quill_exit, with the next
//                                            login to the same address, and with a login that fails
//                                            unless a user is still connected after it
//   book     quill_get_top_level_abook       the scanner's; ends with it
//   key      quill_get_key_at,               the book's. Ends with it, with
//            quill_load_items                quill_load_top_level_abook, with quill_add_key,
//                                            quill_delete_key and quill_modify_key that were told
//                                            to reload, whatever they gave, and when
//                                            quill_fast_key_remove has removed it
//            quill_create_soft_key           the application's, until quill_destroy_soft_key. Once
//                                            its book has ended, functions that reach the server
//                                            refuse it as stale, and its memory may still be asked
//   item     quill_get_item_at               the key's. Ends with it; with a quill_set_item_at,
//                                            quill_remove_item_at or quill_fast_item_ function that
//                                            succeeded; with quill_add_, modify_, rename_ and
//                                            delete_menu_item that were told to reload, whatever
//                                            they gave; and with a quill_fast_key_modify that took
//                                            the items of one key to another, in both
//            quill_create_menu_item          the application's, until quill_destroy_menu_item
//   user     quill_get_current_              the library's. Ends with quill_logout, quill_exit and
//            connected_user                  every login, but not with one that fails and leaves a
//                                            user connected. Nothing takes it
//
// Text. 8-bit characters without a character set, ended by a NUL. An argument is copied before it
// is used; null is refused where nothing else is said. A result is copied into `buffer`, which has
// room for `*size` bytes: 1. Where it needs more the buffer is left alone: QUILL_E_BUFFER. In both
// cases `*size` receives the bytes that it needs, its NUL included. The buffer may be null when
// `*size` is 0, to ask for that.
//
// Names. Keys and items have names of at most 31 characters. quill_create_soft_key and the
// functions that change the server do not test that: a longer one goes out as the empty name.
//
// Numbers. Signed 32-bit where nothing else is said. A flag is a number, and nonzero means yes.
//
// Results. All functions give a number. One that was called wrongly does nothing and gives one of
// the QUILL_E_ values, which are -1001 and below. The others, never mixed within a family:
//
//   Status   0 is success; else a code of the server, or a local code from -1 to -11
//   count    the new number, or -1
//   index    from 0, or -1
//   1 or 0   1 is success. A handle that was asked for is 0 in any other case, and so it is after
//            an error
//
// Errors of the server. quill_get_last_toolkit_error and quill_translate_toolkit_error tell them;
// this library's own errors are never recorded there. Local codes: -1 not connected, a bad
// argument, or no such file; -2 the input file cannot be read; -3 an argument is absent; -11
// unknown import format.
//
// Plain and Fast. A plain operation changes the server and, with `reload`, reads the changed key or
// all keys anew. A Fast one changes the server and then the objects in memory, and reads nothing.

#ifndef QUILLKIT_CAPI_QUILLKIT_C_H_
#define QUILLKIT_CAPI_QUILLKIT_C_H_

#include <stdint.h>  // NOLINT(modernize-deprecated-headers): C has this one alone

#include "toolkit/version.h"

#if defined(_WIN32)
#define QUILL_API
#else
#define QUILL_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef uint64_t quill_handle;

// Errors of this library.
enum {
  QUILL_E_NULL = -1001,      // the handle is 0
  QUILL_E_STALE = -1002,     // what the handle named has ended, or its key's book has
  QUILL_E_FOREIGN = -1003,   // the number is no handle, or one of another kind of object
  QUILL_E_OWNER = -1004,     // the object is not the application's to destroy, or another book's
  QUILL_E_ARGUMENT = -1005,  // a text, result or size is null
  QUILL_E_BUFFER = -1006,    // the text needs a larger buffer
  QUILL_E_MEMORY = -1007,    // memory was refused; what the call had done until then stays done
  QUILL_E_INTERNAL = -1008,  // another failure inside, after which the same holds
  QUILL_E_NESTED = -1009,    // the thread is inside another call
  QUILL_E_FORKED = -1010     // the process is a fork of the one that loaded the library
};

// ---------------------------------------------------------------------------------------------
// This library
// ---------------------------------------------------------------------------------------------

// QUILLKIT_VERSION as it was when the library was built, and the text of one of the errors above,
// empty for any other number. Both live as long as the library.
QUILL_API const char* quill_version(void);
QUILL_API const char* quill_error_text(int32_t error);

// ---------------------------------------------------------------------------------------------
// Session and errors
// ---------------------------------------------------------------------------------------------

// Logs in to the appliance `host` (a name, or a dotted IPv4 address). `third`: the account record's
// third text, which the server's own takes the place of. ADMINISTRATOR and TOOLKIT get a top-level
// book, which is loaded with all items when `load_top_book` is set. A failed load does not stop the
// login; the last error is then the load's. 1, or 0 with the reason in
// quill_get_last_toolkit_error: unless that stands for an earlier failure, because a user over 31,
// a password over 15 or a third text over 255 characters was refused, or host 0.0.0.0. The library
// wipes every copy that it makes of the password, at the latest when the session ends.
QUILL_API int32_t quill_log_to_quillbox(const char* host, const char* user, const char* password,
                                        const char* third, int32_t load_top_book,
                                        quill_handle* scanner);

// Ends the session; scanner, book, keys and items stay in memory. 1.
QUILL_API int32_t quill_logout(void);

// Frees everything that the library owns and unloads the server library: every later call to the
// server gives 20. Keys and items that the application owns remain to be destroyed. 1.
QUILL_API int32_t quill_exit(void);

// The last recorded Status. Reading does not clear it.
QUILL_API int32_t quill_get_last_toolkit_error(void);

// The text of a Status, empty for 23 and 26 to 31, and "Unknown Error Code !" below 0 and above 31.
QUILL_API int32_t quill_translate_toolkit_error(int32_t code, char* buffer, uint32_t* size);

// ---------------------------------------------------------------------------------------------
// The appliance
// ---------------------------------------------------------------------------------------------

// The host as it was spelled at login, and what the server said of itself, at most 63 characters.
QUILL_API int32_t quill_get_scanner_name(quill_handle scanner, char* buffer, uint32_t* size);
QUILL_API int32_t quill_get_scanner_version(quill_handle scanner, char* buffer, uint32_t* size);
QUILL_API int32_t quill_get_scanner_model(quill_handle scanner, char* buffer, uint32_t* size);

// Stores the IPv4 address, in network byte order. 1.
QUILL_API int32_t quill_get_scanner_address(quill_handle scanner, uint32_t* value);

// 1 with the user who is logged in, or 0. `scanner` may be 0.
QUILL_API int32_t quill_get_current_connected_user(quill_handle scanner, quill_handle* user);

// 1 when ADMINISTRATOR is logged in, else 0. `scanner` may be 0.
QUILL_API int32_t quill_is_admin_connected(quill_handle scanner);

// 1 with the top-level book; 0 when the account has none, and whenever no session is open.
QUILL_API int32_t quill_get_top_level_abook(quill_handle scanner, quill_handle* book);

// ---------------------------------------------------------------------------------------------
// Soft keys: at most 11
// ---------------------------------------------------------------------------------------------

// The number of keys in memory.
QUILL_API int32_t quill_get_count(quill_handle book);

// Reads the keys anew, and with the flag their items. A Status; after any but 0 there are no keys.
// A key read without items serves for its name, its emptiness and quill_get_db_item_count alone.
QUILL_API int32_t quill_load_top_level_abook(quill_handle book, int32_t with_items);

// Add a key, delete a key and its items, write the key with the name of `key`. A Status; 24 when 11
// keys are in memory, from quill_add_key alone.
QUILL_API int32_t quill_add_key(quill_handle book, const char* name, int32_t reload);
QUILL_API int32_t quill_delete_key(quill_handle book, const char* name, int32_t reload);
QUILL_API int32_t quill_modify_key(quill_handle book, quill_handle key, int32_t reload);

// Renames a key on the server alone to the name that `key` carries. A Status.
QUILL_API int32_t quill_rename_soft_key(quill_handle book, const char* old_name, quill_handle key);

// 1 with the key at an index from 0 to quill_get_count - 1, or 0.
QUILL_API int32_t quill_get_key_at(quill_handle book, int32_t index, quill_handle* key);

// The lowest index of a key with exactly this name, or -1.
QUILL_API int32_t quill_find_soft_key_index(quill_handle book, const char* name);

// Add a key with the name of `key`, which stays the application's, or remove the key of that name.
// The new count, or -1: also when the server removed a key that was not in memory.
QUILL_API int32_t quill_fast_key_add(quill_handle book, quill_handle key);
QUILL_API int32_t quill_fast_key_remove(quill_handle book, quill_handle key);

// Writes the key with the name of `key`, which is a key of this book or was made for it; for any
// other QUILL_E_OWNER. 1, or 0, also when the server wrote a key that is not in memory. The key in
// memory takes over the items of `key`, which has none from then on, unless both are one.
QUILL_API int32_t quill_fast_key_modify(quill_handle book, quill_handle key);

// Renames a key to the name that `key` carries. 1, or 0, also when the server renamed a key that is
// not in memory.
QUILL_API int32_t quill_fast_key_rename(quill_handle book, const char* old_name, quill_handle key);

// ---------------------------------------------------------------------------------------------
// Soft key object: at most 512 items
// ---------------------------------------------------------------------------------------------

// Makes a key that the application owns, with a name of any length and 512 blank items. 1, or 0
// when memory is refused or `book` is 0, which leaves the key without name and items. `*key`
// receives a key in both cases.
QUILL_API int32_t quill_create_soft_key(const char* name, quill_handle book, quill_handle* key);

// 1; QUILL_E_OWNER for a key that the application did not make.
QUILL_API int32_t quill_destroy_soft_key(quill_handle key);

// 1 with the key of this name in memory, when the server can read its items; else 0. Refreshes
// nothing.
QUILL_API int32_t quill_load_items(quill_handle book, const char* name, quill_handle* key);

// The key's name; 1 when no items are in memory, else 0; the number of items in memory.
QUILL_API int32_t quill_get_key_name(quill_handle key, char* buffer, uint32_t* size);
QUILL_API int32_t quill_is_soft_key_empty(quill_handle key);
QUILL_API int32_t quill_get_item_count(quill_handle key);

// Stores the number of items on the server in `*count`, when it gives 0. A Status.
QUILL_API int32_t quill_get_db_item_count(quill_handle key, uint32_t* count);

// 1 with the item at an index from 0 to quill_get_item_count - 1, or 0.
QUILL_API int32_t quill_get_item_at(quill_handle key, int32_t index, quill_handle* item);

// Copy the six fields of `item` over the item at an index, or take that item out and move the later
// ones down: in memory alone. 1, or 0 for an index out of range.
QUILL_API int32_t quill_set_item_at(quill_handle key, int32_t index, quill_handle item);
QUILL_API int32_t quill_remove_item_at(quill_handle key, int32_t index);

// Search the items by name, from the first or behind the last hit: the whole name with the flag,
// else as many characters as the pattern has. An index.
QUILL_API int32_t quill_find_first_item(quill_handle key, const char* pattern, int32_t whole_name);
QUILL_API int32_t quill_find_next_item(quill_handle key, int32_t whole_name);

// The lowest index of an item with the name of `item`, or -1.
QUILL_API int32_t quill_find_menu_item_index(quill_handle key, quill_handle item);

// Add, write, rename, delete an item on the server: by the name of `item`, or by the given one, of
// which `item` carries the new form. A Status; -1 on a key that was read without items; with
// `reload` 21 tells of more than 512 items on the server.
QUILL_API int32_t quill_add_menu_item(quill_handle key, quill_handle item, int32_t reload);
QUILL_API int32_t quill_modify_menu_item(quill_handle key, quill_handle item, int32_t reload);
QUILL_API int32_t quill_rename_menu_item(quill_handle key, const char* old_name, quill_handle item,
                                         int32_t reload);
QUILL_API int32_t quill_delete_menu_item(quill_handle key, const char* name, int32_t reload);

// Add an item at the end, or remove the item with the name of `item`. The new count, or -1: also
// when the server removed an item that was not in memory.
QUILL_API int32_t quill_fast_item_add(quill_handle key, quill_handle item);
QUILL_API int32_t quill_fast_item_remove(quill_handle key, quill_handle item);

// Write the item with the name of `item`, or the one of the old name, which takes that of `item`.
// 1, or 0, also when the server changed an item that is not in memory.
QUILL_API int32_t quill_fast_item_modify(quill_handle key, quill_handle item);
QUILL_API int32_t quill_fast_item_rename(quill_handle key, const char* old_name, quill_handle item);

// ---------------------------------------------------------------------------------------------
// Menu item object. No session is needed.
// ---------------------------------------------------------------------------------------------

// Makes a blank item that the application owns. 1, or 0 when memory is refused.
QUILL_API int32_t quill_create_menu_item(quill_handle* item);

// 1; QUILL_E_OWNER for an item that the application did not make.
QUILL_API int32_t quill_destroy_menu_item(quill_handle item);

// The item's fields. A number is stored in `*value`: 1.
QUILL_API int32_t quill_get_item_name(quill_handle item, char* buffer, uint32_t* size);
QUILL_API int32_t quill_ip_address(quill_handle item, char* buffer, uint32_t* size);
QUILL_API int32_t quill_path(quill_handle item, char* buffer, uint32_t* size);
QUILL_API int32_t quill_app_tag(quill_handle item, char* buffer, uint32_t* size);
QUILL_API int32_t quill_file_format(quill_handle item, uint32_t* value);
QUILL_API int32_t quill_settings(quill_handle item, uint32_t* value);

// Store a text of at most 31, 255, 127 and 127 characters: 1, or 0 with the item unchanged for a
// longer one.
QUILL_API int32_t quill_set_name(quill_handle item, const char* text);
QUILL_API int32_t quill_set_ip_address(quill_handle item, const char* text);
QUILL_API int32_t quill_set_path(quill_handle item, const char* text);
QUILL_API int32_t quill_set_app_tag(quill_handle item, const char* text);

// Store any value: 1.
QUILL_API int32_t quill_set_file_format(quill_handle item, uint32_t value);
QUILL_API int32_t quill_set_settings(quill_handle item, uint32_t value);

// ---------------------------------------------------------------------------------------------
// Import
// ---------------------------------------------------------------------------------------------

enum { QUILL_IMPORT_COLUMNS = 4 };

// What an import is told; import/import_options.h tells more of each. All of it is filled in.
typedef struct quill_import_options {
  int32_t skip_header;   // delimited only: nonzero drops the first line that is not empty
  int32_t clear_first;   // nonzero clears the book first, where ADMINISTRATOR is connected
  uint32_t format;       // 1 delimited, 16 directory, 256 mail server, 4096 a ready-made script
  int32_t target_book;   // delimited only: 1 e-mail, 2 fax, 3 printers, 4 users
  int32_t column_count;  // delimited only: how many entries of the map count, at most all
  int32_t column_map[QUILL_IMPORT_COLUMNS];  // entry i: the column of the file, from 0, that
                                             // supplies field i of the book; -1 that none does
} quill_import_options;

// Fills an address book of the appliance from a file of this machine. A Status: 0 when the server
// ran the whole import; -3 when `options` are null, -1 when `path` is null or nothing matches it,
// or the script cannot be written, -2 when it cannot be read, -11 for an unknown format; else the
// server's, and what was carried out up to the refusal stays.
QUILL_API int32_t quill_import_address_book(quill_handle scanner, const char* path,
                                            const quill_import_options* options);

#ifdef __cplusplus
}
#endif

#endif  // QUILLKIT_CAPI_QUILLKIT_C_H_
