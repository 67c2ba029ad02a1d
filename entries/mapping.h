// Which values of a record become the fields of an entry.

#ifndef ENTRIES_MAPPING_H_
#define ENTRIES_MAPPING_H_

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "contacts/form.h"
#include "contacts/record.h"
#include "entries/headings.h"

namespace entries {

// A field of the address book. The first one is the name.
struct Field {
  std::string word;          // its name; also the heading that means exactly this field
  std::optional<Part> part;  // what it holds; nothing: what has its name, and nothing else
  std::size_t width;         // the largest value, in bytes
  bool isRequired;
};

// A source that replaces the usual one of a field: a heading or attribute, or the number of a
// column of a csv file, from 1. Empty: the field stays empty.
struct FieldSource {
  std::string field;
  std::string source;
};

// A value of an entry.
struct EntryValue {
  std::string text;  // UTF-8, or bytes
  bool isBytes = false;
  const contacts::Problem* fault = nullptr;
  unsigned column = 0;  // where it comes from
  std::string_view heading;
};

class Mapping {
 public:
  // `newPlace` selects among several addresses. Throws a FormError if a source names no field.
  Mapping(std::vector<Field> newFields, std::vector<FieldSource> newSources,
          contacts::Place newPlace);

  // For a csv file. `record` is the line of headings, or the first row of a file without headings.
  // Throws a FormError if a source has no column, or a required field none.
  void SetColumns(const contacts::Record& record, bool hasHeadings);

  // Returns how many values of the record, as headings of a csv file, are known or are sources.
  std::size_t KnownHeadings(const contacts::Record& record) const;

  // Stores a value for each field. If the record has several addresses (or fax numbers), stores
  // another one in `further`; otherwise its column is 0.
  void Map(const contacts::Record& record, std::vector<EntryValue>& values,
           EntryValue& further) const;

  // Whether the headings of a csv file are the names of the book's fields and nothing else.
  bool IsOwnExport() const { return isOwnExport; }

  const std::vector<Field>& Fields() const { return fields; }

  // The headings of a csv file, in the order of its columns; empty without headings.
  const std::vector<std::string>& Headings() const { return headings; }

  // Whether the file can have a value for the field.
  bool Supplies(std::size_t field) const { return columns.empty() || HasColumn(field); }

  // Returns the columns or the names that supply a field, for the user; empty if there are none.
  std::string SourceOf(std::size_t field) const;

 private:
  static constexpr std::size_t kNoField = static_cast<std::size_t>(-1);

  // What a value is used for.
  struct Use {
    std::size_t field = 0;  // kNoField: it tells the place of the next address
    Meaning meaning;
    bool isExact = false;  // one value, also if it looks like several addresses
  };
  struct Name;
  class Addresses;

  std::optional<Use> UseOf(std::string_view name, unsigned column, bool isHeading) const;
  std::optional<Use> UseOf(const contacts::Value& value, const contacts::Record& record) const;
  std::optional<Use> UseOfMeaning(std::string_view name, bool isHeading) const;
  std::optional<Use> UseOfField(std::string_view name) const;
  const FieldSource* SourceFor(std::size_t field) const;
  bool HasColumn(std::size_t field) const;
  void ResolveNames();
  void RequireColumns() const;

  std::vector<Field> fields;
  std::vector<FieldSource> sources;
  contacts::Place place;
  std::vector<std::string> headings;
  std::vector<std::optional<Use>> columns;  // of a csv file
  bool isOwnExport = false;
};

}  // namespace entries

#endif  // ENTRIES_MAPPING_H_
