// Quillkit: programming a Quillbox, a network scanning appliance with an address book server and a
// front panel of soft keys.
//
//   using namespace quillkit;
//   CScanner* box = LogToQuillbox("quillbox.example", "ADMINISTRATOR", password, "", 1);
//   if (box == nullptr) return GetLastToolkitError();
//   CTopLevelAB* keys = GetTopLevelAbook(box);
//   for (int i = 0; i < GetCount(keys); ++i) puts(GetKeyName(GetKeyAt(keys, i)));
//   Logout();
//   Exit();
//
// CONVENTIONS
//
// Functions. 60 plain functions with C linkage and undecorated names, inside namespace quillkit for
// C++. Call them from one thread at a time, and log in on the thread that dispatches messages: the
// session's sign of life is a timer of that thread. On POSIX an application's own event loop keeps
// it alive with the two functions of platform/posix/event_loop.h.
//
// Handles. Plain pointers to the library's objects, not checked: pass one that is alive. Where it
// comes from says who owns it:
//
//   CScanner*     LogToQuillbox              the library's, until the next login to the same
//   address
//                                            or Exit; it outlives Logout
//   CTopLevelAB*  GetTopLevelAbook           the scanner's, and lives as long
//   CSoftKey*     GetKeyAt, LoadItems        the top-level book's, until its next load; plain
//                                            operations with reload load it
//                 CreateSoftKey              the application's, until DestroySoftKey
//   CMenuItem*    GetItemAt                  the key's, until its next change
//                 CreateMenuItem             the application's, until DestroyMenuItem
//   CUserRecord*  GetCurrentConnectedUser    the library's, until Logout, Exit or the next login;
//                                            test it for null, nothing takes it
//
// Text. 8-bit characters without a character set; names compare as exact bytes. An argument is a
// std::string and is copied before it is used, so it may hold the text of one of the library's own
// objects. A text result points into the object that the handle names and is good until that object
// changes or goes. Text behind a NUL does not count.
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
// library recorded itself. Local codes are results only. Every function that calls the server can
// give any server code (TranslateToolkitError has their texts) and says which calls it makes; "no
// call" means that the server hears nothing. Failures of the server library itself give code 20.
//
//   -1   not connected, a bad argument, or no such file
//   -2   the input file cannot be read
//   -3   an argument is absent
//   -11  unknown import format
//   24   "Address Book Full", 25 "Invalid host name": raised by the library too
//
// Plain and Fast. A plain operation changes the server and, with `reload`, reads the changed key or
// key set anew; without it the objects in memory show the old state. A Fast one changes the server
// and then the objects in memory, and reads nothing. Server first; nothing is undone.

#ifndef QUILLKIT_TOOLKIT_QUILLKIT_H_
#define QUILLKIT_TOOLKIT_QUILLKIT_H_

#include <cstdint>
#include <string>

#include "import/import_options.h"

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

// Logs in to the appliance `host` (a name, a name with two leading backslashes, or a dotted IPv4
// address) and gives its handle, or null. ADMINISTRATOR and TOOLKIT, spelled exactly so, get a
// top-level book, which is loaded with all items when `loadTopBook` is set; a failed load does not
// stop the login.
//
// Name at most 31, password 15, `third` 255 characters: a longer one gives null with nothing
// changed and no call. A host that does not resolve gives null and records 25. Host 0.0.0.0 gives
// null and records nothing. In every other case of null the last error is the status of the call
// that failed, and IMSPLogout has been sent, which also ends a session that was open before.
//
// Calls: IMSPLogin; IMSPIOCtl 6, unless the sign of life runs; IMSPReadEntryProperties on USERSAB;
// then what LoadTopLevelAbook calls.
QUILLKIT_API CScanner* LogToQuillbox(const std::string& host, const std::string& user,
                                     const std::string& password, const std::string& third,
                                     std::int32_t loadTopBook);

// Ends the session (IMSPLogout, whose status is dropped) and stops the sign of life. The scanner
// stays readable; GetTopLevelAbook gives null from here on.
QUILLKIT_API void Logout();

// Frees everything and unloads the server library (IMSPTerminate). All handles are gone, and every
// later call to the server gives 20: to log in again, unload and load this library. Sends no
// logout.
QUILLKIT_API void Exit();

// The last recorded status. Reading does not clear it, and neither does a success without a call.
QUILLKIT_API std::int32_t GetLastToolkitError();

// Copies the text of `code`, with its NUL, into `buffer` when it is shorter than `*size` bytes: 1.
// Otherwise writes the text's length into `*size`, without its NUL, and leaves the buffer alone: 0.
// The room needed is that length and one more. Codes 23 and 26 to 31 have an empty text; those
// below 0 or above 31 "Unknown Error Code !".
QUILLKIT_API std::int32_t TranslateToolkitError(std::int32_t code, char* buffer,
                                                std::int32_t* size);

// ---------------------------------------------------------------------------------------------
// The appliance. No call.
// ---------------------------------------------------------------------------------------------

