// The options of ImportAddressBook. Part of the exported interface.
//
// The record has variable length: 24 bytes, followed by 4 bytes for each entry of the column map.
// The application allocates it, sets every field and passes its address. The library reads it
// during the call only.

#ifndef QUILLKIT_IMPORT_IMPORT_OPTIONS_H_
#define QUILLKIT_IMPORT_IMPORT_OPTIONS_H_

#include <cstddef>
#include <cstdint>
#include <span>

#include "base/language.h"

namespace quillkit {

// ImportOptions::format: the format of the file.
inline constexpr std::uint32_t ImportFormatDelimited = 1;     // comma-separated fields
inline constexpr std::uint32_t ImportFormatDirectory = 16;    // attribute lines after "dn:" lines
inline constexpr std::uint32_t ImportFormatMailServer = 256;  // rows of a mail server's export
inline constexpr std::uint32_t ImportFormatScript = 4096;     // a ready-made import script

// ImportOptions::targetBook: the book that the rows of a delimited file fill, with its fields in
// the order of the column map. The directory and mail-server formats always fill the public e-mail
// book.
inline constexpr std::int32_t TargetEmail = 1;     // name, address
inline constexpr std::int32_t TargetFax = 2;       // name, number, third fax field
inline constexpr std::int32_t TargetPrinters = 3;  // name, second field, third field
inline constexpr std::int32_t TargetUsers = 4;     // name, password, third field, fourth field

struct ImportOptions {
  // Delimited only. Nonzero: the first line that is not empty is a header and is skipped.
  std::int32_t skipHeader;
  // Nonzero: the script begins with a command that clears the book. Ignored if "ADMINISTRATOR" is
  // not connected, if the file is a ready-made script, and if it is delimited and its target is
  // unknown. For the directory and mail-server formats the command names no book; its effect is up
  // to the server.
  std::int32_t clearFirst;
  // One of the four formats above.
  std::uint32_t format;
  // Ignored.
  std::int32_t importContext;
  // Delimited only. One of the four targets above.
  std::int32_t targetBook;
  // Delimited only. The number of entries of columnMap. 0 or less: an empty map.
  std::int32_t columnCount;
  // Delimited only. columnCount entries, inline. Entry i is the zero-based column of the file for
  // field i of the target book, or -1 for none.
  std::int32_t columnMap[1];
};

static_assert(offsetof(ImportOptions, skipHeader) == 0);
static_assert(offsetof(ImportOptions, clearFirst) == 4);
static_assert(offsetof(ImportOptions, format) == 8);
static_assert(offsetof(ImportOptions, importContext) == 12);
static_assert(offsetof(ImportOptions, targetBook) == 16);
static_assert(offsetof(ImportOptions, columnCount) == 20);
static_assert(offsetof(ImportOptions, columnMap) == 24);
static_assert(sizeof(ImportOptions) == 28);

// Returns the whole column map. Valid as long as the record.
// REQUIRES: the record holds columnCount entries; the count is not checked.
inline std::span<const std::int32_t> ColumnMapOf(const ImportOptions& options) {
  if (options.columnCount <= 0) return {};
  // By address: entries after the first are outside the declared array.
  const auto* bytes = reinterpret_cast<const unsigned char*>(&options);
  return {reinterpret_cast<const std::int32_t*>(bytes + offsetof(ImportOptions, columnMap)),
          static_cast<std::size_t>(options.columnCount)};
}

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_IMPORT_OPTIONS_H_
