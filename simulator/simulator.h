// Control functions of the simulated appliance, for tests, benchmarks and demonstrations.
//
// The simulator is a server library, libIMSPAPI.so or IMSPAPI.DLL. It implements the entry points
// of bridge/imsp_api.h and keeps one appliance in memory, or in a file if the environment names one
// (docs/simulator.md). The functions here configure and inspect that appliance without server
// calls. They have C linkage: a program that must run with any server library looks them up by
// name.
//
// Each process has one appliance. It starts seeded, survives IMSPTerminate and IMSPInit, and is
// destroyed when the library is unloaded. Call all functions from one thread at a time.
//
// Arguments: `user` is the name of an account. Only the kinds kPrivateEmail and kPrivateList have
// one book per user; for all other kinds `user` is ignored and may be null. For a fixed book,
// `book` is ignored: the kind identifies it.
//
// Behaviour the simulator defines where the protocol leaves it open:
//   - GUEST may only create entries in the users' book. ADMINISTRATOR and TOOLKIT may do anything.
//     Any other account may read every book and change its own private books. Otherwise: 11.
//   - Only ADMINISTRATOR may change identity, and change it back. The rights are then those of the
//     other user.
//   - The three accounts are permanent: clearing the users' book keeps them, and deleting or
//     renaming one yields 11.
//   - Deleting the e-mail, printer or private book empties it. Deleting any other fixed book yields
//     12.
//   - A key book and its entry in the top-level book are created, deleted and renamed together. The
//     private books of a user are deleted and renamed with the account.
//   - A record with an empty name, or with a text that has no NUL in its field, yields 7.
//   - LOGAB supports IMSPSizeofAB, IMSPReadAB and IMSPClearAB. IMSPListABEntries,
//     IMSPReadPageBoundaries and the calls for a single entry yield 13. It holds one record (32
//     bytes user name, then a text) for each login, logout and batch, at most 65,536.
//   - IMSPIOCtl 7 is reserved for ADMINISTRATOR and TOOLKIT. A backup does not include the log.
//   - IMSPBatchConfiguration runs the script language that simulator/batch.h describes.

#ifndef QUILLKIT_SIMULATOR_SIMULATOR_H_
#define QUILLKIT_SIMULATOR_SIMULATOR_H_

#include <cstdint>

#include "bridge/records.h"

