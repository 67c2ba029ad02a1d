// The entries of address books and distribution lists, and views of the public e-mail book.

#include <algorithm>
#include <memory>
#include <string_view>
#include <type_traits>
#include <vector>

#include "appliance/scanner.h"
#include "base/name_search.h"
#include "books/email_ab.h"
#include "capi/call_frame.h"
#include "capi/entry_records.h"

using namespace quillkit;
using namespace quillkit::capi;

namespace {

using EntriesArgument = ObjectArgument<OpenEntries, Need::kParentAlive>;
using ViewArgument = ObjectArgument<CEmailAB, Need::kParentAlive>;
using EntryResult = Pointer<quill_entry>;
using EntryArgument = Pointer<const quill_entry>;
using CountArgument = Pointer<std::uint32_t>;

std::unique_ptr<OpenEntries> EntriesOf(const CScanner& box, std::int32_t kind,
                                       const std::string& name) {
  const auto opened = [](const auto& access, bool isList) {
    return std::unique_ptr<OpenEntries>(new OpenEntries{access, isList});
  };
  switch (kind) {
    case QUILL_BOOK_EMAIL:
      return opened(box.EmailEntries(), false);
    case QUILL_BOOK_FAX:
      return opened(box.FaxEntries(), false);
    case QUILL_BOOK_USERS:
      return opened(box.UserEntries(), false);
    case QUILL_BOOK_PRINTERS:
      return opened(box.PrinterEntries(), false);
    case QUILL_BOOK_PRIVATE_EMAIL:
      return opened(box.PrivateEntries(), false);
    case QUILL_LIST_EMAIL:
      return opened(box.PublicList(name), true);
    case QUILL_LIST_PRIVATE_EMAIL:
      return opened(box.PrivateList(name), true);
    case QUILL_LIST_FAX:
      return opened(box.FaxList(name), true);
    default:
      return nullptr;
  }
}

template <class Access>
using RecordOf = typename std::decay_t<Access>::Record;

// Calls `use` with the access to the entries.
template <class Use>
Status WithAccess(OpenEntries* entries, Use use) {
  return std::visit(use, entries->access);
}

// Calls `use` with the access and a record of the entry. Returns -1 if the entry is invalid.
template <class Use>
Status WithRecord(OpenEntries* entries, const quill_entry& entry, Use use) {
  return WithAccess(entries, [&](auto& access) {
    Wiped<RecordOf<decltype(access)>> record;
    return LoadRecord(entry, record) ? use(access, &record) : kRefused;
  });
}

Status ReadEntry(OpenEntries* entries, const std::string& name, quill_entry* entry) {
  return WithAccess(entries, [&](auto& access) {
    Wiped<RecordOf<decltype(access)>> record;
    std::get<0>(Texts(record)).Set(name);
    const Status status = access.ReadOne(&record);
    if (status == kNoError) StoreEntry(record, *entry);
    return status;
  });
}

// Whether a read with this status delivers entries.
bool IsRead(Status status) {
  return status == kNoError || status == kMoreData;
}

// Stores a count of 0 after a read that delivers nothing, also if an argument was refused.
Status CountRead(Status status, std::uint32_t* count) {
  if (!IsRead(status) && count != nullptr) *count = 0;
  return status;
}

Status ReadPage(OpenEntries* entries, KeyRange range, std::int32_t direction, quill_entry* page,
                std::uint32_t* count) {
  return WithAccess(entries, [&](auto& access) {
    using Record = RecordOf<decltype(access)>;
    const std::uint32_t capacity = std::min<std::uint32_t>(*count, MaxEmailEntries);
    std::vector<Record> records(capacity);
    const ScopeExit wipe([&] {
      if (!records.empty()) WipeBytes(records.data(), records.size() * sizeof(Record));
    });
    *count = capacity;
    const Status status = access.Read(&range, records.data(), count, direction);
    if (!IsRead(status)) return status;
    const Record* first = records.data() + (direction == 1 ? 0 : capacity - *count);
    for (std::uint32_t i = 0; i < *count; ++i) StoreEntry(first[i], page[i]);
    return status;
  });
}

Status EnumerateLists(const CScanner* box, std::int32_t kind, quill_entry* lists,
                      std::uint32_t* count) {
  std::vector<ABIdent> names(std::min<std::uint32_t>(*count, MaxPublicLists));
  *count = static_cast<std::uint32_t>(names.size());
  Status status = QUILL_E_ARGUMENT;
  if (kind == QUILL_LIST_EMAIL) status = box->ListPublicLists(names.data(), count);
  if (kind == QUILL_LIST_PRIVATE_EMAIL) status = box->ListPrivateLists(names.data(), count);
  if (kind == QUILL_LIST_FAX) status = box->ListFaxLists(names.data(), count);
  if (!IsRead(status)) return status;
  for (std::uint32_t i = 0; i < *count; ++i) {
    lists[i] = {};
    names[i].name.View().copy(lists[i].name, sizeof lists[i].name - 1);
  }
  return status;
}

Status ChangeList(OpenEntries* entries, auto change) {
  return entries->isList ? WithAccess(entries, change) : QUILL_E_ARGUMENT;
}

// Moves a full view to one of its entries, which Last and GetAt do not do. Makes no server call.
CEmailEntry* MoveTo(CEmailAB& view, CEmailEntry* target) {
  if (target == nullptr || view.ViewMode() != QUILL_VIEW_FULL) return target;
  const CEmailEntry* reached = view.First();
  while (reached != nullptr && reached != target) reached = view.Next();
  return target;
}

CEmailEntry* Go(CEmailAB& view, std::int32_t where, std::int32_t index) {
  switch (where) {
    case QUILL_GO_FIRST:
      return view.First();
    case QUILL_GO_LAST:
      return MoveTo(view, view.Last());
    case QUILL_GO_NEXT:
      return view.Next();
    case QUILL_GO_PREV:
      return view.Prev();
    default:
      return MoveTo(view, view.GetAt(index));
  }
}

// Returns the entry if its name matches, otherwise null: a full view returns the nearest entry if
// there is no match.
CEmailEntry* Matching(CEmailEntry* entry, std::string_view key, bool wholeName) {
  return entry != nullptr && NameMatches(entry->name.View(), key, wholeName) ? entry : nullptr;
}

CEmailEntry* Find(CEmailAB& view, std::int32_t what, const std::string& key) {
  switch (what) {
    case QUILL_FIND_NAME:
      return Matching(view.Find(key, 1), key, true);
    case QUILL_FIND_PREFIX:
      return Matching(view.FindPrefix(key), key, false);
    case QUILL_FIND_LETTER:
      return Matching(view.FindLetter(key.c_str()[0]), key.substr(0, 1), key.empty());
    default:
      return view.FindNextPrefix();
  }
}

// Calls `move` and copies the entry that it returns. Reports the status of the server if there is
// none because a call failed.
template <class Move>
Status CopyEntryOf(Move move, quill_entry* entry) {
  const RecordedStatus recorded;
  if (const CEmailEntry* found = move(); found != nullptr) {
    StoreEntry(*found, *entry);
    return kNoError;
  }
  const Status status = recorded.Get();
  return IsRead(status) ? kDataNotFound : status;
}

Status OpenView(const HandleResult& result, CScanner* box, std::int32_t mode) {
  auto view = std::make_unique<CEmailAB>();
  const RecordedStatus recorded;
  if (view->Attach(box, mode) == 0) {
    const Status status = recorded.Get();
    return status != kNoError ? status : kRefused;
  }
  result.StoreForApplication(view.release(), std::default_delete<CEmailAB>());
  return kNoError;
}

template <class Object>
Status Close(Object* object) {
  Handles().End(object);
  delete object;
  return kNoError;
}

}  // namespace

