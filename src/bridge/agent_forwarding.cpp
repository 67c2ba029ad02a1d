// The forwarding operations: look the entry point up, call it, record the status, return it.

#include <algorithm>

#include "bridge/agent.h"
#include "bridge/imsp_api.h"

namespace quillkit {

// Calls an entry point. `Entry` is its function type.
template <class Entry, class... Arguments>
Status CAgent::Forward(const char* name, Arguments... arguments) const {
  auto* entry = reinterpret_cast<Entry*>(FindEntryPoint(serverLibrary, name));
  return entry != nullptr ? entry(arguments...) : kNotInitialised;
}

template <class Entry, class... Arguments>
Status CAgent::Call(const char* name, Arguments... arguments) {
  lastError = Forward<Entry>(name, arguments...);
  return lastError;
}

// A call that delivers up to `*count` records. A larger count from the server is reduced to that.
template <class Entry, class... Arguments>
Status CAgent::CallForCount(const char* name, std::uint32_t* count, Arguments... arguments) {
  const std::uint32_t capacity = *count;
  const Status status = Call<Entry>(name, arguments...);
  *count = std::min(*count, capacity);
  return status;
}

Status CAgent::IMSPInit() {
  return Call<decltype(quillkit::IMSPInit)>("IMSPInit");
}

Status CAgent::IMSPTerminate() {
  return Call<decltype(quillkit::IMSPTerminate)>("IMSPTerminate");
}

Status CAgent::IMSPLogin(LoginRecord* login, char* identity, std::uint32_t capacity) {
  return Call<decltype(quillkit::IMSPLogin)>("IMSPLogin", login, identity, capacity);
}

Status CAgent::IMSPLogout() {
  return Forward<decltype(quillkit::IMSPLogout)>("IMSPLogout");
}

Status CAgent::IMSPWakeup() {
  return Call<decltype(quillkit::IMSPWakeup)>("IMSPWakeup");
}

Status CAgent::IMSPAbort() {
  return Call<decltype(quillkit::IMSPAbort)>("IMSPAbort");
}

Status CAgent::IMSPIOCtl(IOCtlRecord* record) {
  return Call<decltype(quillkit::IMSPIOCtl)>("IMSPIOCtl", record);
}

Status CAgent::IMSPCheckString(const char* text, std::int32_t maximumLength) {
  return Call<decltype(quillkit::IMSPCheckString)>("IMSPCheckString", text, maximumLength);
}

Status CAgent::IMSPBatchConfiguration(const std::string& path) {
  return Call<decltype(quillkit::IMSPBatchConfiguration)>("IMSPBatchConfiguration", path.c_str());
}

Status CAgent::IMSPChangeIdentity(EntryKey* user) {
  return Call<decltype(quillkit::IMSPChangeIdentity)>("IMSPChangeIdentity", user);
}

Status CAgent::IMSPCreateAB(ABIdent* book) {
  return Call<decltype(quillkit::IMSPCreateAB)>("IMSPCreateAB", book);
}

Status CAgent::IMSPDeleteAB(ABIdent* book) {
  return Call<decltype(quillkit::IMSPDeleteAB)>("IMSPDeleteAB", book);
}

Status CAgent::IMSPClearAB(ABIdent* book, const char* filter) {
  return Call<decltype(quillkit::IMSPClearAB)>("IMSPClearAB", book, filter);
}

Status CAgent::IMSPSizeofAB(ABIdent* book, std::uint32_t* count, const char* filter) {
  return Call<decltype(quillkit::IMSPSizeofAB)>("IMSPSizeofAB", book, filter, count);
}

Status CAgent::IMSPReadAB(ABIdent* book, KeyRange* range, void* records, std::uint32_t* count,
                          std::int32_t direction) {
  return CallForCount<decltype(quillkit::IMSPReadAB)>("IMSPReadAB", count, book, range, records,
                                                      count, direction);
}

Status CAgent::IMSPListABEntries(ABIdent* book, KeyRange* range, EntryKey* rows,
                                 std::uint32_t* count, std::int32_t direction) {
  return CallForCount<decltype(quillkit::IMSPListABEntries)>("IMSPListABEntries", count, book,
                                                             range, rows, count, direction);
}

Status CAgent::IMSPListAB(ABIdent* selector, KeyRange* range, ABIdent* books, std::uint32_t* count,
                          std::int32_t direction) {
  // Without a buffer the call only reports the number, which has no limit.
  if (books == nullptr) {
    return Call<decltype(quillkit::IMSPListAB)>("IMSPListAB", selector, range, books, count,
                                                direction);
  }
  return CallForCount<decltype(quillkit::IMSPListAB)>("IMSPListAB", count, selector, range, books,
                                                      count, direction);
}

Status CAgent::IMSPReadPageBoundaries(ABIdent* book, PageBoundary* table, std::uint32_t* count) {
  return CallForCount<decltype(quillkit::IMSPReadPageBoundaries)>("IMSPReadPageBoundaries", count,
                                                                  book, table, count);
}

Status CAgent::IMSPCreateEntry(ABIdent* book, void* record) {
  return Call<decltype(quillkit::IMSPCreateEntry)>("IMSPCreateEntry", book, record);
}

Status CAgent::IMSPReadEntryProperties(ABIdent* book, EntryKey* key, void* record) {
  return Call<decltype(quillkit::IMSPReadEntryProperties)>("IMSPReadEntryProperties", book, key,
                                                           record);
}

Status CAgent::IMSPModifyEntry(ABIdent* book, EntryKey* key, void* record) {
  return Call<decltype(quillkit::IMSPModifyEntry)>("IMSPModifyEntry", book, key, record);
}

Status CAgent::IMSPDeleteEntry(ABIdent* book, EntryKey* key) {
  return Call<decltype(quillkit::IMSPDeleteEntry)>("IMSPDeleteEntry", book, key);
}

Status CAgent::IMSPExport(std::uint32_t first, std::uint32_t second) {
  return Call<decltype(quillkit::IMSPExport)>("IMSPExport", first, second);
}

Status CAgent::IMSPGetExportFile(std::uint32_t first, std::uint32_t second, std::uint32_t third) {
  return Call<decltype(quillkit::IMSPGetExportFile)>("IMSPGetExportFile", first, second, third);
}

Status CAgent::IMSPImport(std::uint32_t first, std::uint32_t second, std::uint32_t third) {
  return Call<decltype(quillkit::IMSPImport)>("IMSPImport", first, second, third);
}

Status CAgent::IMSPImpExpState(std::uint32_t first, std::uint32_t second) {
  return Call<decltype(quillkit::IMSPImpExpState)>("IMSPImpExpState", first, second);
}

Status CAgent::IMSPImpExpAbort() {
  return Call<decltype(quillkit::IMSPImpExpAbort)>("IMSPImpExpAbort");
}

}  // namespace quillkit
