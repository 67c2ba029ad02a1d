// The entry points for the entries of a book.

#include "bridge/imsp_api.h"
#include "simulator/call.h"
#include "simulator/reading.h"
#include "simulator/rights.h"

namespace quillbox {
namespace {

// Serves a call that reads a book other than the log. `work` receives the book.
template <class Work>
Status Read(Appliance& appliance, const ABIdent& book, Work work) {
  const Status status = PermitEntries(appliance.session.User(), book, Action::kRead);
  if (status != kNoError) return status;
  const Book* const found = appliance.contents.store.Find(appliance.PathOf(book));
  return found != nullptr ? work(*found) : kNoSuchBook;
}

// Serves a call that changes an entry. `work` receives the store and the path of the book. `key`
// and `record` are the arguments of the call, or null.
template <class Work>
Status ChangeEntry(Appliance& appliance, const ABIdent& book, EntryKey* key, void* record,
                   Action action, Work work) {
  Status status = PermitEntries(appliance.session.User(), book, action);
  if (status == kNoError) status = work(appliance.contents.store, appliance.PathOf(book));
  appliance.defects.Scribble(book.kind, key, record);
  return status;
}

Status ReadLog(Appliance& appliance, const ABIdent& book, const ReadRequest& request,
               void* records) {
  const Status status = Permit(appliance.session.User(), book, Action::kRead);
  if (status != kNoError) return status;
  return ReadLogRecords(appliance.log, *TypeOf(book.kind), appliance.defects, request, records);
}

bool IsListRename(const BookPath& path) {
  return (path.kind == BookKind::kPublicList || path.kind == BookKind::kPrivateList) &&
         path.name.name == kPrivateBook;
}

// Whether a read has a count, and a buffer if it needs one.
bool IsComplete(const std::uint32_t* count, const void* buffer) {
  return count != nullptr && (buffer != nullptr || *count == 0);
}

}  // namespace
}  // namespace quillbox

namespace quillkit {

using namespace quillbox;

extern "C" {

Status IMSPReadAB(ABIdent* book, KeyRange* range, void* records, std::uint32_t* count,
                  std::int32_t direction) {
  return Serve(
      {"IMSPReadAB", Precondition::kSession, count},
      [=](Appliance& appliance) {
        if (book == nullptr || !IsComplete(count, records)) return kInvalidField;
        const ReadRequest request{range, count, direction};
        if (book->kind == BookKind::kLog) return ReadLog(appliance, *book, request, records);
        return Read(appliance, *book, [&](const Book& found) {
          return ReadRecords(found, *TypeOf(book->kind), appliance.defects, request, records);
        });
      },
      book, range, CountArgument{count}, direction);
}

Status IMSPListABEntries(ABIdent* book, KeyRange* range, EntryKey* rows, std::uint32_t* count,
                         std::int32_t direction) {
  return Serve(
      {"IMSPListABEntries", Precondition::kSession, count},
      [=](Appliance& appliance) {
        if (book == nullptr || !IsComplete(count, rows)) return kInvalidField;
        return Read(appliance, *book, [&](const Book& found) {
          return ReadNames(found, appliance.defects, {range, count, direction}, rows);
        });
      },
      book, range, CountArgument{count}, direction);
}

Status IMSPReadPageBoundaries(ABIdent* book, PageBoundary* table, std::uint32_t* count) {
  return Serve(
      {"IMSPReadPageBoundaries", Precondition::kSession, count},
      [=](Appliance& appliance) {
        if (book == nullptr || !IsComplete(count, table)) return kInvalidField;
        return Read(appliance, *book, [&](const Book& found) {
          return ReadCensus(found, appliance.defects, table, count);
        });
      },
      book, CountArgument{count});
}

Status IMSPReadEntryProperties(ABIdent* book, EntryKey* key, void* record) {
  return Serve(
      {"IMSPReadEntryProperties"},
      [=](Appliance& appliance) {
        if (book == nullptr || key == nullptr || record == nullptr) return kInvalidField;
        return Read(appliance, *book, [&](const Book& found) {
          const Record* const entry = found.Find(*key);
          if (entry == nullptr) return kDataNotFound;
          entry->CopyTo(record);
          appliance.defects.Fill(*TypeOf(book->kind), record);
          return kNoError;
        });
      },
      book, key);
}

Status IMSPCreateEntry(ABIdent* book, void* record) {
  return Serve(
      {"IMSPCreateEntry"},
      [=](Appliance& appliance) {
        if (book == nullptr || record == nullptr) return kInvalidField;
        return ChangeEntry(appliance, *book, nullptr, record, Action::kCreateEntry,
                           [&](Store& store, const BookPath& path) {
                             return store.CreateEntry(path, record, appliance.settings.limits);
                           });
      },
      book, RecordArgument{record});
}

Status IMSPModifyEntry(ABIdent* book, EntryKey* key, void* record) {
  return Serve(
      {"IMSPModifyEntry"},
      [=](Appliance& appliance) {
        if (book == nullptr || key == nullptr || record == nullptr) return kInvalidField;
        return ChangeEntry(appliance, *book, key, record, Action::kChange,
                           [&](Store& store, BookPath path) {
                             if (!IsListRename(path)) return store.ModifyEntry(path, *key, record);
                             path.name = *key;
                             return store.RenameBook(path, NameOf(record));
                           });
      },
      book, key, RecordArgument{record});
}

Status IMSPDeleteEntry(ABIdent* book, EntryKey* key) {
  return Serve(
      {"IMSPDeleteEntry"},
      [=](Appliance& appliance) {
        if (book == nullptr || key == nullptr) return kInvalidField;
        return ChangeEntry(
            appliance, *book, key, nullptr, Action::kChange,
            [&](Store& store, const BookPath& path) { return store.DeleteEntry(path, *key); });
      },
      book, key);
}

}  // extern "C"

}  // namespace quillkit
