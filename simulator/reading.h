// The bulk reads: copy records of a book into the caller's buffer.
//
// All except ReadCensus use the range and direction of bridge/imsp_api.h. They read `*count` as the
// capacity of the buffer and set it to the number of records delivered. They return 0; 4 if there
// is nothing to deliver, with `*count` unchanged; 21 if there is more than fits.

#ifndef QUILLKIT_SIMULATOR_READING_H_
#define QUILLKIT_SIMULATOR_READING_H_

#include <cstdint>

#include "simulator/log_book.h"
#include "simulator/protocol.h"
#include "simulator/reply_defects.h"
#include "simulator/store.h"

namespace quillbox {

// The range, the capacity (input) or delivered number (output), and the direction of a read.
struct ReadRequest {
  const KeyRange* range = nullptr;
  std::uint32_t* count = nullptr;
  std::int32_t direction = 1;
};

Status ReadRecords(const Book& book, const BookType& type, const ReplyDefects& defects,
                   const ReadRequest& request, void* records);

// Records of the log have no names: the filter of the range is a user, and its first key is
// ignored.
Status ReadLogRecords(const LogBook& log, const BookType& type, const ReplyDefects& defects,
                      const ReadRequest& request, void* records);

Status ReadNames(const Book& book, const ReplyDefects& defects, const ReadRequest& request,
                 EntryKey* rows);

// The identities of books.
Status ReadBooks(const BookSet& books, BookKind kind, const ReplyDefects& defects,
                 const ReadRequest& request, ABIdent* rows);

// The census of the first bytes of all names. `*count` is the capacity of the table. Returns 0,
// also for an empty book; 21 if there are more letters than fit.
Status ReadCensus(const Book& book, const ReplyDefects& defects, PageBoundary* table,
                  std::uint32_t* count);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_READING_H_
