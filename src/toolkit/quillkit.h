// Quillkit: programming a Quillbox, a network scanning appliance with an address book server and a
// front panel of soft keys.
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
// Functions. 60 plain functions with C linkage and undecorated names, inside namespace quillkit for
// C++. Call everything from one thread at a time, and log in on the thread that dispatches
// messages: the session keep-alive (IMSPWakeup; its status is discarded) is a timer of that thread.
// On POSIX an application's own event loop keeps the session alive with the two functions of
// platform/posix/event_loop.h.
//
// Loading. Loading the library loads and initialises the server library. If that fails, the reason
// is shown in a message box on Windows, and the library does not load. On POSIX it is written to
// standard error, and the library loads all the same: every server call then gives 20.
//
// Handles. Plain pointers to the library's objects, not checked: pass one that is alive. Where it
// comes from says who owns it:
//
//   CScanner*     LogToQuillbox            the library's. It outlives Logout, and goes with Exit
//                                          and with the next login to the same address
//   CTopLevelAB*  GetTopLevelAbook         the scanner's; it lives as long
//   CSoftKey*     GetKeyAt, LoadItems      the book's, until its next load: LoadTopLevelAbook and
//                                          every change of keys with reload
//                 CreateSoftKey            the application's, until DestroySoftKey. Once its book
//                                          is gone, only its memory may be asked
//   CMenuItem*    GetItemAt                the key's, until the next change of its items
//                 CreateMenuItem           the application's, until DestroyMenuItem
//   CUserRecord*  GetCurrentConnectedUser  the library's, until Logout, Exit or the next login;
//                                          test it for null, nothing takes it
//
// Text. 8-bit characters without a character set; names compare as exact bytes. An argument is a
// std::string, so application and library are built with the same standard library. It is copied
// before it is used, and may hold the text of one of the library's own objects; what stands behind
// a NUL does not count. A text result is NUL-terminated, points into the object that the handle
// names, and is good until that object changes or goes.
//
// Names. Keys and items have names of at most 31 characters. CreateSoftKey and the functions that
// change the server do not test that: a longer one goes out as the empty name, never cut to what
// could be the name of another.
//
// Numbers. Signed 32-bit where nothing else is said. A flag is a number, and nonzero means yes.
//
// Results. Four styles, never mixed within a family:
//
//   Status   0 is success; else a server code, or a local code below 0
//   count    the new number, or -1
//   index    from 0, or -1
//   1 or 0   1 is success
//
// Errors. GetLastToolkitError tells the status of the latest server call, or a code that the
// library recorded itself; a success without a call leaves it as it was. Every function that calls
// the server says which calls it makes, in their order, and can give any server code of
// TranslateToolkitError; a call that fails is the last unless something else is said. "No call"
// means that the function itself calls nothing. On POSIX entering any function, these included,
// sends the keep-alive of the calling thread if it is due. A server library that is not loaded, or
// lacks what is called, gives 20. Of the codes, the library itself raises 24 ("Address Book Full")
// and 25 ("Invalid host name"). Local codes are results and are never recorded:
//
//   -1   not connected, a bad argument, or no such file
//   -2   the input file cannot be read
//   -3   an argument is absent
//   -11  unknown import format
//
// Memory. Where it is refused, std::bad_alloc passes from any function to the application, which
// finds the objects usable. Refused for the items of a key alone, it is a failure in the function's
// style where one key is made or read or an item is added; where all keys are read, that key stays
// without items. A LogToQuillbox that throws may leave a session open: end it by Logout.
//
// Plain and Fast. A plain operation changes the server and, with `reload`, reads the changed key or
// all keys anew; without it the objects in memory show the old state. A Fast one changes the server
// and then the objects in memory, and reads nothing. The server comes first, and nothing is undone:
// a failing reload's status is the result, and the change stands.

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

