// The entry points of the server library, as the agent calls them and the simulator offers them.
//
// Records and buffers are the caller's, and no pointer to one is kept after the call. A count
// pointer is in and out: in, the records that fit the buffer; out, the records delivered. A filter
// or range may be null where the comment says so. `direction` is 1 to read forward from the range's
// `first` and 0 to read back from it. Every result is a Status.

#ifndef QUILLKIT_BRIDGE_IMSP_API_H_
#define QUILLKIT_BRIDGE_IMSP_API_H_

#include <cstdint>

#include "bridge/records.h"

namespace quillkit {

extern "C" {

// Life of the library and session. IMSPLogin fills `identity`, a buffer of `capacity` bytes (256),
// with "model - version - third".
Status IMSPInit();
Status IMSPTerminate();
Status IMSPLogin(LoginRecord* login, char* identity, std::uint32_t capacity);
Status IMSPLogout();
Status IMSPWakeup();
Status IMSPAbort();
Status IMSPIOCtl(IOCtlRecord* record);
Status IMSPCheckString(const char* text, std::int32_t maximumLength);
Status IMSPBatchConfiguration(const char* path);
Status IMSPChangeIdentity(EntryKey* user);

// Books. A null filter means the whole book. IMSPSizeofAB's count is out only. IMSPListAB with a
// null range and a null buffer delivers the number alone.
Status IMSPCreateAB(ABIdent* book);
Status IMSPDeleteAB(ABIdent* book);
Status IMSPClearAB(ABIdent* book, const char* filter);
Status IMSPSizeofAB(ABIdent* book, const char* filter, std::uint32_t* count);
Status IMSPReadAB(ABIdent* book, KeyRange* range, void* records, std::uint32_t* count,
                  std::int32_t direction);
Status IMSPListABEntries(ABIdent* book, KeyRange* range, EntryKey* rows, std::uint32_t* count,
                         std::int32_t direction);
Status IMSPListAB(ABIdent* selector, KeyRange* range, ABIdent* books, std::uint32_t* count,
                  std::int32_t direction);
Status IMSPReadPageBoundaries(ABIdent* book, PageBoundary* table, std::uint32_t* count);

// Entries. The record's type is that of the book.
Status IMSPCreateEntry(ABIdent* book, void* record);
Status IMSPReadEntryProperties(ABIdent* book, EntryKey* key, void* record);
Status IMSPModifyEntry(ABIdent* book, EntryKey* key, void* record);
Status IMSPDeleteEntry(ABIdent* book, EntryKey* key);

// Transfers that the library forwards and never uses itself; only the number of arguments is
// settled.
Status IMSPExport(std::uint32_t first, std::uint32_t second);
Status IMSPGetExportFile(std::uint32_t first, std::uint32_t second, std::uint32_t third);
Status IMSPImport(std::uint32_t first, std::uint32_t second, std::uint32_t third);
Status IMSPImpExpState(std::uint32_t first, std::uint32_t second);
Status IMSPImpExpAbort();

}  // extern "C"

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_IMSP_API_H_
