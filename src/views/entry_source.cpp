#include "views/entry_source.h"

#include "bridge/the_agent.h"

namespace quillkit {

Status EntrySource::ReadBoundaries(PageBoundary* table, std::uint32_t* count) const {
  if (scanner != nullptr) return scanner->ReadPageBoundaries(table, count);
  if (table == nullptr || !HasCapacity(count)) return kRefused;
  ABIdent book(BookKind::kEmail, kEmailBook);
  return TheAgent.IMSPReadPageBoundaries(&book, table, count);
}

Status EntrySource::AddEntry(CEmailEntry* entry) const {
  std::uint32_t count = 0;
  if (EntryCount(&count) == kNoError && count >= std::uint32_t{MaxEmailEntries}) return kBookFull;
  return Entries().Create(entry);
}

}  // namespace quillkit