// Logs in to the appliance `host` (a name, a name with one or two leading slashes or backslashes,
// or a dotted IPv4 address) and gives its handle, or null. `third`: the account record's third
// text, which the server's own takes the place of. ADMINISTRATOR and TOOLKIT, spelled exactly so,
// get a top-level book, which is loaded with all items when `loadTopBook` is set. A failed load
// does not stop the login. After a login with a load the last error is that of the load: the status
// of its last call, which is 4 for a book without keys.
//
// A user over 31, a password over 15 or a `third` over 255 characters gives null with nothing
// changed and no call. A host that does not resolve gives null and records 25; 0.0.0.0 gives null
// and records nothing; after both GetTopLevelAbook gives null, and the server knows nothing of it.
// In every other case of null the last error is the status of the call that failed. IMSPLogout has
// then been sent: a session that was open before has ended too.
//
// The library wipes every copy that it makes of the password. The connected user's record keeps one
// until the session ends, by Logout, Exit or the next login. `password` is the application's to
// wipe.
//
// Calls: IMSPLogin; IMSPIOCtl 6, unless the sign of life runs; IMSPReadEntryProperties on USERSAB;
// then those of LoadTopLevelAbook.
QUILLKIT_API CScanner* LogToQuillbox(const std::string& host, const std::string& user,
                                     const std::string& password, const std::string& third,
                                     std::int32_t loadTopBook);

// Ends the session and stops the sign of life. The scanner stays, and what it owns;
// GetTopLevelAbook gives null from here on. Call: IMSPLogout, whose status is dropped.
QUILLKIT_API void Logout();

// Frees everything and unloads the server library. No handle of the library's is good any more, and
// every later call to the server gives 20: to log in again, unload and load this library. Sends no
// logout. Unloading the library does the same; on Windows, a process that ends without either does
// not tell the server library. Call: IMSPTerminate, the first time.
QUILLKIT_API void Exit();

// The last recorded status. Reading does not clear it.
QUILLKIT_API std::int32_t GetLastToolkitError();

// Copies the text of `code`, with its NUL, into `buffer` when it is shorter than `*size` bytes: 1.
// Otherwise writes the text's length into `*size`, without its NUL, and leaves the buffer alone: 0.
// The room needed is that length and one more. Codes 23 and 26 to 31 have an empty text; those
// below 0 or above 31 "Unknown Error Code !". No call.
QUILLKIT_API std::int32_t TranslateToolkitError(std::int32_t code, char* buffer,
                                                std::int32_t* size);

// ---------------------------------------------------------------------------------------------
// The appliance. No call.
// ---------------------------------------------------------------------------------------------

// The host as the application spelled it at login.
QUILLKIT_API const char* GetScannerName(CScanner* scanner);

// What the server said of itself at login, at most 63 characters each: empty where it said
// nothing of use. A blank at the end belongs to the text.
QUILLKIT_API const char* GetScannerVersion(CScanner* scanner);
QUILLKIT_API const char* GetScannerModel(CScanner* scanner);

// The IPv4 address, in network byte order.
QUILLKIT_API std::uint32_t GetScannerAddress(CScanner* scanner);

// The user who is logged in, or null. `scanner` may be null.
QUILLKIT_API CUserRecord* GetCurrentConnectedUser(CScanner* scanner);

// 1 when ADMINISTRATOR is logged in; 0 for TOOLKIT, for anybody else and for nobody. `scanner` may
// be null.
QUILLKIT_API std::int32_t IsAdminConnected(CScanner* scanner);

// The top-level book. Null when the account has none, and whenever no session is open: the handle
// is not looked at then.
QUILLKIT_API CTopLevelAB* GetTopLevelAbook(CScanner* scanner);

// ---------------------------------------------------------------------------------------------
// Soft keys: at most 11
// ---------------------------------------------------------------------------------------------

// The number of keys in memory. No call.
QUILLKIT_API std::int32_t GetCount(CTopLevelAB* book);