// The host as the application spelled it at login.
QUILLKIT_API const char* GetScannerName(CScanner* scanner);

// What the server said of itself at login. The model keeps a blank that stood at its end, and so
// does the version.
QUILLKIT_API const char* GetScannerVersion(CScanner* scanner);
QUILLKIT_API const char* GetScannerModel(CScanner* scanner);

// The IPv4 address in network byte order.
QUILLKIT_API std::uint32_t GetScannerAddress(CScanner* scanner);

// The user who is logged in, or null.
QUILLKIT_API CUserRecord* GetCurrentConnectedUser(CScanner* scanner);

// 1 when ADMINISTRATOR is logged in. TOOLKIT gives 0.
QUILLKIT_API std::int32_t IsAdminConnected(CScanner* scanner);

// The top-level book, or null when there is none and whenever no session is open; the handle is not
// looked at then.
QUILLKIT_API CTopLevelAB* GetTopLevelAbook(CScanner* scanner);

// ---------------------------------------------------------------------------------------------
// Soft keys: at most 11
// ---------------------------------------------------------------------------------------------

// The number of keys in memory.
QUILLKIT_API std::int32_t GetCount(CTopLevelAB* book);

// Reads the keys anew, and with the flag their items; earlier key handles are gone. The status of
// the listing, 0 for no keys; any other leaves no keys, and more than 11 on the server is one such
// case. A key whose items could not be read stays, as far as it was read. A key read without items
// serves for its name, its emptiness and GetDBItemCount alone.
// Calls: IMSPListABEntries, and with items IMSPReadAB for each key.
QUILLKIT_API std::int32_t LoadTopLevelAbook(CTopLevelAB* book, std::int32_t withItems);

// Adds, deletes, writes a key on the server. A name of 32 or more characters goes out empty, except
// that of DeleteKey, which is cut. AddKey gives 24, with nothing recorded and no call, when 11 keys
// are in memory. Calls: IMSPCreateEntry, IMSPDeleteAB, IMSPModifyEntry; with `reload`, when that
// gave 0, those of LoadTopLevelAbook with items, whose status is then the result.
QUILLKIT_API std::int32_t AddKey(CTopLevelAB* book, const std::string& name, std::int32_t reload);
QUILLKIT_API std::int32_t DeleteKey(CTopLevelAB* book, const std::string& name,
                                    std::int32_t reload);
QUILLKIT_API std::int32_t ModifyKey(CTopLevelAB* book, CSoftKey* key, std::int32_t reload);

// Renames a key on the server to the name that `key` carries. Memory keeps the old name until the
// next load. Call: IMSPModifyEntry.
QUILLKIT_API std::int32_t RenameSoftKey(CTopLevelAB* book, const std::string& oldName,
                                        CSoftKey* key);

// The key at an index from 0 to GetCount - 1; null for any other.
QUILLKIT_API CSoftKey* GetKeyAt(CTopLevelAB* book, std::int32_t index);

// The lowest index of a key with exactly this name, or -1.
QUILLKIT_API std::int32_t FindSoftKeyIndex(CTopLevelAB* book, const std::string& name);

// Adds a key with the name of `key`, which stays the application's. The new count, or -1; at 11
// keys with nothing recorded and no call. Call: IMSPCreateEntry.
QUILLKIT_API std::int32_t FastKeyAdd(CTopLevelAB* book, CSoftKey* key);

// Removes the key with the name of `key`. The new count, or -1, also when the server removed a key
// that was not in memory. A handle to the key in memory is gone. Call: IMSPDeleteAB.
QUILLKIT_API std::int32_t FastKeyRemove(CTopLevelAB* book, CSoftKey* key);

// Writes the key with the name of `key`. 1, or 0, also when the server wrote a key that is not in
// memory. The key in memory takes over the content of `key`: pass the key in memory itself, which
// changes nothing, or treat `key` as spent. Call: IMSPModifyEntry.
QUILLKIT_API std::int32_t FastKeyModify(CTopLevelAB* book, CSoftKey* key);

// Renames a key on the server and in memory to the name that `key` carries. 1, or 0, also when the
// server renamed a key that is not in memory. Call: IMSPModifyEntry.
QUILLKIT_API std::int32_t FastKeyRename(CTopLevelAB* book, const std::string& oldName,
                                        CSoftKey* key);

// ---------------------------------------------------------------------------------------------
// Soft key object: at most 512 items
// ---------------------------------------------------------------------------------------------

// Makes a key that the application owns, to carry a name of any length. It counts 512 blank items
// until a reload has replaced them. Nonzero, or 0 for a null book or when memory is refused; `*key`
// receives an object in every case. No call.
QUILLKIT_API std::int32_t CreateSoftKey(const std::string& name, CTopLevelAB* book, CSoftKey** key);

// Null is ignored.
QUILLKIT_API void DestroySoftKey(CSoftKey* key);

