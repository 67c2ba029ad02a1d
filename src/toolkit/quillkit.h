// Quillkit: a library for controlling a Quillbox, a network scanning appliance with an address book
// server and a front panel of soft keys.
//
//   using namespace quillkit;
//   CScanner* box = LogToQuillbox("quillbox.example", "ADMINISTRATOR", password, "", 1);
//   if (box == nullptr) return 1;  // not GetLastToolkitError(), which is 0 if nothing was recorded
//   CTopLevelAB* keys = GetTopLevelAbook(box);
//   for (int i = 0; i < GetCount(keys); ++i) puts(GetKeyName(GetKeyAt(keys, i)));
//   Logout();
//   Exit();
//
// CONVENTIONS
//
// Functions. 60 functions with C linkage and undecorated names; in C++ they are in namespace
// quillkit. Call them from one thread at a time. Log in on the thread that dispatches messages: the
// session keep-alive (IMSPWakeup; its status is discarded) is a timer of that thread. On POSIX, an
// application with its own event loop runs the keep-alive with the two functions of
// platform/posix/event_loop.h.
//
// Loading. Loading the library loads and initialises the server library. If that fails on Windows,
// a message box shows the reason and the library does not load. On POSIX the reason is written to
// standard error and the library loads; every server call then returns 20.
//
// Handles. A handle is a pointer to an object of the library. Handles are not checked: pass only
// valid ones. The function that returns a handle determines its owner and lifetime:
//
//   CScanner*     LogToQuillbox            Owned by the library. Valid until Exit or the next login
//                                          to the same address; Logout keeps it.
//   CTopLevelAB*  GetTopLevelAbook         Owned by the scanner. Valid as long as the scanner.
//   CSoftKey*     GetKeyAt, LoadItems      Owned by the book. Valid until the book is loaded again,
//                                          by LoadTopLevelAbook or a change of keys with `reload`,
//                                          or until FastKeyRemove removes the key.
//                 CreateSoftKey            Owned by the application. Valid until DestroySoftKey.
//                                          After its book is destroyed, use it only for functions
//                                          that make no server call.
//   CMenuItem*    GetItemAt                Owned by the key. Valid until the next change of its
//                                          items.
//                 CreateMenuItem           Owned by the application. Valid until DestroyMenuItem.
//   CUserRecord*  GetCurrentConnectedUser  Owned by the library. Valid until Logout, Exit or the
//                                          next login. Compare it only with null: no function
//                                          accepts it.
//
// Text. 8-bit characters without a character set. Names are compared byte for byte. A text argument
// is a std::string: build the application with the same standard library as Quillkit. The library
// copies it before use, so it may come from one of the library's own objects. Anything after a NUL
// is ignored. A text result is NUL-terminated and points into the object of the handle; it is valid
// until that object changes or is destroyed.
//
// Names. A key or item has a name of at most 31 characters. CreateSoftKey and the functions that
// change the server do not check that: they send a longer name as the empty name, because a
// truncated one could be the name of another object.
//
// Numbers. Signed 32-bit unless stated otherwise. A flag is a number; nonzero means yes.
//
// Results. Four styles:
//
//   Status   0 on success, otherwise a server code or a negative local code
//   count    the new number of objects, or -1 on failure
//   index    zero-based, or -1 if not found
//   1 or 0   1 on success
//
// Errors. GetLastToolkitError returns the status of the latest server call, or a code that the
// library recorded itself. A function that succeeds and makes no server call leaves it unchanged. A
// contract lists the server calls of the function in order, or says "Makes no server call"; unless
// stated otherwise, the first call that fails is the last one. Any such function can return any
// server code (see TranslateToolkitError). If the server library is not loaded or lacks the entry
// point, the call returns 20. On POSIX, each function first sends the keep-alive of the calling
// thread if it is due, even if its contract says "Makes no server call". The library itself raises
// 24 ("Address Book Full") and 25 ("Invalid host name"). Local codes are returned and never
// recorded:
//
//   -1   not connected, invalid argument, or no such file
//   -2   the input file cannot be read
//   -3   missing argument
//   -11  unknown import format
//
// Memory. If an allocation fails, the function throws std::bad_alloc and all objects stay usable.
// Exception: if only the items of a key cannot be allocated, a function that creates or reads one
// key or adds an item reports failure in its result style; if all keys are read, that key has no
// items. A LogToQuillbox that throws can leave a session open: end it with Logout.
//
// Plain and Fast functions. A plain function changes the server. With `reload` it then reads the
// changed key or all keys again; otherwise the cached objects keep the old state. A Fast function
// changes the server and then updates the cached objects, without a read. If the server refuses the
// change, the cached objects stay unchanged. If a reload fails, its status is returned and the
// change remains. Nothing is rolled back.

