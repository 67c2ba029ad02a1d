// The way to the entries of every book: which kind and name each has on the server.

#include "appliance/scanner.h"
#include "bridge/agent.h"

namespace quillkit {

BookAccess<CEmailEntry> CScanner::EmailEntries() const {
  return {agent, BookKind::kEmail, kEmailBook};
}

BookAccess<CEmailEntry> CScanner::PrivateEntries() const {
  return {agent, BookKind::kPrivateEmail, kPrivateBook};
}

BookAccess<CFaxEntry> CScanner::FaxEntries() const {
  return {agent, BookKind::kFax, kFaxBook};
}

BookAccess<CUserEntry> CScanner::UserEntries() const {
  return {agent, BookKind::kUsers, kUsersBook};
}

BookAccess<PrinterRecord> CScanner::PrinterEntries() const {
  return {agent, BookKind::kPrinters, kPrintersBook};
}

BookAccess<PrinterModelRecord> CScanner::ModelEntries() const {
  return {agent, BookKind::kModels, kModelsBook};
}

BookAccess<CEmailEntry> CScanner::PublicList(std::string_view list) const {
  return {agent, BookKind::kPublicList, list};
}

BookAccess<CEmailEntry> CScanner::PrivateList(std::string_view list) const {
  return {agent, BookKind::kPrivateList, list};
}

BookAccess<CFaxEntry> CScanner::FaxList(std::string_view list) const {
  return {agent, BookKind::kFaxList, list};
}

BookAccess<CMenuItem> CScanner::TopEntries() const {
  return {agent, BookKind::kTop, kTopBook};
}

BookAccess<CMenuItem> CScanner::KeyItems(std::string_view key) const {
  return {agent, BookKind::kKeyItems, key};
}

Status CScanner::ListPublicLists(ABIdent* books, std::uint32_t* count) const {
  return ListLists(BookKind::kPublicList, books, count);
}

Status CScanner::ListPrivateLists(ABIdent* books, std::uint32_t* count) const {
  return ListLists(BookKind::kPrivateList, books, count);
}

Status CScanner::ListFaxLists(ABIdent* books, std::uint32_t* count) const {
  return ListLists(BookKind::kFaxList, books, count);
}

Status CScanner::ListLists(BookKind kind, ABIdent* books, std::uint32_t* count) const {
  if (agent == nullptr || !OffersRoom(count)) return kRefused;
  const std::uint32_t capacity = *count;
  ABIdent selector(kind, {});
  KeyRange range({}, "*");
  const Status status = agent->IMSPListAB(&selector, &range, books, count, 1);
  TerminateDelivered(books, capacity, *count, 1);
  return status;
}

Status CScanner::CreatePrivateMembers(std::string_view list, CEmailEntry* members,
                                      const std::uint32_t* count) const {
  if (agent == nullptr) return kRefused;
  BookAccess<CEmailEntry> book = PrivateList(list);
  book.CreateBook();
  for (std::uint32_t i = 0; i < *count; ++i) {
    members[i].BlankPublicAddress();
    const Status status = book.Create(&members[i]);
    if (status != kNoError) return status;
  }
  return kNoError;
}

Status CScanner::ReadPageBoundaries(PageBoundary* table, std::uint32_t* count) const {
  if (agent == nullptr || table == nullptr || !OffersRoom(count)) return kRefused;
  ABIdent book(BookKind::kEmail, kEmailBook);
  return agent->IMSPReadPageBoundaries(&book, table, count);
}

Status CScanner::ServerCall(IOCtlRecord* request) const {
  return agent != nullptr ? agent->IMSPIOCtl(request) : kRefused;
}

Status CScanner::ListKeys(EntryKey* rows, std::uint32_t* count) const {
  return BookAccess<CMenuItem>(agent, BookKind::kTop, {}).ListNames(rows, count);
}

Status CScanner::CreateKeyEntry(CMenuItem* record) const {
  return TopEntries().Create(record);
}

Status CScanner::ModifyKeyEntry(std::string_view key, CMenuItem* record) const {
  return TopEntries().Rename(key, record);
}

Status CScanner::ReadKeyItems(std::string_view key, KeyRange* range, CMenuItem* items,
                              std::uint32_t* count, std::int32_t direction) const {
  return KeyItems(key).Read(range, items, count, direction);
}

Status CScanner::CreateKeyItem(std::string_view key, CMenuItem* item) const {
  return KeyItems(key).Create(item);
}

Status CScanner::ModifyKeyItem(std::string_view key, CMenuItem* item) const {
  return KeyItems(key).Modify(item);
}

Status CScanner::RenameKeyItem(std::string_view key, std::string_view oldName,
                               CMenuItem* item) const {
  return KeyItems(key).Rename(oldName, item);
}

Status CScanner::DeleteKeyItem(std::string_view key, const CMenuItem& item) const {
  return KeyItems(key).Delete(item);
}

Status CScanner::DeleteKeyBook(std::string_view key) const {
  return KeyItems(key).DeleteBook();
}

}  // namespace quillkit