// The key of this name in memory, when the server can read its book; else null. The items that were
// read are dropped: this proves that the book is there and refreshes nothing. Call: IMSPReadAB.
QUILLKIT_API CSoftKey* LoadItems(CTopLevelAB* book, const std::string& name);

QUILLKIT_API const char* GetKeyName(CSoftKey* key);

// Nonzero when no items are in memory.
QUILLKIT_API std::int32_t IsSoftKeyEmpty(CSoftKey* key);

// The number of items in memory.
QUILLKIT_API std::int32_t GetItemCount(CSoftKey* key);

// The number of items on the server, in `*count`. Works on every key. Call: IMSPSizeofAB.
QUILLKIT_API std::int32_t GetDBItemCount(CSoftKey* key, std::uint32_t* count);

// The item at an index; null out of range.
QUILLKIT_API CMenuItem* GetItemAt(CSoftKey* key, std::int32_t index);

// Copy an item's fields into a place, take an item out: in memory alone, no call. 1, or 0 out of
// range.
QUILLKIT_API std::int32_t SetItemAt(CSoftKey* key, std::int32_t index, CMenuItem* item);
QUILLKIT_API std::int32_t RemoveItemAt(CSoftKey* key, std::int32_t index);

// Search items by name: the whole name with the flag, else as many characters as the pattern has.
// The index or -1. FindNextItem goes on behind the last hit with the pattern of the latest
// FindFirstItem that hit; after one that missed it starts at 0, after a load at 1.
QUILLKIT_API std::int32_t FindFirstItem(CSoftKey* key, const std::string& pattern,
                                        std::int32_t wholeName);
QUILLKIT_API std::int32_t FindNextItem(CSoftKey* key, std::int32_t wholeName);

// The first item with the same name, or -1.
QUILLKIT_API std::int32_t FindMenuItemIndex(CSoftKey* key, CMenuItem* item);

// Add, write, rename, delete an item on the server. `item` is read, not kept. An old name is cut at
// 31 characters; a name to delete of 32 or more goes out empty. A Status; on a failing reload it is
// the reload's, and the change stands. Calls: IMSPCreateEntry, IMSPModifyEntry, IMSPModifyEntry,
// IMSPDeleteEntry; with `reload`, when that gave 0, IMSPReadAB.
// -1 and no call on a key that was read without items.
QUILLKIT_API std::int32_t AddMenuItem(CSoftKey* key, CMenuItem* item, std::int32_t reload);
QUILLKIT_API std::int32_t ModifyMenuItem(CSoftKey* key, CMenuItem* item, std::int32_t reload);
QUILLKIT_API std::int32_t RenameMenuItem(CSoftKey* key, const std::string& oldName, CMenuItem* item,
                                         std::int32_t reload);
QUILLKIT_API std::int32_t DeleteMenuItem(CSoftKey* key, const std::string& name,
                                         std::int32_t reload);

// Adds an item on the server and at the end in memory. The new count, or -1; at 512 items in memory
// 24 is recorded and there is no call. Call: IMSPCreateEntry.
QUILLKIT_API std::int32_t FastItemAdd(CSoftKey* key, CMenuItem* item);

// Deletes the item of the same name. The new count, or -1, also when the server deleted an item
// that was not in memory. Call: IMSPDeleteEntry.
QUILLKIT_API std::int32_t FastItemRemove(CSoftKey* key, CMenuItem* item);

// Write the item of the same name; rename and write the item of the old name. 1, or 0, also when
// the server changed an item that is not in memory. Call: IMSPModifyEntry.
QUILLKIT_API std::int32_t FastItemModify(CSoftKey* key, CMenuItem* item);
QUILLKIT_API std::int32_t FastItemRename(CSoftKey* key, const std::string& oldName,
                                         CMenuItem* item);

// ---------------------------------------------------------------------------------------------
// Menu item object. No call.
// ---------------------------------------------------------------------------------------------

// Makes a blank item that the application owns. 1, or 0 with `*item` null when memory is refused.
// Needs no session.
QUILLKIT_API std::int32_t CreateMenuItem(CMenuItem** item);

// Null is ignored.
QUILLKIT_API void DestroyMenuItem(CMenuItem* item);

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
// report. -3 without options, -1 when nothing matches `path`, -11 for an unknown format; -2 when
// `path` cannot be read, -1 when the script cannot be written, both with nothing sent; -1 when the
// scanner is not connected; else the status of the server. A refused script stays carried out up to
// the refusal, and the server's time-out then stays at an hour.
//
// The temporary file is deleted after the server has seen it, and stays behind after -11 and after
// a failed conversion. Calls: IMSPIOCtl 2, IMSPIOCtl 1, IMSPBatchConfiguration, and after a success
// IMSPIOCtl 2, IMSPIOCtl 1.
QUILLKIT_API std::int32_t ImportAddressBook(CScanner* scanner, const char* path,
                                            const ImportOptions* options);

}  // extern "C"

}  // namespace quillkit

#endif  // QUILLKIT_TOOLKIT_QUILLKIT_H_
