// Everything that the appliance's books hold, the log apart. A copy of it is a backup.
//
// Invariants:
//   1. A book of a kind with a fixed name is always there, empty or not.
//   2. Each entry of the top-level book has a key book of its name, and each key book such an
//   entry:
//      one comes, goes and changes its name with the other.
//   3. A user's private books follow the user's account when it is renamed, and go with it.
//   4. The accounts ADMINISTRATOR, TOOLKIT and GUEST stay. Clearing the users' book leaves them.
//   5. Every record is storable (IsStorable) and stands under the name it carries.

#ifndef QUILLKIT_SIMULATOR_STORE_H_
#define QUILLKIT_SIMULATOR_STORE_H_

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "simulator/book_type.h"
#include "simulator/ordered.h"
#include "simulator/protocol.h"

namespace quillbox {

// The bytes of one record, of the size that the book's type tells.
using Record = std::vector<char>;
using Book = Ordered<Record>;
using BookSet = Ordered<Book>;

// Which book: the user counts for the private kinds alone, and the name not for fixed books.
struct BookPath {
  BookKind kind = BookKind::kNone;
  EntryKey name;
  std::string_view user;
};

class Store {
 public:
  // Holds the three accounts and nothing else.
  Store();

  // The book, or null when there is none, or LOGAB. Good until the next change of the store.
  Book* Find(const BookPath& path);

  // The books of a kind that have names of their own, or null for any other kind.
  BookSet* BooksOf(BookKind kind, std::string_view user);

  // --- Books ---

  // 9 for a fixed book, a name that is taken, or PRIVATEAB, by which lists are renamed; 7 for an
  // empty name or one without a NUL.
  Status CreateBook(const BookPath& path);

  // The e-mail, printer and private books are emptied, and are there as before: applications delete
  // them and go on to fill them. 12 for every other fixed book, 3 for a name that is not there.
  Status DeleteBook(const BookPath& path);

  // 3 when it is not there, 7 for a new name that is empty or without a NUL, 9 for one that is
  // taken.
  Status RenameBook(const BookPath& path, const EntryKey& name);

  // Removes the entries that the filter matches. 3.
  Status ClearBook(const BookPath& path, std::string_view filter);

  // --- Entries ---

  // 3; 7 for a record that is not storable; 14 for a name that is taken.
  Status CreateEntry(const BookPath& path, const void* record);

  // Replaces the entry by a record that may carry another name. 3, 4, 7, 14; 11 for another name of
  // an account that has to stay.
  Status ModifyEntry(const BookPath& path, const EntryKey& key, const void* record);

  // 3, 4; 11 for an account that has to stay.
  Status DeleteEntry(const BookPath& path, const EntryKey& key);

  // Creates or replaces, and creates the book too. 3 for a kind that does not exist or a wrong
  // fixed name, 7 for a record that is not storable.
  Status Put(const BookPath& path, const void* record);

  // --- As a whole ---

  // Shows every book to `visit`, with its path: those of all users, then each user's own.
  template <class Visit>
  void ForEachBook(Visit visit) const {
    VisitShelf(publicShelf, {}, visit);
    for (const auto& [user, shelf] : privateShelves) VisitShelf(shelf, user, visit);
  }

  // Whether anything changed since the last call of this. A new store has.
  bool TakeChange() { return std::exchange(hasChanged, false); }
  void Touch() { hasChanged = true; }

 private:
  // The books of all users, or of one.
  struct Shelf {
    std::map<BookKind, Book> fixed;
    std::map<BookKind, BookSet> named;
  };

  template <class Visit>
  static void VisitShelf(const Shelf& shelf, std::string_view user, Visit& visit) {
    for (const auto& [kind, book] : shelf.fixed) {
      visit(BookPath{kind, EntryKey(TypeOf(kind)->fixedName), user}, book);
    }
    for (const auto& [kind, books] : shelf.named) {
      for (std::size_t i = 0; i < books.Size(); ++i) {
        const auto& [name, book] = *books.At(i);
        visit(BookPath{kind, name, user}, book);
      }
    }
  }

  Shelf& ShelfOf(const BookType& type, std::string_view user);
  BookSet& KeyBooks() { return publicShelf.named[BookKind::kKeyItems]; }
  void Insert(Book& book, const BookType& type, const void* record);
  void Erased(BookKind kind, const EntryKey& key);
  void Renamed(BookKind kind, const EntryKey& from, const EntryKey& to);

  Shelf publicShelf;
  std::map<std::string, Shelf, std::less<>> privateShelves;  // by user
  bool hasChanged = true;
};

// All that an appliance keeps, the log apart.
struct Contents {
  Store store;
  std::map<std::string, Store, std::less<>> backups;  // by their first text
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_STORE_H_