namespace quillkit {

// Kinds of wrong replies, combined with |. None changes what is stored.
enum SimulatorDefect : std::uint32_t {
  // Bulk reads, listings and the census report 1000 records more than the buffer holds, unless
  // their status is 4. No record is written outside the buffer.
  kDefectDeliveredCount = 1,
  // Text fields of delivered records, rows and census letters are filled completely, without a NUL.
  kDefectUnterminated = 2,
  // A failing call, including status 4 and faults, leaves the count unchanged instead of setting it
  // to 0.
  kDefectFailedCount = 4,
  // Records and rows of one read are in descending order.
  kDefectUnsorted = 8,
  // The rows of the letter census report twice the number of entries plus one. Every second row
  // reports that number negated.
  kDefectCensus = 16,
  // Reported sizes and numbers of books are too high: by 7 at first, and by 7 more at each call.
  kDefectSize = 32,
  // Every call overwrites the caller's book, for every status. A change also overwrites the
  // caller's key and record, unless the call did not run (a fault, the time-out, no session).
  kDefectScribble = 64,
  // Bulk reads, listings and the census report one record fewer than they delivered.
  kDefectUnreported = 128,
};

extern "C" {

// --- The appliance ---

// Resets the appliance to the accounts ADMINISTRATOR ("quill"), TOOLKIT ("KELP") and GUEST (no
// password), with all books empty. Closes the session, clears and stops the journal, removes
// faults, defects and latency, and resets the settings below. Does not undo IMSPInit, and keeps the
// files that the environment names; the next call of an entry point updates the state file.
void SimulatorReset();

// Resets the appliance and adds a small office: accounts, e-mail, fax and printer entries, a public
// list, and soft keys with items.
void SimulatorSeed();

// Resets the appliance and applies a scenario file (docs/scenarios.md) to it, except its lines
// "state" and "journal". Returns null, or the line and description of an error; the appliance is
// then unchanged, or in its initial state if the books of the scenario cannot be read. The text is
// valid until the next call of this function.
const char* SimulatorLoadScenario(const char* path);

// Sets the identity text that IMSPLogin returns: `size` bytes, cut at the caller's capacity,
// followed by a NUL if there is room. Default: "Quillbox 40 - 3.1 - K7".
void SimulatorSetIdentity(const char* bytes, std::uint32_t size);

// Set the time-out of calls (default 30,000) and the keep-alive period (default 60,000), both in
// milliseconds. A session without any call for that period is dropped: later calls return 10. Real
// time below a tenth of a second is ignored. IMSPIOCtl 1 changes the time-out for the session; a
// login resets it to the value set here. SimulatorTimeout returns the current one.
void SimulatorSetTimeout(std::uint32_t milliseconds);
void SimulatorSetWakeupPeriod(std::uint32_t milliseconds);
std::uint32_t SimulatorTimeout();

// Advances the appliance's clock without waiting.
void SimulatorAdvanceClock(std::uint32_t milliseconds);

// Makes every later call take this long. It waits, unless the scenario has a simulated clock: then
// the clock advances. If that exceeds the time-out, the call does nothing and returns 19 after the
// time-out.
void SimulatorSetLatency(std::uint32_t milliseconds);

// Changes a limit of the appliance. A call that would exceed it changes nothing and returns 24. 0
// removes the limit. Returns 1, or 0 for an unknown limit. SimulatorPutEntry and SimulatorSeed
// ignore limits.
//   keys 11, items 512 (of each key), email 200,000, fax 2,048, accounts 4,096, printers 256,
//   models 16, lists 512 (of e-mail and of fax), members 512 (of each list), private-lists 100 and
//   private-entries 2,000 (of each user)
std::int32_t SimulatorSetLimit(const char* limit, std::uint32_t most);

// Sets the text that IMSPIOCtl 12 returns. Null: the returned record holds a null pointer.
void SimulatorSetServerText(const char* text);

// --- Contents ---

// Returns the user of the open session, or "" if there is none. Valid until the next call of any
// function.
const char* SimulatorSessionUser();

// Returns the number of entries, or -1 if the book does not exist.
std::int32_t SimulatorBookSize(BookKind kind, const char* book, const char* user);

// Copy an entry into `record`, which must have the size of the book's record: the entry at `index`
// in the book's order, or the entry of this name. Return 1, or 0 if there is none.
std::int32_t SimulatorEntryAt(BookKind kind, const char* book, const char* user, std::int32_t index,
                              void* record);
std::int32_t SimulatorFindEntry(BookKind kind, const char* book, const char* user, const char* name,
                                void* record);

// Stores a copy of a record under its own name and replaces an entry of that name. Creates a
// missing list or key book; an entry of kTop also creates the book of its key. Returns 1, or 0 if
// the record is null, has an empty name or a text without its NUL, or if no such book can exist.
std::int32_t SimulatorPutEntry(BookKind kind, const char* book, const char* user,
                               const void* record);

// --- Journal ---

// Starts (1) or stops (0) the recording of entry point calls. Off by default.
void SimulatorRecordCalls(std::int32_t record);
void SimulatorClearJournal();
std::int32_t SimulatorCallCount();

// Returns a recorded call, or null for an index out of range: the name of the entry point and its
// arguments, separated by spaces. Valid until the journal changes. Output arguments are omitted;
// the count of an IMSPListAB that only asks for the number is shown as -.
//   a book       kind:name, as 512:Scan
//   a range      [first|filter|skip], as [|*|0]
//   a count      its input value
//   a record     its name; never the password of an account
//   a key, text  unchanged, or "" if empty
//   null         -
//   IMSPLogin    address user, and *** for the password or "" if it is empty
//   IMSPIOCtl    code value, and the text of code 7
// Examples: "IMSPReadAB 512:Scan [|*|0] 512 1", "IMSPSizeofAB 1:EMAILAB -", "IMSPIOCtl 1 3600000",
// "IMSPModifyEntry 256:TOPAB Scan Copy", "IMSPLogin 127.0.0.1 TOOLKIT ***", "IMSPLogout".
const char* SimulatorCallText(std::int32_t index);

// Returns the status of a recorded call, or 0 for an index out of range.
Status SimulatorCallStatus(std::int32_t index);

// --- Faults ---

// Makes later calls of the entry point return `status` and do nothing. `entry` null: any entry
// point. Occurrence 1 is the next call, 2 the one after it, 0 every call. Several faults can be
// pending; if two match a call, the earlier one applies. The call is recorded, and does not keep
// the session alive.
void SimulatorFail(const char* entry, std::int32_t occurrence, Status status);
void SimulatorClearFaults();

// Returns a description of a fault that has not made any call fail, or null for an index out of
// range, or if the scenario allows unfired faults. The faults of a scenario and of the environment
// count, too. When a test ends, index 0 should return null: otherwise the test did not test what it
// intended to. Valid until the next call of this function.
const char* SimulatorUnfiredFault(std::int32_t index);

// Sets the wrong replies from now on: a combination of SimulatorDefect, 0 for none.
void SimulatorSetDefects(std::uint32_t defects);

// Increases every reported size of a book and number of books by `by`, to simulate an appliance
// near its limits. 0: no increase.
void SimulatorInflateSizes(std::uint32_t by);

}  // extern "C"

}  // namespace quillkit

#endif  // QUILLKIT_SIMULATOR_SIMULATOR_H_
