// The rows of an import file, in any format. They are read again for each purpose; only their
// outcomes are kept.

#ifndef QUILLCTL_IMPORT_SOURCE_H_
#define QUILLCTL_IMPORT_SOURCE_H_

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "entries/entries.h"
#include "quillctl/address_books.h"
#include "quillctl/import_file.h"
#include "quillctl/import_request.h"

namespace quillctl {

class ImportSource {
 public:
  ImportSource() = default;
  ImportSource(const ImportSource&) = delete;
  ImportSource& operator=(const ImportSource&) = delete;
  virtual ~ImportSource() = default;

  // Receives one row. The values are as they are stored. Returns false to receive no more.
  using RowHandler = std::function<bool(entries::Entry&)>;

  // Passes each row to the handler, in the order of the file. Throws a Refusal if the file cannot
  // be read.
  virtual void ForEach(const RowHandler& handle) = 0;

  // Whether the file has a value for the field. Of an entry that exists, other fields are kept.
  virtual bool Supplies(std::size_t field) const = 0;

  // The names of the format and the encoding, and the delimiter of a csv file, for reports.
  virtual std::string Format() const = 0;
  virtual std::string Encoding() const = 0;
  virtual std::optional<char> Delimiter() const { return std::nullopt; }

  // Describes where the values of each field come from, such as "name from column 2"; may be empty.
  virtual std::string Sources() const { return {}; }

  // Whether each row is sent as it is, and a later one replaces an earlier one of the same name, as
  // in a script.
  virtual bool IsScript() const { return false; }

  // The text at the beginning of a file of rejected rows if the imported file has none there; the
  // text between its records, and at its end.
  virtual std::string Beginning() const { return {}; }
  virtual std::string Separator() const { return {}; }
  virtual std::string End() const { return {}; }
};

// Returns the rows of a contact file in one of the formats of contacts/. Throws a UsageError if the
// options do not fit the file.
std::unique_ptr<ImportSource> OpenContacts(const ImportRequest& request, const AddressBook& book,
                                           ImportFile& file);

// Whether the format is one of the library: "delimited", "directory" or "mail".
bool IsLibraryFormat(const std::string& format);

// Returns whether the file has rows of a mail server's export.
bool IsMailServerExport(ImportFile& file);

// Returns the rows of a file in such a format, as the library converts them.
std::unique_ptr<ImportSource> OpenLibraryFormat(const ImportRequest& request,
                                                const AddressBook& book, ImportFile& file,
                                                bool isAdmin);

// Parses the text of --map. "2,10" names the columns of the fields in their order, and -1 is none;
// "name=2,address=E-mail" names fields. Throws a UsageError for an invalid text.
std::vector<entries::FieldSource> ParseMap(const std::string& text, const AddressBook& book);
}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_SOURCE_H_
