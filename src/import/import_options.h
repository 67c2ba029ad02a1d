// What an application says about a file it imports into the appliance's address books. Part of the
// exported interface.
//
// The record is as long as its column map: an application takes 24 bytes and 4 more for every entry
// of the map, fills all of it in, and passes its address. Nothing is kept after the call.

#ifndef QUILLKIT_IMPORT_IMPORT_OPTIONS_H_
#define QUILLKIT_IMPORT_IMPORT_OPTIONS_H_

#include <cstddef>
#include <cstdint>
#include <span>

namespace quillkit {

// ImportOptions::format: what the file holds.
inline constexpr std::uint32_t ImportFormatDelimited = 1;     // fields separated by commas
inline constexpr std::uint32_t ImportFormatDirectory = 16;    // attribute lines under "dn:" lines
inline constexpr std::uint32_t ImportFormatMailServer = 256;  // rows of a mail server's export
inline constexpr std::uint32_t ImportFormatScript = 4096;     // a ready-made import script

// ImportOptions::targetBook: the book that the rows of a delimited file are for. The directory and
// mail-server formats always fill the public e-mail book.
inline constexpr std::int32_t TargetEmail = 1;     // name, address
inline constexpr std::int32_t TargetFax = 2;       // name, number, third fax field
inline constexpr std::int32_t TargetPrinters = 3;  // name, second field, third field
inline constexpr std::int32_t TargetUsers = 4;     // name, password, third field, fourth field

struct ImportOptions {
  // Delimited only. Nonzero: the first line that is not empty is a header and is dropped.
  std::int32_t skipHeader;
  // Nonzero: the script opens with a line that clears the book, where "ADMINISTRATOR" is connected;
  // for anybody else it has no effect, and none on a ready-made script. The directory and
  // mail-server formats' line names no book, and what it does is the server's affair; a delimited
  // file for an unknown target gets no line.
  std::int32_t clearFirst;
  // One of the four selectors above.
  std::uint32_t format;
  // Has no effect.
  std::int32_t importContext;
  // Delimited only. One of the four targets above.
  std::int32_t targetBook;
  // Delimited only. The number of entries of columnMap; zero or less is an empty map.
  std::int32_t columnCount;
  // Delimited only. columnCount entries, inline: entry i is the zero-based column of the file that
  // supplies field i of the target book, -1 that none does.
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

// The whole column map. Valid as long as the record.
// REQUIRES: the record really has columnCount entries behind it; the count is not bounded.
inline std::span<const std::int32_t> ColumnMapOf(const ImportOptions& options) {
  if (options.columnCount <= 0) return {};
  // By address: the entries behind the first lie outside the declared array.
  const auto* bytes = reinterpret_cast<const unsigned char*>(&options);
  return {reinterpret_cast<const std::int32_t*>(bytes + offsetof(ImportOptions, columnMap)),
          static_cast<std::size_t>(options.columnCount)};
}

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_IMPORT_OPTIONS_H_
