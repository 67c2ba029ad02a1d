// The contents of all books except the log. A copy is a backup.
//
// Invariants:
//   1. A book with a fixed name always exists, even if it is empty.
//   2. Each entry of the top-level book has a key book of the same name, and the reverse. They are
//      created, deleted and renamed together.
//   3. The private books of a user are renamed and deleted with the account of the user.
//   4. The accounts ADMINISTRATOR, TOOLKIT and GUEST are permanent. Clearing the users' book keeps
//      them.
//   5. Every record is storable (IsStorable) and is stored under the name in its first field.

#ifndef QUILLKIT_SIMULATOR_STORE_H_
#define QUILLKIT_SIMULATOR_STORE_H_

#include <cstdint>
#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/secret.h"
#include "simulator/book_type.h"
#include "simulator/limits.h"
#include "simulator/ordered.h"
#include "simulator/protocol.h"

namespace quillbox {

// The bytes of one record, of the size that the type of the book defines. Records end with many
// zeros, which take no memory. They are wiped at the end: a record may hold a password.
class Record {
 public:
  Record() = default;
  Record(const Record&) = default;
  Record(Record&&) = default;
  Record& operator=(Record other) noexcept {
    kept.swap(other.kept);
    std::swap(size, other.size);
    return *this;
  }
  ~Record() { quillkit::WipeBytes(kept.data(), kept.size()); }
  explicit Record(std::string_view bytes)
      : kept(bytes.substr(0, bytes.find_last_not_of('\0') + 1)),
        size(static_cast<std::uint32_t>(bytes.size())) {}

  std::size_t Size() const { return size; }

  // `bytes` has this size.
  void CopyTo(void* bytes) const {
    std::memcpy(bytes, kept.data(), kept.size());
    std::memset(static_cast<char*>(bytes) + kept.size(), 0, size - kept.size());
  }

  std::string Bytes() const { return kept + std::string(size - kept.size(), '\0'); }

 private:
  std::string kept;
  std::uint32_t size = 0;
};
using Book = Ordered<Record>;
using BookSet = Ordered<Book>;

// Identifies a book. The user matters only for the private kinds; the name is ignored for fixed
// books.
struct BookPath {
  BookKind kind = BookKind::kNone;
  EntryKey name;
  std::string_view user;
};

// What has changed in a store since it was last asked.
struct StoreChanges {
  // An entry, or a book with all its entries.
  struct Place {
    BookKind kind = BookKind::kNone;
    EntryKey book;
    std::string user;
    std::optional<EntryKey> entry;

    BookPath Path() const { return {kind, book, user}; }
  };

  bool isWhole = false;  // everything may have changed; `places` is empty
  std::vector<Place> places;

  bool IsEmpty() const { return !isWhole && places.empty(); }
};

class Store {
 public:
  // Contains only the three accounts.
  Store();

  // Returns the book, or null if it does not exist and for LOGAB. Valid until the next change of
  // the store.
  Book* Find(const BookPath& path);

  // Returns the books of a kind whose books have names, or null for any other kind.
  BookSet* BooksOf(BookKind kind, std::string_view user);

  // --- Books ---

  // Returns 9 for a fixed book, an existing name, or PRIVATEAB, which is reserved for renaming
  // lists; 7 for an empty name or one without a NUL; 24 at the limit.
  Status CreateBook(const BookPath& path, const Limits& limits = Limits::None());

  // Empties the e-mail, printer and private books instead of deleting them: applications delete
  // them and then add entries. Returns 12 for any other fixed book, 3 for an unknown name.
  Status DeleteBook(const BookPath& path);

  // Returns 3 for an unknown book; 7 for a new name that is empty or has no NUL; 9 for an existing
  // new name or PRIVATEAB.
  // REQUIRES: the book is not that of a key.
  Status RenameBook(const BookPath& path, const EntryKey& name);

  // Removes the entries that match the filter. Returns 3 for an unknown book.
  Status ClearBook(const BookPath& path, std::string_view filter);

  // --- Entries ---

  // Returns 3 for an unknown book; 7 for a record that is not storable; 14 for an existing name; 24
  // for a full book.
  Status CreateEntry(const BookPath& path, const void* record,
                     const Limits& limits = Limits::None());

  // Replaces an entry by a record, which may have another name. Returns 3 for an unknown book; 4
  // for an unknown entry; 7, 14 as above; 11 for a new name of a permanent account.
  Status ModifyEntry(const BookPath& path, const EntryKey& key, const void* record);

  // Returns 3 for an unknown book; 4 for an unknown entry; 11 for a permanent account.
  Status DeleteEntry(const BookPath& path, const EntryKey& key);

  // Creates or replaces an entry. Creates the book if it does not exist. Returns 3 for an unknown
  // kind; 7 for a record that is not storable; 24 for a new entry of a full book; the status of
  // CreateBook if that fails.
  // REQUIRES: the book is not LOGAB.
  Status Put(const BookPath& path, const void* record, const Limits& limits = Limits::None());

  // The same for a book that Find(path) returned.
  Status PutInto(Book& book, const BookPath& path, const void* record,
                 const Limits& limits = Limits::None());

  // --- As a whole ---

  // Calls `visit` with the path and contents of every book: first the shared ones, then the private
  // ones of each user.
  template <class Visit>
  void ForEachBook(Visit visit) const {
    VisitGroup(publicBooks, {}, visit);
    for (const auto& [user, group] : privateBooks) VisitGroup(group, user, visit);
  }

  // Returns what changed since the last call of this function. Everything, for a new store.
  StoreChanges TakeChanges() { return std::exchange(changes, {}); }
  void AddChanges(StoreChanges more);
  void MarkWhole() { changes = {true, {}}; }

  // The password that a permanent account has at first. "" for any other account.
  static std::string_view InitialPassword(std::string_view account);

 private:
  // The shared books, or those of one user.
  struct BookGroup {
    std::map<BookKind, Book> fixed;
    std::map<BookKind, BookSet> named;
  };

  template <class Visit>
  static void VisitGroup(const BookGroup& group, std::string_view user, Visit& visit) {
    for (const auto& [kind, book] : group.fixed) {
      visit(BookPath{kind, EntryKey(TypeOf(kind)->fixedName), user}, book);
    }
    for (const auto& [kind, books] : group.named) {
      for (std::size_t i = 0; i < books.Size(); ++i) {
        const auto& [name, book] = *books.At(i);
        visit(BookPath{kind, name, user}, book);
      }
    }
  }

  BookGroup& GroupOf(const BookType& type, std::string_view user);
  BookSet& KeyBooks() { return publicBooks.named[BookKind::kKeyItems]; }
  void Note(const BookPath& path, const std::optional<EntryKey>& entry = {});
  void Insert(Book& book, const BookPath& path, const void* record);
  void OnErased(const BookPath& path, const EntryKey& key);
  void OnRenamed(const BookPath& path, const EntryKey& from, const EntryKey& to);

  BookGroup publicBooks;
  std::map<std::string, BookGroup, std::less<>> privateBooks;  // by user
  StoreChanges changes{true, {}};
};

// Everything that an appliance stores except the log.
struct Contents {
  Store store;
  std::map<std::string, Store, std::less<>> backups;  // by the first text of the backup command
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_STORE_H_
