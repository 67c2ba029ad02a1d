// Builds the record of import options, which ends in a column map of any length.

#ifndef QUILLKIT_TESTS_IMPORT_OPTION_RECORD_H_
#define QUILLKIT_TESTS_IMPORT_OPTION_RECORD_H_

#include <cstdint>
#include <vector>

#include "import/import_options.h"

namespace quillkit {

inline constexpr std::uint32_t kConvertedFormats[] = {ImportFormatDelimited, ImportFormatDirectory,
                                                      ImportFormatMailServer};

class OptionRecord {
 public:
  explicit OptionRecord(std::uint32_t format, std::int32_t targetBook = TargetEmail,
                        const std::vector<std::int32_t>& columnMap = {0, 1})
      : words(columnMap) {
    constexpr std::int32_t kContext = 12345;  // has no effect
    const auto count = static_cast<std::int32_t>(columnMap.size());
    words.insert(words.begin(),
                 {0, 0, static_cast<std::int32_t>(format), kContext, targetBook, count});
  }

  OptionRecord& SkipHeader() { return words[0] = 2, *this; }
  OptionRecord& ClearFirst() { return words[1] = -1, *this; }
  OptionRecord& ColumnCount(std::int32_t count) { return words[5] = count, *this; }

  operator const ImportOptions*() const {
    return reinterpret_cast<const ImportOptions*>(words.data());
  }

 private:
  std::vector<std::int32_t> words;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_IMPORT_OPTION_RECORD_H_