// Reads the keys anew, and with the flag their items; earlier key handles are gone. The status of
// the listing, 0 for no keys; any other leaves no keys, and more than 11 on the server is one such
// case. A key whose items could not be read stays, as far as it was read. A key read without items
// serves for its name, its emptiness and GetDBItemCount alone.
// Calls: IMSPListABEntries; with the flag IMSPReadAB for each key, whatever they give.
QUILLKIT_API std::int32_t LoadTopLevelAbook(CTopLevelAB* book, std::int32_t withItems);

// Adds a key. A Status; 24, with nothing recorded and no call, when 11 keys are in memory.
// Calls: IMSPCreateEntry; with `reload` those of LoadTopLevelAbook with items.
QUILLKIT_API std::int32_t AddKey(CTopLevelAB* book, const std::string& name, std::int32_t reload);

// Deletes a key and its items. A Status.
// Calls: IMSPDeleteAB; with `reload` those of LoadTopLevelAbook with items.
QUILLKIT_API std::int32_t DeleteKey(CTopLevelAB* book, const std::string& name,
                                    std::int32_t reload);

// Writes the key with the name of `key`, of which nothing but the name goes out. A Status. With
// `reload` a handle to a key in memory, be it `key`, is gone.
// Calls: IMSPModifyEntry; with `reload` those of LoadTopLevelAbook with items.
QUILLKIT_API std::int32_t ModifyKey(CTopLevelAB* book, CSoftKey* key, std::int32_t reload);

// Renames a key on the server to the name that `key` carries; memory keeps the old name until the
// next load. A Status. Call: IMSPModifyEntry.
QUILLKIT_API std::int32_t RenameSoftKey(CTopLevelAB* book, const std::string& oldName,
                                        CSoftKey* key);

// The key at an index from 0 to GetCount - 1; null for any other. No call.
QUILLKIT_API CSoftKey* GetKeyAt(CTopLevelAB* book, std::int32_t index);

// The lowest index of a key with exactly this name, or -1. No call.
QUILLKIT_API std::int32_t FindSoftKeyIndex(CTopLevelAB* book, const std::string& name);

// Adds a key with the name of `key`, which stays the application's; in memory it has no items. The
// new count, or -1; at 11 keys in memory with nothing recorded and no call. Call: IMSPCreateEntry.
QUILLKIT_API std::int32_t FastKeyAdd(CTopLevelAB* book, CSoftKey* key);

// Removes the key with the name of `key`. The new count, or -1, also when the server removed a key
// that was not in memory. A handle to the key in memory, be it `key`, is gone. Call: IMSPDeleteAB.
QUILLKIT_API std::int32_t FastKeyRemove(CTopLevelAB* book, CSoftKey* key);

// Writes the key with the name of `key`. 1, or 0, also when the server wrote a key that is not in
// memory. The key in memory takes over the items of `key`: pass the key in memory itself, which
// changes nothing, or go on with the key in memory alone. Call: IMSPModifyEntry.
QUILLKIT_API std::int32_t FastKeyModify(CTopLevelAB* book, CSoftKey* key);

// Renames a key on the server and in memory to the name that `key` carries. 1, or 0, also when the
// server renamed a key that is not in memory. Call: IMSPModifyEntry.
QUILLKIT_API std::int32_t FastKeyRename(CTopLevelAB* book, const std::string& oldName,
                                        CSoftKey* key);

// ---------------------------------------------------------------------------------------------
// Soft key object: at most 512 items
// ---------------------------------------------------------------------------------------------

// Makes a key that the application owns, to carry a name of any length. It counts 512 blank items
// until a plain operation with reload has read it. Nonzero, or 0 when memory for the items is
// refused or for a null book, which leaves the key without name and items; `*key` receives a key in
// both cases. No call.
QUILLKIT_API std::int32_t CreateSoftKey(const std::string& name, CTopLevelAB* book, CSoftKey** key);

