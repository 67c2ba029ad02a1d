// The bulk reads: which records of a book go where in the caller's buffer.
//
// All of them take the range and direction of bridge/imsp_api.h, read `*count` as the buffer's
// capacity, set it to what they delivered, and give 0, 4 when nothing is left to deliver, or 21
// when more is left than fits.

#ifndef QUILLKIT_SIMULATOR_READING_H_
#define QUILLKIT_SIMULATOR_READING_H_

#include <cstdint>

#include "simulator/lies.h"
#include "simulator/log_book.h"
#include "simulator/protocol.h"
#include "simulator/store.h"

namespace quillbox {

// A capacity and the two directions in which it is used.
struct ReadRequest {
  const KeyRange* range = nullptr;
  std::uint32_t* count = nullptr;
  std::int32_t direction = 1;
};

Status ReadRecords(const Book& book, const BookType& type, const Lies& lies,
                   const ReadRequest& request, void* records);

// The log's records have no names: the range's filter is a user, and its first key means nothing.
Status ReadLogRecords(const LogBook& log, const BookType& type, const Lies& lies,
                      const ReadRequest& request, void* records);

Status ReadNames(const Book& book, const Lies& lies, const ReadRequest& request, EntryKey* rows);

// The identities of books.
Status ReadBooks(const BookSet& books, BookKind kind, const Lies& lies, const ReadRequest& request,
                 ABIdent* rows);

// The census of the names' first bytes. `*count` is the table's capacity; 0 also for an empty book,
// 21 when there are more letters than fit.
Status ReadCensus(const Book& book, const Lies& lies, PageBoundary* table, std::uint32_t* count);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_READING_H_
