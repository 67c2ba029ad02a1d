// The entry points for books and entries.

#include <cstring>
#include <string_view>

#include "bridge/imsp_api.h"
#include "simulator/call.h"
#include "simulator/reading.h"
#include "simulator/rights.h"
#include "simulator/selection.h"

namespace quillkit {
namespace {

// Whether the session may do this with the book: 0, 3 for one that cannot exist, or 11.
Status Permit(const Appliance& appliance, const ABIdent& book, Action action) {
  const BookType* const type = TypeOf(book.kind);
  if (type == nullptr || !type->Accepts(book.name)) return kNoSuchBook;
  return MayUse(appliance.session.User(), book.kind, action) ? kNoError : kAccessDenied;
}

// As Permit, for what the log does not offer: 13.
Status PermitEntries(const Appliance& appliance, const ABIdent& book, Action action) {
  const Status status = Permit(appliance, book, action);
  return status == kNoError && book.kind == BookKind::kLog ? kNotImplemented : status;
}

bool IsListRename(const ABIdent& book) {
  return (book.kind == BookKind::kPublicList || book.kind == BookKind::kPrivateList) &&
         book.name == kPrivateBook;
}

std::string_view TextOf(const char* filter) {
  return filter != nullptr ? std::string_view(filter) : std::string_view();
}

Status Clear(Appliance& appliance, const ABIdent& book, std::string_view filter) {
  const Status status = Permit(appliance, book, Action::kChange);
  if (status != kNoError) return status;
  if (book.kind != BookKind::kLog) return appliance.store.ClearBook(appliance.PathOf(book), filter);
  appliance.log.Clear(filter);
  return kNoError;
}

Status Measure(Appliance& appliance, const ABIdent& book, std::string_view filter,
               std::uint32_t* count) {
  const Status status = Permit(appliance, book, Action::kRead);
  if (status != kNoError) return status;
  if (book.kind == BookKind::kLog) {
    *count = appliance.lies.Size(appliance.log.Size(filter));
    return kNoError;
  }
  const Book* const found = appliance.store.Find(appliance.PathOf(book));
  if (found == nullptr) return kNoSuchBook;
  *count = appliance.lies.Size(NameFilter(filter).Matches(*found).Size());
  return kNoError;
}

Status Read(Appliance& appliance, const ABIdent& book, const ReadRequest& request, void* records) {
  const Status status = Permit(appliance, book, Action::kRead);
  if (status != kNoError) return status;
  const BookType& type = *TypeOf(book.kind);
  if (book.kind == BookKind::kLog) {
    return ReadLogRecords(appliance.log, type, appliance.lies, request, records);
  }
  const Book* const found = appliance.store.Find(appliance.PathOf(book));
  if (found == nullptr) return kNoSuchBook;
  return ReadRecords(*found, type, appliance.lies, request, records);
}

Status Enumerate(Appliance& appliance, const ABIdent& selector, const ReadRequest& request,
                 ABIdent* rows) {
  const Status status = Permit(appliance, selector, Action::kRead);
  if (status != kNoError) return status;
  if (!selector.name.IsEmpty()) return kInvalidField;
  const BookSet* const books = appliance.store.BooksOf(selector.kind, appliance.session.User());
  if (books == nullptr) return kNoSuchBook;
  if (rows != nullptr) return ReadBooks(*books, selector.kind, appliance.lies, request, rows);
  *request.count = appliance.lies.Size(MatchesOf(*books, request.range, 1).Size());
  return kNoError;
}

Status ReadEntry(Appliance& appliance, const ABIdent& book, const EntryKey& key, void* record) {
  const Status status = PermitEntries(appliance, book, Action::kRead);
  if (status != kNoError) return status;
  const Book* const found = appliance.store.Find(appliance.PathOf(book));
  if (found == nullptr) return kNoSuchBook;
  const Record* const entry = found->Find(key);
  if (entry == nullptr) return kDataNotFound;
  std::memcpy(record, entry->data(), entry->size());
  appliance.lies.Fill(*TypeOf(book.kind), record);
  return kNoError;
}

Status Modify(Appliance& appliance, const ABIdent& book, const EntryKey& key, const void* record) {
  const Status status = PermitEntries(appliance, book, Action::kChange);
  if (status != kNoError) return status;
  BookPath path = appliance.PathOf(book);
  if (!IsListRename(book)) return appliance.store.ModifyEntry(path, key, record);
  path.name = key;
  return appliance.store.RenameBook(path, NameOf(record));
}

// Whether a read has a count, and a buffer where one is needed.
bool IsComplete(const std::uint32_t* count, const void* buffer) {
  return count != nullptr && (buffer != nullptr || *count == 0);
}

}  // namespace

extern "C" {

Status IMSPCreateAB(ABIdent* book) {
  return Serve(
      {"IMSPCreateAB"},
      [book](Appliance& appliance) {
        if (book == nullptr) return kInvalidField;
        const Status status = Permit(appliance, *book, Action::kChange);
        if (status != kNoError) return status;
        return appliance.store.CreateBook(appliance.PathOf(*book));
      },
      book);
}

Status IMSPDeleteAB(ABIdent* book) {
  return Serve(
      {"IMSPDeleteAB"},
      [book](Appliance& appliance) {
        if (book == nullptr) return kInvalidField;
        const Status status = Permit(appliance, *book, Action::kChange);
        if (status != kNoError) return status;
        return appliance.store.DeleteBook(appliance.PathOf(*book));
      },
      book);
}

Status IMSPClearAB(ABIdent* book, const char* filter) {
  return Serve(
      {"IMSPClearAB"},
      [=](Appliance& appliance) {
        return book != nullptr ? Clear(appliance, *book, TextOf(filter)) : kInvalidField;
      },
      book, filter);
}

Status IMSPSizeofAB(ABIdent* book, const char* filter, std::uint32_t* count) {
  return Serve(
      {"IMSPSizeofAB", Need::kSession, count},
      [=](Appliance& appliance) {
        if (book == nullptr || count == nullptr) return kInvalidField;
        return Measure(appliance, *book, TextOf(filter), count);
      },
      book, filter);
}

Status IMSPReadAB(ABIdent* book, KeyRange* range, void* records, std::uint32_t* count,
                  std::int32_t direction) {
  return Serve(
      {"IMSPReadAB", Need::kSession, count},
      [=](Appliance& appliance) {
        if (book == nullptr || !IsComplete(count, records)) return kInvalidField;
        return Read(appliance, *book, {range, count, direction}, records);
      },
      book, range, CountArgument{count}, direction);
}

Status IMSPListABEntries(ABIdent* book, KeyRange* range, EntryKey* rows, std::uint32_t* count,
                         std::int32_t direction) {
  return Serve(
      {"IMSPListABEntries", Need::kSession, count},
      [=](Appliance& appliance) {
        if (book == nullptr || !IsComplete(count, rows)) return kInvalidField;
        const Status status = PermitEntries(appliance, *book, Action::kRead);
        if (status != kNoError) return status;
        const Book* const found = appliance.store.Find(appliance.PathOf(*book));
        if (found == nullptr) return kNoSuchBook;
        return ReadNames(*found, appliance.lies, {range, count, direction}, rows);
      },
      book, range, CountArgument{count}, direction);
}

Status IMSPListAB(ABIdent* selector, KeyRange* range, ABIdent* books, std::uint32_t* count,
                  std::int32_t direction) {
  return Serve(
      {"IMSPListAB", Need::kSession, count},
      [=](Appliance& appliance) {
        if (selector == nullptr || count == nullptr) return kInvalidField;
        return Enumerate(appliance, *selector, {range, count, direction}, books);
      },
      selector, range, CountArgument{books != nullptr ? count : nullptr}, direction);
}

Status IMSPReadPageBoundaries(ABIdent* book, PageBoundary* table, std::uint32_t* count) {
  return Serve(
      {"IMSPReadPageBoundaries", Need::kSession, count},
      [=](Appliance& appliance) {
        if (book == nullptr || !IsComplete(count, table)) return kInvalidField;
        const Status status = PermitEntries(appliance, *book, Action::kRead);
        if (status != kNoError) return status;
        const Book* const found = appliance.store.Find(appliance.PathOf(*book));
        if (found == nullptr) return kNoSuchBook;
        return ReadCensus(*found, appliance.lies, table, count);
      },
      book, CountArgument{count});
}

Status IMSPCreateEntry(ABIdent* book, void* record) {
  return Serve(
      {"IMSPCreateEntry"},
      [=](Appliance& appliance) {
        if (book == nullptr || record == nullptr) return kInvalidField;
        const Status status = PermitEntries(appliance, *book, Action::kCreateEntry);
        if (status != kNoError) return status;
        return appliance.store.CreateEntry(appliance.PathOf(*book), record);
      },
      book, RecordArgument{record});
}

Status IMSPReadEntryProperties(ABIdent* book, EntryKey* key, void* record) {
  return Serve(
      {"IMSPReadEntryProperties"},
      [=](Appliance& appliance) {
        if (book == nullptr || key == nullptr || record == nullptr) return kInvalidField;
        return ReadEntry(appliance, *book, *key, record);
      },
      book, key);
}

Status IMSPModifyEntry(ABIdent* book, EntryKey* key, void* record) {
  return Serve(
      {"IMSPModifyEntry"},
      [=](Appliance& appliance) {
        if (book == nullptr || key == nullptr || record == nullptr) return kInvalidField;
        return Modify(appliance, *book, *key, record);
      },
      book, key, RecordArgument{record});
}

Status IMSPDeleteEntry(ABIdent* book, EntryKey* key) {
  return Serve(
      {"IMSPDeleteEntry"},
      [=](Appliance& appliance) {
        if (book == nullptr || key == nullptr) return kInvalidField;
        const Status status = PermitEntries(appliance, *book, Action::kChange);
        if (status != kNoError) return status;
        return appliance.store.DeleteEntry(appliance.PathOf(*book), *key);
      },
      book, key);
}

}  // extern "C"

}  // namespace quillkit
