#include "simulator/reading.h"

#include <cstring>

#include "simulator/selection.h"

namespace quillbox {
namespace {

std::int32_t SkipOf(const ReadRequest& request) {
  return request.range != nullptr ? request.range->skip : 0;
}

// Delivers a part of `matches`. `write` receives a position and its slot.
template <class Write>
Status DeliverTo(const ReadRequest& request, const ReplyDefects& defects, IndexRun matches,
                 Write write) {
  const std::uint32_t capacity = *request.count;
  const Delivery delivery = Deliver(matches, SkipOf(request), capacity, request.direction);
  for (std::size_t i = 0; i < delivery.count; ++i) {
    write(delivery.begin + i, delivery.slot + defects.SlotOf(i, delivery.count));
  }
  if (delivery.status != kDataNotFound) {
    *request.count = defects.DeliveredCount(delivery.count, capacity);
  }
  return delivery.status;
}

// The same for the matches of a range. `write` receives a name, its value and the slot.
template <class Value, class Write>
Status DeliverMatches(const ReadRequest& request, const ReplyDefects& defects,
                      const Ordered<Value>& values, Write write) {
  const IndexRun matches = MatchesOf(values, request.range, request.direction);
  typename Ordered<Value>::Iterator next;
  bool isFirst = true;
  return DeliverTo(request, defects, matches, [&](std::size_t position, std::size_t slot) {
    if (isFirst) next = values.At(position);
    isFirst = false;
    write(next->first, next->second, slot);
    ++next;
  });
}

}  // namespace

Status ReadRecords(const Book& book, const BookType& type, const ReplyDefects& defects,
                   const ReadRequest& request, void* records) {
  return DeliverMatches(request, defects, book,
                        [&](const EntryKey&, const Record& record, std::size_t slot) {
                          char* const place = static_cast<char*>(records) + slot * type.recordSize;
                          record.CopyTo(place);
                          defects.Fill(type, place);
                        });
}

Status ReadLogRecords(const LogBook& log, const BookType& type, const ReplyDefects& defects,
                      const ReadRequest& request, void* records) {
  const std::string_view user = request.range != nullptr ? request.range->filter.View() : "";
  return DeliverTo(request, defects, {0, log.Size(user)},
                   [&](std::size_t position, std::size_t slot) {
                     char* const place = static_cast<char*>(records) + slot * type.recordSize;
                     std::memcpy(place, &log.At(user, position), type.recordSize);
                     defects.Fill(type, place);
                   });
}

Status ReadNames(const Book& book, const ReplyDefects& defects, const ReadRequest& request,
                 EntryKey* rows) {
  return DeliverMatches(request, defects, book,
                        [&](const EntryKey& name, const Record&, std::size_t slot) {
                          rows[slot] = name;
                          defects.FillText(reinterpret_cast<char*>(&rows[slot]), sizeof(EntryKey));
                        });
}

Status ReadBooks(const BookSet& books, BookKind kind, const ReplyDefects& defects,
                 const ReadRequest& request, ABIdent* rows) {
  return DeliverMatches(request, defects, books,
                        [&](const EntryKey& name, const Book&, std::size_t slot) {
                          ABIdent& row = rows[slot];
                          row.kind = kind;
                          row.name = name.name;
                          defects.FillText(reinterpret_cast<char*>(&row.name), sizeof row.name);
                        });
}

Status ReadCensus(const Book& book, const ReplyDefects& defects, PageBoundary* table,
                  std::uint32_t* count) {
  const std::uint32_t capacity = *count;
  std::uint32_t rows = 0;
  std::size_t position = 0;
  while (position < book.Size() && rows < capacity) {
    const char letter = book.At(position)->first.name.View().front();
    const std::size_t end = NameFilter::Beginning({&letter, 1}).Matches(book).end;
    PageBoundary& row = table[rows];
    row = {letter, {}, static_cast<std::int32_t>(end - position)};
    defects.Distort(&row, rows);
    position = end;
    ++rows;
  }
  *count = defects.DeliveredCount(rows, capacity);
  return position < book.Size() ? kMoreData : kNoError;
}

}  // namespace quillbox
