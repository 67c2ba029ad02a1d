// The content of the simulated appliance, for the fuzz targets of what it reads.

#ifndef QUILLKIT_FUZZ_STORED_CONTENT_H_
#define QUILLKIT_FUZZ_STORED_CONTENT_H_

#include <string>
#include <string_view>

#include "fuzz/input.h"
#include "simulator/store.h"

namespace quillbox {

// Checks the invariants of a store. Returns the content of all books.
inline std::string CheckedContent(Store& store) {
  using quillkit::Require;
  constexpr std::string_view kPermanent[] = {quillkit::kAdministratorName, quillkit::kToolkitName,
                                             "GUEST"};
  std::string content;
  store.ForEachBook([&](const BookPath& path, const Book& book) {
    const BookType& type = *TypeOf(path.kind);
    content += std::to_string(book.Size()) + ' ';
    for (const auto& [name, stored] : book) {
      const std::string record = stored.Bytes();
      Require(record.size() == type.recordSize, "a record has the size that its book requires");
      Require(IsStorable(type, record.data()), "the texts of a record end inside their fields");
      Require(NameOf(record.data()) == name, "a record is stored under its name");
      content += record;
    }
  });
  for (const std::string_view account : kPermanent) {
    Require(store.Find({BookKind::kUsers, {}, {}})->Find(EntryKey(account)) != nullptr,
            "the three permanent accounts remain");
  }
  return content;
}

}  // namespace quillbox

#endif  // QUILLKIT_FUZZ_STORED_CONTENT_H_