#ifndef QUILLKIT_TOOLKIT_QUILLKIT_H_
#define QUILLKIT_TOOLKIT_QUILLKIT_H_

#include <cstdint>
#include <string>

#include "base/language.h"
#include "import/import_options.h"
#include "toolkit/version.h"

#if defined(_WIN32)
#define QUILLKIT_API
#else
#define QUILLKIT_API __attribute__((visibility("default")))
#endif

namespace quillkit {

class CScanner;
class CSoftKey;
class CTopLevelAB;
class CUserRecord;
struct CMenuItem;

extern "C" {

// ---------------------------------------------------------------------------------------------
// Session and errors
// ---------------------------------------------------------------------------------------------

// Logs in to an appliance. Returns its handle, or null on failure.
//   `host`         A name, which may follow one or two slashes or backslashes, or a dotted IPv4
//                  address.
//   `user`         At most 31 characters.
//   `password`     At most 15 characters.
//   `third`        The third text of the account record, at most 255 characters. The text from the
//                  server replaces it.
//   `loadTopBook`  Nonzero: load the top-level book with all items.
//
// Only ADMINISTRATOR and TOOLKIT, spelled exactly so, have a top-level book. If loading it fails,
// the login still succeeds. After a login with a load, the last error is the status of the last
// call of the load; it is 4 for a book without keys.
//
// Errors, by cause:
//   - A user, password or third text is too long: makes no server call and no change.
//   - The host cannot be resolved: records 25. The host is 0.0.0.0: records nothing. Both make no
//     server call, and GetTopLevelAbook returns null afterwards.
//   - A server call fails: its status is the last error. The library has sent IMSPLogout, so an
//     earlier session has ended too.
//
// The library wipes every copy that it makes of the password. The record of the connected user
// keeps one until Logout, Exit or the next login. Wiping `password` is up to the application.
//
// Server calls: IMSPLogin; IMSPIOCtl 6 unless the keep-alive runs; IMSPReadEntryProperties on
// USERSAB; with `loadTopBook`, then those of LoadTopLevelAbook with items.
QUILLKIT_API CScanner* LogToQuillbox(const std::string& host, const std::string& user,
                                     const std::string& password, const std::string& third,
                                     std::int32_t loadTopBook);

// Ends the session and stops the keep-alive. The scanner and its objects stay valid, but
// GetTopLevelAbook returns null from now on.
// Server calls: IMSPLogout; its status is discarded.
QUILLKIT_API void Logout();

// Destroys the objects that the library owns and unloads the server library. All their handles
// become invalid, and every later server call returns 20. To log in again, unload and load this
// library. Does not log out. Unloading this library has the same effect; a Windows process that
// ends without either does not notify the server library.
// Server calls: IMSPTerminate, the first time only.
QUILLKIT_API void Exit();

// Returns the last recorded status and keeps it. Makes no server call.
QUILLKIT_API std::int32_t GetLastToolkitError();

// Copies the text of `code` and its NUL into `buffer` if it is shorter than `*size` bytes, and
// returns 1. Otherwise stores the length of the text, without its NUL, in `*size`, leaves the
// buffer unchanged and returns 0; the buffer then needs that length plus 1. Codes 23 and 26 to 31
// have an empty text. Codes below 0 or above 31 have "Unknown Error Code !". Makes no server call.
QUILLKIT_API std::int32_t TranslateToolkitError(std::int32_t code, char* buffer,
                                                std::int32_t* size);

// ---------------------------------------------------------------------------------------------
// The appliance. Its functions make no server call.
// ---------------------------------------------------------------------------------------------

// Returns the host as the application passed it to LogToQuillbox.
QUILLKIT_API const char* GetScannerName(CScanner* scanner);

// Return what the server reported at login, at most 63 characters; empty if it reported nothing
// usable. A space at the end is part of the text.
QUILLKIT_API const char* GetScannerVersion(CScanner* scanner);
QUILLKIT_API const char* GetScannerModel(CScanner* scanner);

// Returns the IPv4 address, in network byte order.
QUILLKIT_API std::uint32_t GetScannerAddress(CScanner* scanner);

// Returns the connected user, or null if there is none. `scanner` may be null.
QUILLKIT_API CUserRecord* GetCurrentConnectedUser(CScanner* scanner);

// Returns 1 if ADMINISTRATOR is connected, otherwise 0, also for TOOLKIT. `scanner` may be null.
QUILLKIT_API std::int32_t IsAdminConnected(CScanner* scanner);

// Returns the top-level book, or null if the account has none or no session is open. Without a
// session, `scanner` is not used and may be invalid.
QUILLKIT_API CTopLevelAB* GetTopLevelAbook(CScanner* scanner);

// ---------------------------------------------------------------------------------------------
// Soft keys: at most 11
// ---------------------------------------------------------------------------------------------

// Returns the number of cached keys. Makes no server call.
QUILLKIT_API std::int32_t GetCount(CTopLevelAB* book);

// Replaces the cached keys by those of the server, with their items if `withItems` is set. All
// handles of keys that the book owns become invalid. Returns the status of the listing, 0 if there
// are no keys. After a status other than 0, such as 21 for more than 11 keys, no keys are cached.
// If the items of a key cannot be read, the key has those that were delivered. A key loaded without
// items has no cached items, and only GetDBItemCount can reach its items on the server.
// Server calls: IMSPListABEntries; with items, IMSPReadAB for each key, whose status is ignored.
QUILLKIT_API std::int32_t LoadTopLevelAbook(CTopLevelAB* book, std::int32_t withItems);

// Adds a key to the server. Returns a status; at 11 cached keys it returns 24, records nothing and
// makes no server call.
// Server calls: IMSPCreateEntry; with `reload`, those of LoadTopLevelAbook with items.
QUILLKIT_API std::int32_t AddKey(CTopLevelAB* book, const std::string& name, std::int32_t reload);

// Deletes a key and its items from the server. Returns a status.
// Server calls: IMSPDeleteAB; with `reload`, those of LoadTopLevelAbook with items.
QUILLKIT_API std::int32_t DeleteKey(CTopLevelAB* book, const std::string& name,
                                    std::int32_t reload);

// Writes the entry of a key on the server: sends only the name of `key`. Returns a status. With
// `reload`, handles of cached keys become invalid, also `key` if it is one.
// Server calls: IMSPModifyEntry; with `reload`, those of LoadTopLevelAbook with items.
QUILLKIT_API std::int32_t ModifyKey(CTopLevelAB* book, CSoftKey* key, std::int32_t reload);

// Gives the key `oldName` on the server the name of `key`. The cached key keeps the old name until
// the next load. Returns a status.
// Server calls: IMSPModifyEntry.
QUILLKIT_API std::int32_t RenameSoftKey(CTopLevelAB* book, const std::string& oldName,
                                        CSoftKey* key);

// Returns the key at `index`, or null for an index out of range. Makes no server call.
QUILLKIT_API CSoftKey* GetKeyAt(CTopLevelAB* book, std::int32_t index);

// Returns the lowest index of a cached key with exactly this name, or -1. Makes no server call.
QUILLKIT_API std::int32_t FindSoftKeyIndex(CTopLevelAB* book, const std::string& name);

// Adds a key with the name of `key` to the server and, without items, to the cache. `key` stays
// owned by the application. Returns the new count, or -1 on failure; at 11 cached keys it records
// nothing and makes no server call.
// Server calls: IMSPCreateEntry.
QUILLKIT_API std::int32_t FastKeyAdd(CTopLevelAB* book, CSoftKey* key);

// Removes the key with the name of `key` from the server and the cache. The handle of the cached
// key becomes invalid, also `key` if it is that key. Returns the new count, or -1 on failure; also
// -1 if the server removed a key that was not cached.
// Server calls: IMSPDeleteAB.
QUILLKIT_API std::int32_t FastKeyRemove(CTopLevelAB* book, CSoftKey* key);

// Writes the entry of the key with the name of `key` on the server, then moves the items of `key`
// into the cached key of that name; `key` is left without items. If `key` is the cached key itself,
// nothing moves. Use only the cached key afterwards. Returns 1, or 0 on failure; also 0 if the
// server changed a key that is not cached.
// Server calls: IMSPModifyEntry.
QUILLKIT_API std::int32_t FastKeyModify(CTopLevelAB* book, CSoftKey* key);

// Gives the key `oldName` the name of `key`, on the server and in the cache. Returns 1, or 0 on
// failure; also 0 if the server renamed a key that is not cached.
// Server calls: IMSPModifyEntry.
QUILLKIT_API std::int32_t FastKeyRename(CTopLevelAB* book, const std::string& oldName,
                                        CSoftKey* key);

// ---------------------------------------------------------------------------------------------
// Soft key object: at most 512 items
// ---------------------------------------------------------------------------------------------

// Creates a key with a name of any length, owned by the application. It has 512 blank items until a
// plain function with `reload` has read it. Stores the key in `*key` in every case. Returns nonzero
// on success. Returns 0 if the items cannot be allocated; the key then has no items. Returns 0 also
// if `book` is null; the key then has no name and no items. Makes no server call.
QUILLKIT_API std::int32_t CreateSoftKey(const std::string& name, CTopLevelAB* book, CSoftKey** key);

// Destroys a key that CreateSoftKey made. Ignores null. Makes no server call.
QUILLKIT_API void DestroySoftKey(CSoftKey* key);

// Reads the items of the key `name` from the server and discards them: the cached key is unchanged.
// Returns the cached key; null if there is none, or if the read delivers items with a status other
// than 0 and 4, such as 21 for more than 512. If the read fails without delivering items, the key
// is treated as empty; check GetLastToolkitError.
// Server calls: IMSPReadAB.
QUILLKIT_API CSoftKey* LoadItems(CTopLevelAB* book, const std::string& name);

// Returns the name of the key. Makes no server call.
QUILLKIT_API const char* GetKeyName(CSoftKey* key);

// Returns nonzero if the key has no cached items, otherwise 0. Makes no server call.
QUILLKIT_API std::int32_t IsSoftKeyEmpty(CSoftKey* key);

// Returns the number of cached items. Makes no server call.
QUILLKIT_API std::int32_t GetItemCount(CSoftKey* key);

// Stores the number of items on the server in `*count` on success. Returns a status. Works also on
// a key loaded without items.
// Server calls: IMSPSizeofAB.
QUILLKIT_API std::int32_t GetDBItemCount(CSoftKey* key, std::uint32_t* count);

// Returns the item at `index`, or null for an index out of range. Makes no server call.
QUILLKIT_API CMenuItem* GetItemAt(CSoftKey* key, std::int32_t index);

// Change only the cache. SetItemAt copies the six fields of `item` into the item at `index`.
// RemoveItemAt removes the item at `index` and moves the later items down. Return 1, or 0 for an
// index out of range. Make no server call.
QUILLKIT_API std::int32_t SetItemAt(CSoftKey* key, std::int32_t index, CMenuItem* item);
QUILLKIT_API std::int32_t RemoveItemAt(CSoftKey* key, std::int32_t index);

// Search the cached items by name: the whole name if `wholeName` is set, otherwise its beginning.
// FindFirstItem starts at the first item. FindNextItem starts after the last hit, with the pattern
// of the last FindFirstItem that had a hit. It starts at index 0 after a FindFirstItem without a
// hit, at index 1 after a load, and at the same index again after a FindNextItem without a hit.
// Return the index of the hit, or -1. Make no server call.
QUILLKIT_API std::int32_t FindFirstItem(CSoftKey* key, const std::string& pattern,
                                        std::int32_t wholeName);
QUILLKIT_API std::int32_t FindNextItem(CSoftKey* key, std::int32_t wholeName);

// Returns the lowest index of a cached item with the name of `item`, or -1. Makes no server call.
QUILLKIT_API std::int32_t FindMenuItemIndex(CSoftKey* key, CMenuItem* item);

// Change an item of the key on the server. AddMenuItem adds `item`. ModifyMenuItem replaces the
// item with the name of `item`. RenameMenuItem replaces the item `oldName` by `item`, which has the
// new name. DeleteMenuItem deletes the item `name`. `item` is copied. With `reload`, the items of
// the key are then read again; a read that delivers nothing returns 0 and leaves no items. Return a
// status; 21, with `reload`, if the server has more than 512 items. For a key loaded without items,
// return -1 and make no server call.
// Server calls: IMSPCreateEntry, IMSPModifyEntry, IMSPModifyEntry or IMSPDeleteEntry; with
// `reload`, then IMSPReadAB.
QUILLKIT_API std::int32_t AddMenuItem(CSoftKey* key, CMenuItem* item, std::int32_t reload);
QUILLKIT_API std::int32_t ModifyMenuItem(CSoftKey* key, CMenuItem* item, std::int32_t reload);
QUILLKIT_API std::int32_t RenameMenuItem(CSoftKey* key, const std::string& oldName, CMenuItem* item,
                                         std::int32_t reload);
QUILLKIT_API std::int32_t DeleteMenuItem(CSoftKey* key, const std::string& name,
                                         std::int32_t reload);

// Adds an item on the server and at the end of the cached items. Returns the new count, or -1 on
// failure; at 512 cached items it records 24 and makes no server call.
// Server calls: IMSPCreateEntry.
QUILLKIT_API std::int32_t FastItemAdd(CSoftKey* key, CMenuItem* item);

// Removes the item with the name of `item` from the server and the cache. Returns the new count, or
// -1 on failure; also -1 if the server removed an item that was not cached.
// Server calls: IMSPDeleteEntry.
QUILLKIT_API std::int32_t FastItemRemove(CSoftKey* key, CMenuItem* item);

// Change an item on the server and in the cache. FastItemModify replaces the item with the name of
// `item`. FastItemRename replaces the item `oldName` by `item`, which has the new name. Return 1,
// or 0 on failure; also 0 if the server changed an item that is not cached.
// Server calls: IMSPModifyEntry.
QUILLKIT_API std::int32_t FastItemModify(CSoftKey* key, CMenuItem* item);
QUILLKIT_API std::int32_t FastItemRename(CSoftKey* key, const std::string& oldName,
                                         CMenuItem* item);

// ---------------------------------------------------------------------------------------------
// Menu item object. Its functions make no server call and work without a session.
// ---------------------------------------------------------------------------------------------

// Creates a blank item, owned by the application, and stores it in `*item`. Returns 1, or 0 with
// `*item` null if it cannot be allocated.
QUILLKIT_API std::int32_t CreateMenuItem(CMenuItem** item);

// Destroys an item that CreateMenuItem made. Ignores null.
QUILLKIT_API void DestroyMenuItem(CMenuItem* item);

// Return the fields of the item. The name identifies the item in its key. The library does not
// interpret the other fields: they are for the appliance.
QUILLKIT_API const char* GetItemName(CMenuItem* item);
QUILLKIT_API const char* IPAddress(CMenuItem* item);
QUILLKIT_API const char* Path(CMenuItem* item);
QUILLKIT_API const char* AppTag(CMenuItem* item);
QUILLKIT_API std::uint32_t FileFormat(CMenuItem* item);
QUILLKIT_API std::uint32_t Settings(CMenuItem* item);

// Store a text of at most 31, 255, 127 and 127 characters. Return 1, or 0 and no change for a
// longer text. The syntax is not checked.
QUILLKIT_API std::int32_t SetName(CMenuItem* item, const std::string& text);
QUILLKIT_API std::int32_t SetIPAddress(CMenuItem* item, const std::string& text);
QUILLKIT_API std::int32_t SetPath(CMenuItem* item, const std::string& text);
QUILLKIT_API std::int32_t SetAppTag(CMenuItem* item, const std::string& text);

// Store a value. Always return 1.
QUILLKIT_API std::int32_t SetFileFormat(CMenuItem* item, std::uint32_t value);
QUILLKIT_API std::int32_t SetSettings(CMenuItem* item, std::uint32_t value);

// ---------------------------------------------------------------------------------------------
// Import
// ---------------------------------------------------------------------------------------------

// Fills an address book of the appliance from a file of this machine: converts the file into a
// script in the folder for temporary files and makes the server run it, for up to an hour.
//   `path`     The file. "*" and "?" in its last component are wildcards for the test that the file
//              exists; the file is then opened under the name as given. Opening a named pipe waits
//              for its writer.
//   `options`  See import/import_options.h. Read during the call only.
//
// Rows that cannot be used are skipped without a report. Returns a status:
//   0    the server ran the script without an error
//   -3   `options` is null
//   -1   nothing matches `path`, or it is null
//   -11  the format is unknown
//   -2   the file cannot be read; nothing was sent
//   -1   the script cannot be written; nothing was sent
//   -1   `scanner` is null
//   Any other status is the server's. What the script did before the error remains, and the
//   server's time-out stays at an hour.
//
// On POSIX only the user can read the temporary file, and the library writes it through the
// descriptor that created it, so that no link can redirect it. On Windows the folder determines who
// can read it; the system creates and closes it, and the library opens it again without write
// sharing. The server opens it by name. If other users can rename files in the folder for temporary
// files, they can make the server run another script: use a safe folder.
//
// The temporary file is deleted after the attempt to run it, also if that fails. It remains after
// -11, after a failed conversion, and if an allocation fails.
// Server calls: IMSPIOCtl 2, IMSPIOCtl 1, IMSPBatchConfiguration, IMSPIOCtl 2, IMSPIOCtl 1.
QUILLKIT_API std::int32_t ImportAddressBook(CScanner* scanner, const char* path,
                                            const ImportOptions* options);

}  // extern "C"

}  // namespace quillkit

#endif  // QUILLKIT_TOOLKIT_QUILLKIT_H_
