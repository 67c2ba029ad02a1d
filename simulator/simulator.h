// The control of the simulated appliance, for whoever stands it in a Quillbox's place: tests,
// benchmarks, demonstrations.
//
// The simulator is a server library, libIMSPAPI.so or IMSPAPI.DLL: it offers the entry points of
// bridge/imsp_api.h, and holds one appliance in memory, or in a file where the environment names
// one (docs/simulator.md). The functions here set that appliance up and look into it behind the
// library's back. They have C linkage, so that a program which must run with any server library can
// look them up by name and do without.
//
// There is one appliance a process. It comes seeded, and stays through IMSPTerminate and IMSPInit;
// unloading the library ends it. Call everything from one thread at a time.
//
// An account is a user's name. Books of the kinds kPrivateEmail and kPrivateList are each user's
// own; functions that name a book take the user for those and ignore it, null included, for all
// others. Fixed books may be named by their kind alone, with any name.
//
// What it settles where a client can only take what comes:
//   - GUEST may create an entry in the users' book and nothing else. ADMINISTRATOR and TOOLKIT may
//     do anything. Any other account may read every book and change its own private ones. Else 11.
//   - Only who logged in as ADMINISTRATOR may change identity, and back; the rights are then those
//     of the other user.
//   - The three accounts stay: clearing the users' book leaves them; deleting or renaming one
//     gives 11.
//   - Deleting the e-mail, printer or private book empties it; any other fixed book gives 12.
//   - A key book and its entry in the top-level book come, go and change their names together. The
//     private books of a user do the same with the account.
//   - A record is refused with 7 when its name is empty or a text has no NUL in its field.
//   - LOGAB offers IMSPSizeofAB, IMSPReadAB and IMSPClearAB; other calls on it give 13. It has a
//     record (32 bytes user, then a text) of each login, logout and batch, the last 65,536.
//   - IMSPIOCtl 7 is for ADMINISTRATOR and TOOLKIT. A backup does not hold the log.
//   - IMSPBatchConfiguration runs the script language that simulator/batch.h describes.

#ifndef QUILLKIT_SIMULATOR_SIMULATOR_H_
#define QUILLKIT_SIMULATOR_SIMULATOR_H_

#include <cstdint>

#include "bridge/records.h"

