#include "simulator/store.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "simulator/protocol.h"
#include "simulator/selection.h"

namespace quillbox {
namespace {

// The permanent accounts and their initial passwords.
constexpr std::pair<std::string_view, std::string_view> kPermanentAccounts[] = {
    {kAdministratorName, "quill"}, {kToolkitName, "KELP"}, {kGuestName, ""}};

bool IsPermanent(BookKind kind, const EntryKey& key) {
  return kind == BookKind::kUsers &&
         std::ranges::any_of(kPermanentAccounts,
                             [&key](const auto& account) { return key.name == account.first; });
}

bool IsUsableName(const EntryKey& name) {
  return !name.name.IsEmpty() && name.name.IsTerminated();
}

bool IsEmptiedByDelete(BookKind kind) {
  return kind == BookKind::kEmail || kind == BookKind::kPrinters || kind == BookKind::kPrivateEmail;
}

// The entry of a key in the top-level book.
CMenuItem KeyEntry(const EntryKey& key) {
  CMenuItem entry;
  entry.SetName(key.name.View());
  return entry;
}

}  // namespace

Store::Store() {
  for (const auto& [name, password] : kPermanentAccounts) {
    CUserEntry account;
    account.SetName(name);
    account.SetPassword(password);
    Put({BookKind::kUsers, {}, {}}, &account);
  }
}

std::string_view Store::InitialPassword(std::string_view account) {
  for (const auto& [name, password] : kPermanentAccounts) {
    if (name == account) return password;
  }
  return {};
}

void Store::AddChanges(StoreChanges more) {
  if (changes.isWhole) return;
  if (more.isWhole) {
    MarkWhole();
  } else {
    std::ranges::move(more.places, std::back_inserter(changes.places));
  }
}

Store::BookGroup& Store::GroupOf(const BookType& type, std::string_view user) {
  if (!type.isPrivate) return publicBooks;
  const auto found = privateBooks.find(user);
  return found != privateBooks.end() ? found->second : privateBooks[std::string(user)];
}

Book* Store::Find(const BookPath& path) {
  const BookType* const type = TypeOf(path.kind);
  if (type == nullptr || path.kind == BookKind::kLog) return nullptr;
  if (!type->IsFixed()) return BooksOf(path.kind, path.user)->Find(path.name);
  return &GroupOf(*type, path.user).fixed[path.kind];
}

BookSet* Store::BooksOf(BookKind kind, std::string_view user) {
  const BookType* const type = TypeOf(kind);
  return type != nullptr && !type->IsFixed() ? &GroupOf(*type, user).named[kind] : nullptr;
}

Status Store::CreateBook(const BookPath& path, const Limits& limits) {
  const BookType* const type = TypeOf(path.kind);
  if (type == nullptr) return kNoSuchBook;
  if (type->IsFixed() || path.name.name == kPrivateBook) return kDuplicateBook;
  if (!IsUsableName(path.name)) return kInvalidField;
  BookSet& books = *BooksOf(path.kind, path.user);
  if (books.Find(path.name) != nullptr) return kDuplicateBook;
  if (path.kind == BookKind::kKeyItems) {
    const CMenuItem entry = KeyEntry(path.name);
    return CreateEntry({BookKind::kTop, {}, {}}, &entry, limits);
  }
  if (limits.HasAllBooks(path.kind, books.Size())) return kBookFull;
  books[path.name];
  Note(path);
  return kNoError;
}

Status Store::DeleteBook(const BookPath& path) {
  const BookType* const type = TypeOf(path.kind);
  if (type == nullptr) return kNoSuchBook;
  if (path.kind == BookKind::kKeyItems) {
    const Status status = DeleteEntry({BookKind::kTop, {}, {}}, path.name);
    return status == kDataNotFound ? kNoSuchBook : status;
  }
  if (!type->IsFixed()) {
    if (!BooksOf(path.kind, path.user)->Erase(path.name)) return kNoSuchBook;
    Note(path);
    return kNoError;
  }
  return IsEmptiedByDelete(path.kind) ? ClearBook(path, {}) : kStaticBook;
}

Status Store::RenameBook(const BookPath& path, const EntryKey& name) {
  BookSet* const books = BooksOf(path.kind, path.user);
  if (books == nullptr || books->Find(path.name) == nullptr) return kNoSuchBook;
  if (!IsUsableName(name)) return kInvalidField;
  if (name == path.name) return kNoError;
  if (name.name == kPrivateBook || books->Find(name) != nullptr) return kDuplicateBook;
  books->Rename(path.name, name);
  Note(path);
  Note({path.kind, name, path.user});
  return kNoError;
}

Status Store::ClearBook(const BookPath& path, std::string_view filter) {
  Book* const book = Find(path);
  if (book == nullptr) return kNoSuchBook;
  IndexRun run = NameFilter(filter).Matches(*book);
  const bool isWhole = run.Size() != 0 && run.Size() == book->Size();
  while (run.Size() != 0) {
    const EntryKey key = book->At(run.begin)->first;
    if (IsPermanent(path.kind, key)) {
      ++run.begin;
      continue;
    }
    book->Erase(key);
    OnErased(path, key);
    if (!isWhole) Note(path, key);
    --run.end;
  }
  if (isWhole) Note(path);
  return kNoError;
}

Status Store::CreateEntry(const BookPath& path, const void* record, const Limits& limits) {
  Book* const book = Find(path);
  if (book == nullptr) return kNoSuchBook;
  const BookType& type = *TypeOf(path.kind);
  if (!IsStorable(type, record)) return kInvalidField;
  if (book->Find(NameOf(record)) != nullptr) return kNameConflict;
  if (limits.IsFull(path.kind, book->Size())) return kBookFull;
  Insert(*book, path, record);
  return kNoError;
}

Status Store::ModifyEntry(const BookPath& path, const EntryKey& key, const void* record) {
  Book* const book = Find(path);
  if (book == nullptr) return kNoSuchBook;
  const BookType& type = *TypeOf(path.kind);
  if (book->Find(key) == nullptr) return kDataNotFound;
  if (!IsStorable(type, record)) return kInvalidField;
  const EntryKey name = NameOf(record);
  if (!(name == key)) {
    if (book->Find(name) != nullptr) return kNameConflict;
    if (IsPermanent(path.kind, key)) return kAccessDenied;
    book->Rename(key, name);
    OnRenamed(path, key, name);
  }
  Insert(*book, path, record);
  return kNoError;
}

Status Store::DeleteEntry(const BookPath& path, const EntryKey& key) {
  Book* const book = Find(path);
  if (book == nullptr) return kNoSuchBook;
  if (IsPermanent(path.kind, key)) return kAccessDenied;
  if (!book->Erase(key)) return kDataNotFound;
  OnErased(path, key);
  Note(path, key);
  return kNoError;
}

Status Store::Put(const BookPath& path, const void* record, const Limits& limits) {
  const BookType* const type = TypeOf(path.kind);
  if (type == nullptr) return kNoSuchBook;
  if (!IsStorable(*type, record)) return kInvalidField;
  if (!type->IsFixed() && Find(path) == nullptr) {
    const Status status = CreateBook(path, limits);
    if (status != kNoError) return status;
  }
  return PutInto(*Find(path), path, record, limits);
}

Status Store::PutInto(Book& book, const BookPath& path, const void* record, const Limits& limits) {
  if (!IsStorable(*TypeOf(path.kind), record)) return kInvalidField;
  if (limits.IsFull(path.kind, book.Size()) && book.Find(NameOf(record)) == nullptr) {
    return kBookFull;
  }
  Insert(book, path, record);
  return kNoError;
}

// Notes a change of an entry, or of a whole book.
void Store::Note(const BookPath& path, const std::optional<EntryKey>& entry) {
  if (changes.isWhole) return;
  const BookType& type = *TypeOf(path.kind);
  changes.places.push_back({path.kind, type.IsFixed() ? EntryKey(type.fixedName) : path.name,
                            std::string(type.isPrivate ? path.user : std::string_view()), entry});
}

// Stores a storable record under its name. Replaces an existing one.
void Store::Insert(Book& book, const BookPath& path, const void* record) {
  const EntryKey key = NameOf(record);
  book[key] = Record({static_cast<const char*>(record), TypeOf(path.kind)->recordSize});
  if (path.kind == BookKind::kTop) KeyBooks()[key];
  Note(path, key);
}

void Store::OnErased(const BookPath& path, const EntryKey& key) {
  if (path.kind == BookKind::kTop) KeyBooks().Erase(key);
  if (path.kind != BookKind::kUsers) return;
  const auto found = privateBooks.find(key.name.View());
  if (found != privateBooks.end()) privateBooks.erase(found);
}

// The books that move with the entry are noted after it.
void Store::OnRenamed(const BookPath& path, const EntryKey& from, const EntryKey& to) {
  Note(path, from);
  Note(path, to);
  if (path.kind == BookKind::kTop) {
    KeyBooks().Rename(from, to);
    Note({BookKind::kKeyItems, to, {}});
  }
  if (path.kind != BookKind::kUsers) return;
  auto group = privateBooks.extract(std::string(from.name.View()));
  if (group.empty()) return;
  privateBooks.erase(std::string(to.name.View()));
  group.key() = to.name.View();
  const auto moved = privateBooks.insert(std::move(group)).position;
  const auto note = [this](const BookPath& book, const Book&) { Note(book); };
  VisitGroup(moved->second, moved->first, note);
}

}  // namespace quillbox
