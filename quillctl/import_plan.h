// A prepared import: the file has been read and its rows have been checked.

#ifndef QUILLCTL_IMPORT_PLAN_H_
#define QUILLCTL_IMPORT_PLAN_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "quillctl/address_books.h"
#include "quillctl/import_rows.h"
#include "quillctl/temporary_file.h"
#include "toolkit/quillkit.h"

namespace quillctl {

// The arguments of an import. `target`, `map`, `skipHeader` and `clearFirst` require the format
// "csv". `json` and `rejects` do not apply to the format "script", whose lines are not parsed.
struct ImportRequest {
  std::string file = {};
  std::string format = {};  // one of ImportFormatWords()
  std::string target = {};  // one of BookWords(), or empty for the e-mail book
  std::string map = {};     // the text of a ColumnMap
  bool skipHeader = false;  // implied by a map with headings
  bool clearFirst = false;
  bool yes = false;              // clear the book without confirmation
  std::size_t shown = 5;         // how many new entries are shown
  std::size_t faultsShown = 20;  // how many rejected rows are listed
  std::string rejects = {};      // the file for rejected rows; empty for none
  bool force = false;            // overwrite that file
  bool dryRun = false;
  bool json = false;
};

// Returns the names of the file formats on the command line.
std::vector<std::string> ImportFormatWords();

class ImportPlan {
 public:
  // Reads the file and checks its rows. `asAdmin` is whether ADMINISTRATOR imports them. Throws a
  // UsageError for an option that does not apply to the format or the account, for a map that does
  // not fit the book or the headings, and for a file that cannot be read.
  ImportPlan(const ImportRequest& request, bool asAdmin);
  ImportPlan(const ImportPlan&) = delete;
  ImportPlan& operator=(const ImportPlan&) = delete;

  // Returns whether the file is a script. A script has no rows and is sent unchanged.
  bool IsScript() const { return mapped.options.format == quillkit::ImportFormatScript; }

  // The rows of the file. Those without a fault are sent.
  ImportRows& Rows() { return rows; }
  const ImportRows& Rows() const { return rows; }

  // The books that the import may change.
  std::span<const AddressBook> Books() const { return isAdmin ? books : PrivateBook(); }

  // Returns the script for the appliance, with LF as line ends. Throws a Refusal if a temporary
  // file cannot be written.
  std::string Script() const;

  // Returns Script() with "(set)" in place of each password.
  std::string ShownScript() const;

  // Sends the rows, or the script, from a temporary file. Returns the result of ImportAddressBook.
  // Throws a Refusal as Script() does. A program that terminates meanwhile leaves temporary files
  // with the rows.
  std::int32_t Send(quillkit::CScanner* scanner) const;

 private:
  // ImportOptions with space for as many columns as the largest book has fields.
  static constexpr std::size_t kMaxColumns = 4;
  struct MappedOptions {
    quillkit::ImportOptions options;
    std::int32_t moreColumns[kMaxColumns - 1];
  };
  static_assert(offsetof(MappedOptions, moreColumns) == sizeof(quillkit::ImportOptions));

  void PrepareDelimited(const ImportRequest& request);
  void PrepareOther(const ImportRequest& request);
  std::string RowsToSend() const;
  void Convert(const TemporaryFile& source, TemporaryFile& script) const;

  std::string file;
  bool isAdmin;
  std::string text;  // the content of the file
  MappedOptions mapped = {};
  std::span<const AddressBook> books;  // what the administrator's import may change
  ImportRows rows;                     // points into `text`
};

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_PLAN_H_