namespace quillkit {

// Ways in which a broken server lies, to be combined. None changes what is stored.
enum SimulatorLie : std::uint32_t {
  // Bulk reads, listings and the census claim to have delivered 1000 more than the buffer holds,
  // unless they give 4; no record is written outside it.
  kLieDeliveredCount = 1,
  // The text fields of delivered records, rows and census letters are filled to their ends, without
  // a NUL.
  kLieUnterminated = 2,
  // A call that fails, 4 and faults included, leaves the count as it came in; else it delivers 0.
  kLieFailedCount = 4,
  // Records and rows of one read stand in descending order.
  kLieUnsorted = 8,
  // The rows of a letter census tell one entry more than twice the number, every other one a
  // negative number.
  kLieCensus = 16,
  // Sizes, and the numbers of books, are off by 7 more at every call.
  kLieSize = 32,
  // The key and the record that come with a change of an entry are overwritten to their ends,
  // whatever the appliance answers.
  kLieScribble = 64,
  // Bulk reads, listings and the census tell one less than they delivered.
  kLieUntold = 128,
};

extern "C" {

// --- The appliance ---

// As delivered: the accounts ADMINISTRATOR ("quill"), TOOLKIT ("KELP") and GUEST (no password), and
// nothing else. No session, no journal and no recording, no faults, lies or latency; the settings
// below at their defaults. Whether IMSPInit has run stays as it was, and so do the files that the
// environment names; the state file follows at the next call of an entry point.
void SimulatorReset();

// SimulatorReset, and then a small office: further accounts, e-mail, fax and printer entries, a
// public list, and soft keys with items.
void SimulatorSeed();

// What IMSPLogin answers: `size` bytes, cut at the caller's capacity, with a NUL only where that
// leaves room. Default "Quillbox 40 - 3.1 - K7".
void SimulatorSetIdentity(const char* bytes, std::uint32_t size);

// Milliseconds: the time-out of calls (30,000), and the period within which a session has to show a
// sign of life (60,000), which is any call of it. A session that does not is dropped: later calls
// give 10. Real silence counts from a tenth of a second on. IMSPIOCtl 1 sets the time-out for the
// session; a login sets it back to what was set here. SimulatorTimeout tells the present one.
void SimulatorSetTimeout(std::uint32_t milliseconds);
void SimulatorSetWakeupPeriod(std::uint32_t milliseconds);
std::uint32_t SimulatorTimeout();

// Moves the appliance's clock on without waiting.
void SimulatorAdvanceClock(std::uint32_t milliseconds);

// Every later call takes this long, really; one that takes longer than the time-out does nothing
// and gives 19 after the time-out.
void SimulatorSetLatency(std::uint32_t milliseconds);

// The text that IMSPIOCtl 12 answers; null lets its record point at nothing.
void SimulatorSetServerText(const char* text);

// --- What it holds ---

// The user of the open session, "" without one. Good until the next call of anything.
const char* SimulatorSessionUser();

// The number of entries, or -1 when there is no such book.
std::int32_t SimulatorBookSize(BookKind kind, const char* book, const char* user);

// Copies the entry at `index`, in the book's order, or of this name into `record`, which has room
// for the book's record: 1, or 0 when there is none.
std::int32_t SimulatorEntryAt(BookKind kind, const char* book, const char* user, std::int32_t index,
                              void* record);
std::int32_t SimulatorFindEntry(BookKind kind, const char* book, const char* user, const char* name,
                                void* record);

// Stores a copy of a record under its own name, replacing an entry of that name, and creates the
// list or key book that is not there. An entry of kTop brings its key's book. 1, or 0 for a record
// without a name.
std::int32_t SimulatorPutEntry(BookKind kind, const char* book, const char* user,
                               const void* record);

// --- Journal ---

// Records every later entry point call, or none. Off at first: a long run need not remember its
// calls.
void SimulatorRecordCalls(std::int32_t record);
void SimulatorClearJournal();
std::int32_t SimulatorCallCount();

// The recorded call: its entry point's name and its arguments, separated by blanks, or null out of
// range. Good until the journal changes. Buffers, records and counts that only come out are left
// out; the count of an IMSPListAB that asks for the number alone stands as -.
//   a book       kind:name, as 512:Scan
//   a range      [first|filter|skip], as [|*|0]
//   a count      what came in
//   a record     the name it carries
//   a key, text  as it stands, "" when empty
//   null         -
//   IMSPLogin    address user password
//   IMSPIOCtl    code value, and the text of code 7
// As in "IMSPReadAB 512:Scan [|*|0] 512 1", "IMSPSizeofAB 1:EMAILAB -", "IMSPIOCtl 1 3600000",
// "IMSPModifyEntry 256:TOPAB Scan Copy", "IMSPLogin 127.0.0.1 TOOLKIT KELP", "IMSPLogout".
const char* SimulatorCallText(std::int32_t index);

// What it gave.
Status SimulatorCallStatus(std::int32_t index);

// --- Faults ---

// Makes a later call of the entry point, or of any for null, do nothing but give `status`:
// occurrence 1 is the next one, 2 the one after it; 0 is every one. Several faults may wait; where
// two meet, the earlier one counts. The call is journaled, and is no sign of life.
void SimulatorFail(const char* entry, std::int32_t occurrence, Status status);
void SimulatorClearFaults();

// Lies from now on: any of SimulatorLie, 0 for none.
void SimulatorSetLies(std::uint32_t lies);

// Tells every size of a book, and every number of books, this much above what it is: an appliance
// near its limits without the entries. 0 ends it.
void SimulatorInflateSizes(std::uint32_t by);

}  // extern "C"

}  // namespace quillkit

#endif  // QUILLKIT_SIMULATOR_SIMULATOR_H_