// Null is ignored. No call.
QUILLKIT_API void DestroySoftKey(CSoftKey* key);

// The key of this name in memory, or null when there is none or a read of its items failed with
// some delivered. A failure that delivers nothing counts as an empty key: the last error tells. The
// items that were read are dropped: nothing is refreshed. Call: IMSPReadAB.
QUILLKIT_API CSoftKey* LoadItems(CTopLevelAB* book, const std::string& name);

// The key's name. No call.
QUILLKIT_API const char* GetKeyName(CSoftKey* key);

// Nonzero when no items are in memory. No call.
QUILLKIT_API std::int32_t IsSoftKeyEmpty(CSoftKey* key);

// The number of items in memory. No call.
QUILLKIT_API std::int32_t GetItemCount(CSoftKey* key);

// Stores the number of items on the server in `*count`, when it gives 0. A Status. Works on every
// key. Call: IMSPSizeofAB.
QUILLKIT_API std::int32_t GetDBItemCount(CSoftKey* key, std::uint32_t* count);

// The item at an index from 0 to GetItemCount - 1; null for any other. No call.
QUILLKIT_API CMenuItem* GetItemAt(CSoftKey* key, std::int32_t index);

// Copies the six fields of `item` over the item at an index, or takes that item out and moves the
// later ones down: in memory alone. 1, or 0 for an index out of range. No call.
QUILLKIT_API std::int32_t SetItemAt(CSoftKey* key, std::int32_t index, CMenuItem* item);
QUILLKIT_API std::int32_t RemoveItemAt(CSoftKey* key, std::int32_t index);

// Search the items by name, from the first or behind the last hit: the whole name with the flag,
// else as many characters as the pattern has. An index. FindNextItem looks for the pattern of the
// latest FindFirstItem that hit. It starts at 0 after a FindFirstItem that missed, at 1 after a
// load, and after a miss of its own where it started before. No call.
QUILLKIT_API std::int32_t FindFirstItem(CSoftKey* key, const std::string& pattern,
                                        std::int32_t wholeName);
QUILLKIT_API std::int32_t FindNextItem(CSoftKey* key, std::int32_t wholeName);

// The lowest index of an item with the name of `item`, or -1. No call.
QUILLKIT_API std::int32_t FindMenuItemIndex(CSoftKey* key, CMenuItem* item);

// Add, write, rename, delete an item of the key on the server: by the name of `item`, or by the
// given one, of which `item` carries the new form. `item` is read, not kept. A Status; -1, and no
// call, on a key that was read without items. With `reload` the key's items are read anew: a read
// that delivers nothing gives 0 and no items, and 21 tells of more than 512 on the server. Calls:
// IMSPCreateEntry, IMSPModifyEntry, IMSPModifyEntry, IMSPDeleteEntry; with `reload` IMSPReadAB.
QUILLKIT_API std::int32_t AddMenuItem(CSoftKey* key, CMenuItem* item, std::int32_t reload);
QUILLKIT_API std::int32_t ModifyMenuItem(CSoftKey* key, CMenuItem* item, std::int32_t reload);
QUILLKIT_API std::int32_t RenameMenuItem(CSoftKey* key, const std::string& oldName, CMenuItem* item,
                                         std::int32_t reload);
QUILLKIT_API std::int32_t DeleteMenuItem(CSoftKey* key, const std::string& name,
                                         std::int32_t reload);

// Adds an item on the server and at the end in memory. The new count, or -1; at 512 items in memory
// 24 is recorded and there is no call. Call: IMSPCreateEntry.
QUILLKIT_API std::int32_t FastItemAdd(CSoftKey* key, CMenuItem* item);

// Deletes the item with the name of `item`. The new count, or -1, also when the server deleted an
// item that was not in memory. Call: IMSPDeleteEntry.
QUILLKIT_API std::int32_t FastItemRemove(CSoftKey* key, CMenuItem* item);

