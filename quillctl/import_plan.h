// An import made ready: the file is read, and it is settled which of its rows are sent.

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

// `target`, `map` and `skipHeader` are for the format "csv" alone; `json` and `rejects` for all but
// "script", whose lines are not looked at.
struct ImportRequest {
  std::string file = {};
  std::string format = {};  // one of ImportFormatWords()
  std::string target = {};  // one of BookWords(), or empty for the e-mail book
  std::string map = {};     // as ColumnMap takes it
  bool skipHeader = false;  // implied by a map with headings
  bool clearFirst = false;
  std::size_t shown = 5;         // how many of the entries that arrived are shown
  std::size_t faultsShown = 20;  // how many of the rows that become no entry are told
  std::string rejects = {};      // where rows that become no entry go; empty for nowhere
  bool dryRun = false;
  bool json = false;
};

// The formats of files by the names that the command line has for them.
std::vector<std::string> ImportFormatWords();

class ImportPlan {
 public:
  // `asAdmin` tells whether ADMINISTRATOR is to send it. Throws a UsageError for what does not fit
  // the format, for a map that fits the book or the file's headings not, and for a file that cannot
  // be read.
  ImportPlan(const ImportRequest& request, bool asAdmin);
  ImportPlan(const ImportPlan&) = delete;
  ImportPlan& operator=(const ImportPlan&) = delete;

  // A ready-made script has no rows, and goes to the appliance as it stands.
  bool IsScript() const { return mapped.options.format == quillkit::ImportFormatScript; }

  // Those without a fault are sent.
  ImportRows& Rows() { return rows; }
  const ImportRows& Rows() const { return rows; }

  // Those that it may fill.
  std::span<const AddressBook> Books() const { return isAdmin ? books : PrivateBook(); }

  // The script that the appliance will get, its lines ended by LF. Throws a Refusal when the
  // temporary files for it cannot be written.
  std::string Script() const;

  // Sends it. What ImportAddressBook gives. Throws a Refusal as Script() does. A program that ends
  // in the meantime leaves files with the rows behind.
  std::int32_t Send(quillkit::CScanner* scanner) const;

 private:
  // The options with room for as many columns as any book has fields.
  static constexpr std::size_t kMostColumns = 4;
  struct MappedOptions {
    quillkit::ImportOptions options;
    std::int32_t moreColumns[kMostColumns - 1];
  };
  static_assert(offsetof(MappedOptions, moreColumns) == sizeof(quillkit::ImportOptions));

  void TakeDelimited(const ImportRequest& request);
  void TakeOther(const ImportRequest& request);
  std::string RowsToSend() const;
  void Convert(const TemporaryFile& source, TemporaryFile& script) const;

  std::string file;
  bool isAdmin;
  std::string text;  // of the file
  MappedOptions mapped = {};
  std::span<const AddressBook> books;  // those that it may fill for the administrator
  ImportRows rows;                     // lies in text
};

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_PLAN_H_
