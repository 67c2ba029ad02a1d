// Filling the appliance's address books from a file.

#ifndef QUILLKIT_EXAMPLES_IMPORT_COMMAND_H_
#define QUILLKIT_EXAMPLES_IMPORT_COMMAND_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "examples/address_books.h"
#include "examples/session.h"

namespace quillctl {

// The formats of files by the names that the command line has for them.
std::vector<std::string> ImportFormatWords();

// What the command line asks for. `target`, `map` and `skipHeader` are for the format "csv" alone.
struct ImportRequest {
  std::string file;
  std::string format;  // one of ImportFormatWords()
  std::string target;  // one of BookWords(), or empty for the e-mail book
  std::string map;     // as ParseColumnMap takes it
  bool skipHeader = false;
  bool clearFirst = false;
  std::size_t shown = 5;  // how many of the entries that arrived are shown
};

class Import {
 public:
  // Throws a UsageError for what does not fit the format, and for a map that does not fit the book.
  explicit Import(const ImportRequest& request);

  // Imports the file and shows the size of each book that it may have filled, and the first entries
  // that the book did not hold before. Throws a Refusal when the library or the appliance
  // refuses.
  void Run(const Session& session) const;

 private:
  // The options with room for as many columns as any book has fields.
  static constexpr std::size_t kMostColumns = 4;
  struct MappedOptions {
    quillkit::ImportOptions options;
    std::int32_t moreColumns[kMostColumns - 1];
  };
  static_assert(offsetof(MappedOptions, moreColumns) == sizeof(quillkit::ImportOptions));

  void TakeDelimited(const ImportRequest& request);

  std::string file_;
  MappedOptions mapped_ = {};
  std::span<const AddressBook> books_;  // those that it may fill for the administrator
  std::size_t shown_;
};

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_IMPORT_COMMAND_H_