// Write the item with the name of `item`, or the one of the old name, which takes that of `item`.
// 1, or 0, also when the server changed an item that is not in memory. Call: IMSPModifyEntry.
QUILLKIT_API std::int32_t FastItemModify(CSoftKey* key, CMenuItem* item);
QUILLKIT_API std::int32_t FastItemRename(CSoftKey* key, const std::string& oldName,
                                         CMenuItem* item);

// ---------------------------------------------------------------------------------------------
// Menu item object. No call, and no session is needed.
// ---------------------------------------------------------------------------------------------

// Makes a blank item that the application owns. 1, or 0 with `*item` null when memory is refused.
QUILLKIT_API std::int32_t CreateMenuItem(CMenuItem** item);

// Null is ignored.
QUILLKIT_API void DestroyMenuItem(CMenuItem* item);

// The item's fields. The name is the item's key in its soft key; the rest is the appliance's, and
// nothing here reads it.
QUILLKIT_API const char* GetItemName(CMenuItem* item);
QUILLKIT_API const char* IPAddress(CMenuItem* item);
QUILLKIT_API const char* Path(CMenuItem* item);
QUILLKIT_API const char* AppTag(CMenuItem* item);
QUILLKIT_API std::uint32_t FileFormat(CMenuItem* item);
QUILLKIT_API std::uint32_t Settings(CMenuItem* item);

// Store a text of at most 31, 255, 127 and 127 characters: 1, or 0 with the item unchanged for a
// longer one. Nothing is cut and no syntax is checked.
QUILLKIT_API std::int32_t SetName(CMenuItem* item, const std::string& text);
QUILLKIT_API std::int32_t SetIPAddress(CMenuItem* item, const std::string& text);
QUILLKIT_API std::int32_t SetPath(CMenuItem* item, const std::string& text);
QUILLKIT_API std::int32_t SetAppTag(CMenuItem* item, const std::string& text);

// Store any value: 1.
QUILLKIT_API std::int32_t SetFileFormat(CMenuItem* item, std::uint32_t value);
QUILLKIT_API std::int32_t SetSettings(CMenuItem* item, std::uint32_t value);

// ---------------------------------------------------------------------------------------------
// Import
// ---------------------------------------------------------------------------------------------

// Fills an address book of the appliance from a file of this machine: turns the file into a script
// in the folder for temporary files and lets the server run it, for up to an hour. `path` may hold
// "*" and "?" in its last part; a pattern that matches something passes the first test, and is then
// opened as it stands. `options`: import/import_options.h.
//
// 0 when the server ran the script without an error: rows that cannot be used are skipped without a
// report. -3 without options, -1 when nothing matches `path` or it is null, -11 for an unknown
// format; -2 when `path` cannot be read (a pipe is waited for), -1 when the script cannot be
// written, both with nothing sent; -1 when the scanner is null; else the status of the server. A
// refused script stays carried out up to the refusal, and the server's time-out then stays at an
// hour.
//
// The temporary file is created for the user alone, and is written through the handle that created
// it: on POSIX no link can redirect it. On Windows the system creates and closes it, and the
// library opens it again, without sharing for writing. The server opens it by name. A folder for
// temporary files in which other users can rename files is therefore unsafe: they can make the
// server run another script.
//
// The temporary file is deleted after the server has seen it, and stays behind after -11, after a
// failed conversion and where memory is refused. Calls: IMSPIOCtl 2, IMSPIOCtl 1,
// IMSPBatchConfiguration, IMSPIOCtl 2, IMSPIOCtl 1.
QUILLKIT_API std::int32_t ImportAddressBook(CScanner* scanner, const char* path,
                                            const ImportOptions* options);

}  // extern "C"

}  // namespace quillkit

#endif  // QUILLKIT_TOOLKIT_QUILLKIT_H_