int32_t quill_open_entries(quill_handle scanner, int32_t kind, const char* name,
                           quill_handle* entries) {
  return InTurn(
      [=](const HandleResult& result, const CScanner* box, const std::string& list) {
        std::unique_ptr<OpenEntries> opened = EntriesOf(*box, kind, list);
        if (opened == nullptr) return std::int32_t{QUILL_E_ARGUMENT};
        result.StoreForApplication(opened.release(), std::default_delete<OpenEntries>());
        return kNoError;
      },
      HandleResult(entries, scanner), ScannerArgument(scanner), TextArgument(name));
}

int32_t quill_close_entries(quill_handle entries) {
  return InTurn(Close<OpenEntries>, ObjectArgument<OpenEntries>(entries));
}

int32_t quill_entry_count(quill_handle entries, uint32_t* count) {
  return InTurn(
      [](OpenEntries* opened, std::uint32_t* result) {
        return WithAccess(opened, [=](auto& access) { return access.Size(result); });
      },
      EntriesArgument(entries), CountArgument(count));
}

int32_t quill_read_entries(quill_handle entries, const char* first, const char* filter,
                           int32_t skip, int32_t direction, quill_entry* page, uint32_t* count) {
  const Status status = InTurn(
      [](OpenEntries* opened, const std::string& after, const std::string& pattern,
         std::int32_t skipped, std::int32_t way, quill_entry* target, std::uint32_t* size) {
        return ReadPage(opened, {after, pattern, skipped}, way, target, size);
      },
      EntriesArgument(entries), TextArgument(first), TextArgument(filter),
      Choice(skip, MaxEmailEntries), Choice(direction, 1), EntryResult(page), CountArgument(count));
  return CountRead(status, count);
}

