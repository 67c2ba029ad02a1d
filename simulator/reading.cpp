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
Status DeliverTo(const ReadRequest& request, const Lies& lies, IndexRun matches, Write write) {
  const std::uint32_t capacity = *request.count;
  const Delivery delivery = Deliver(matches, SkipOf(request), capacity, request.direction);
  for (std::size_t i = 0; i < delivery.count; ++i) {
    write(delivery.begin + i, delivery.slot + lies.Place(i, delivery.count));
  }
  if (delivery.status != kDataNotFound) {
    *request.count = lies.DeliveredCount(delivery.count, capacity);
  }
  return delivery.status;
}

// The same for the matches of a range. `write` receives a name, its value and the slot.
template <class Value, class Write>
Status DeliverMatches(const ReadRequest& request, const Lies& lies, const Ordered<Value>& values,
                      Write write) {
  const IndexRun matches = MatchesOf(values, request.range, request.direction);
  typename Ordered<Value>::Iterator next;
  bool isFirst = true;
  return DeliverTo(request, lies, matches, [&](std::size_t position, std::size_t slot) {
    if (isFirst) next = values.At(position);
    isFirst = false;
    write(next->first, next->second, slot);
    ++next;
  });
}

}  // namespace

Status ReadRecords(const Book& book, const BookType& type, const Lies& lies,
                   const ReadRequest& request, void* records) {
  return DeliverMatches(request, lies, book,
                        [&](const EntryKey&, const Record& record, std::size_t slot) {
                          char* const place = static_cast<char*>(records) + slot * type.recordSize;
                          std::memcpy(place, record.data(), type.recordSize);
                          lies.Fill(type, place);
                        });
}

Status ReadLogRecords(const LogBook& log, const BookType& type, const Lies& lies,
                      const ReadRequest& request, void* records) {
  const std::string_view user = request.range != nullptr ? request.range->filter.View() : "";
  return DeliverTo(request, lies, {0, log.Size(user)}, [&](std::size_t position, std::size_t slot) {
    char* const place = static_cast<char*>(records) + slot * type.recordSize;
    std::memcpy(place, &log.At(user, position), type.recordSize);
    lies.Fill(type, place);
  });
}

Status ReadNames(const Book& book, const Lies& lies, const ReadRequest& request, EntryKey* rows) {
  return DeliverMatches(request, lies, book,
                        [&](const EntryKey& name, const Record&, std::size_t slot) {
                          rows[slot] = name;
                          lies.FillText(reinterpret_cast<char*>(&rows[slot]), sizeof(EntryKey));
                        });
}

Status ReadBooks(const BookSet& books, BookKind kind, const Lies& lies, const ReadRequest& request,
                 ABIdent* rows) {
  return DeliverMatches(request, lies, books,
                        [&](const EntryKey& name, const Book&, std::size_t slot) {
                          ABIdent& row = rows[slot];
                          row.kind = kind;
                          row.name = name.name;
                          lies.FillText(reinterpret_cast<char*>(&row.name), sizeof row.name);
                        });
}

Status ReadCensus(const Book& book, const Lies& lies, PageBoundary* table, std::uint32_t* count) {
  const std::uint32_t capacity = *count;
  std::uint32_t rows = 0;
  std::size_t position = 0;
  while (position < book.Size() && rows < capacity) {
    const char letter = book.At(position)->first.name.View().front();
    const std::size_t end = NameFilter::Beginning({&letter, 1}).Matches(book).end;
    PageBoundary& row = table[rows];
    row = {letter, {}, static_cast<std::int32_t>(end - position)};
    lies.Distort(&row, rows);
    position = end;
    ++rows;
  }
  *count = lies.DeliveredCount(rows, capacity);
  return position < book.Size() ? kMoreData : kNoError;
}

}  // namespace quillbox
