// The entry points of the server library. The agent calls them; the simulator implements them.
//
// The caller owns records and buffers; no pointer is kept after the call. A count pointer is input
// and output: the number of records that fit the buffer, then the number delivered. A filter or
// range may be null where the comment says so. `direction` is 1 to read forward from the entry
// after the range's `first`, and 0 to read backward from the entry before it. Every function
// returns a Status.

#ifndef QUILLKIT_BRIDGE_IMSP_API_H_
#define QUILLKIT_BRIDGE_IMSP_API_H_

#include <cstdint>

#include "bridge/records.h"

namespace quillkit {

extern "C" {

// Library and session. IMSPLogin stores "model - version - third" in `identity`, a buffer of
// `capacity` bytes (256).
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

// Books. A null filter means the whole book. The range of IMSPReadAB may be null: the whole book.
// The count of IMSPSizeofAB is only an output. IMSPListAB with a null range and a null buffer
// delivers only the number.
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

// Entries. The type of the record depends on the book.
Status IMSPCreateEntry(ABIdent* book, void* record);
Status IMSPReadEntryProperties(ABIdent* book, EntryKey* key, void* record);
Status IMSPModifyEntry(ABIdent* book, EntryKey* key, void* record);
Status IMSPDeleteEntry(ABIdent* book, EntryKey* key);

// Transfers. The library only forwards them; only the number of arguments is known.
Status IMSPExport(std::uint32_t first, std::uint32_t second);
Status IMSPGetExportFile(std::uint32_t first, std::uint32_t second, std::uint32_t third);
Status IMSPImport(std::uint32_t first, std::uint32_t second, std::uint32_t third);
Status IMSPImpExpState(std::uint32_t first, std::uint32_t second);
Status IMSPImpExpAbort();

}  // extern "C"

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_IMSP_API_H_