int32_t quill_read_entry(quill_handle entries, const char* name, quill_entry* entry) {
  return InTurn(ReadEntry, EntriesArgument(entries), TextArgument(name), EntryResult(entry));
}

int32_t quill_add_entry(quill_handle entries, const quill_entry* entry) {
  return InTurn(
      [](OpenEntries* opened, const quill_entry* added) {
        return WithRecord(opened, *added,
                          [](auto& access, auto* record) { return access.Create(record); });
      },
      EntriesArgument(entries), EntryArgument(entry));
}

int32_t quill_modify_entry(quill_handle entries, const quill_entry* entry) {
  return InTurn(
      [](OpenEntries* opened, const quill_entry* changed) {
        return WithRecord(opened, *changed,
                          [](auto& access, auto* record) { return access.Modify(record); });
      },
      EntriesArgument(entries), EntryArgument(entry));
}

int32_t quill_rename_entry(quill_handle entries, const char* old_name, const quill_entry* entry) {
  return InTurn(
      [](OpenEntries* opened, const std::string& name, const quill_entry* renamed) {
        return WithRecord(opened, *renamed,
                          [&](auto& access, auto* record) { return access.Rename(name, record); });
      },
      EntriesArgument(entries), TextArgument(old_name), EntryArgument(entry));
}

int32_t quill_delete_entry(quill_handle entries, const char* name) {
  return InTurn(
      [](OpenEntries* opened, const std::string& deleted) {
        return WithAccess(opened, [&](auto& access) { return access.Delete(deleted); });
      },
      EntriesArgument(entries), TextArgument(name));
}

int32_t quill_enumerate_lists(quill_handle scanner, int32_t kind, quill_entry* lists,
                              uint32_t* count) {
  const Status status = InTurn(EnumerateLists, ScannerArgument(scanner), kind, EntryResult(lists),
                               CountArgument(count));
  return CountRead(status, count);
}

int32_t quill_create_list(quill_handle entries) {
  return InTurn(
      [](OpenEntries* list) {
        return ChangeList(list, [](auto& access) { return access.CreateBook(); });
      },
      EntriesArgument(entries));
}

int32_t quill_delete_list(quill_handle entries) {
  return InTurn(
      [](OpenEntries* list) {
        return ChangeList(list, [](auto& access) { return access.DeleteBook(); });
      },
      EntriesArgument(entries));
}

int32_t quill_open_view(quill_handle scanner, int32_t mode, quill_handle* view) {
  return InTurn(OpenView, HandleResult(view, scanner), ScannerArgument(scanner),
                Choice(mode, QUILL_VIEW_FULL));
}

int32_t quill_close_view(quill_handle view) {
  return InTurn(Close<CEmailAB>, ObjectArgument<CEmailAB>(view));
}

int32_t quill_view_go(quill_handle view, int32_t where, int32_t index, quill_entry* entry) {
  return InTurn(
      [](CEmailAB* moved, std::int32_t place, std::int32_t at, quill_entry* result) {
        // NOLINTNEXTLINE(clang-analyzer-core.NonNullParamChecker): the argument was checked
        return CopyEntryOf([=] { return Go(*moved, place, at); }, result);
      },
      ViewArgument(view), Choice(where, QUILL_GO_AT), index, EntryResult(entry));
}

int32_t quill_view_find(quill_handle view, int32_t what, const char* key, quill_entry* entry) {
  return InTurn(
      [](CEmailAB* moved, std::int32_t sought, const std::string& text, quill_entry* result) {
        return CopyEntryOf([&] { return Find(*moved, sought, text); }, result);
      },
      ViewArgument(view), Choice(what, QUILL_FIND_NEXT), TextArgument(key), EntryResult(entry));
}
