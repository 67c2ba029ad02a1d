#include <algorithm>
#include <map>
#include <string_view>

#include "import/script.h"
#include "quillctl/import_rows.h"

namespace quillctl {
namespace {

class EntryRules {
 public:
  EntryRules(const AddressBook& filledBook, bool asAdmin, std::span<const std::int32_t> mapped)
      : book(filledBook),
        script(*quillkit::FindScriptBook(filledBook.target)),
        isAdmin(asAdmin),
        columns(mapped) {}

  // Returns the first fault in the values of a row, or an empty text.
  std::string Fault(const Row& values) const {
    const std::size_t sent = isAdmin ? script.fieldCount : kPrivateFields;
    for (std::size_t i = 0; i < sent; ++i) {
      const std::string fault = FieldFault(i, values[i]);
      if (!fault.empty()) return "the " + LowerCase(book.fields[i]) + ' ' + fault;
    }
    return {};
  }

 private:
  std::string FieldFault(std::size_t field, std::string_view value) const {
    const std::size_t width = script.widths[field];
    if (value.size() > width) return "is longer than " + std::to_string(width) + " bytes";
    if (value.find('\n') != value.npos) {
      return "is not followed by \"%\", a comma or a double quote";
    }
    if (isAdmin && value.find('"') != value.npos) return "contains a double quote";
    const bool isEmpty = value.find_first_not_of(" \t\r") == value.npos;
    return isEmpty && IsNeeded(field) ? "is empty" : "";
  }

  bool IsNeeded(std::size_t field) const {
    if (field == 0) return true;
    return field < book.requiredFields && (columns.empty() || columns[field] >= 0);
  }

  const AddressBook& book;
  const quillkit::ScriptBook& script;
  const bool isAdmin;
  const std::span<const std::int32_t> columns;
};

// Returns whether the entry has the values. An entry of a private book has only the first two.
bool IsEntryOf(const Row& values, const Row& entry) {
  for (std::size_t i = 0; i < std::min(values.size(), entry.size()); ++i) {
    if (values[i] != entry[i]) return false;
  }
  return true;
}

}  // namespace

void MarkInvalidRows(std::vector<ImportRow>& rows, const AddressBook& book, bool isAdmin,
                     std::span<const std::int32_t> columns) {
  const EntryRules fit(book, isAdmin, columns);
  std::map<std::string_view, std::size_t> lineOfName;
  for (ImportRow& row : rows) {
    if (row.fault.empty()) row.fault = fit.Fault(row.values);
    if (!row.fault.empty()) continue;
    const auto [first, isNew] = lineOfName.try_emplace(row.values.front(), row.line);
    if (!isNew) row.fault = "the name is already used in line " + std::to_string(first->second);
  }
}

void MarkMissingRows(std::vector<ImportRow>& rows, std::span<const Row> entries,
                     std::string_view why) {
  std::map<std::string_view, const Row*> entryOfName;
  for (const Row& entry : entries) entryOfName[entry.front()] = &entry;
  for (ImportRow& row : rows) {
    if (!row.fault.empty()) continue;
    const auto found = entryOfName.find(row.values.front());
    if (found == entryOfName.end() || !IsEntryOf(row.values, *found->second)) {
      row.fault = why;
    }
  }
}

}  // namespace quillctl
