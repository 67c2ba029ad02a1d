// The column map of an import as the command line takes it.

#ifndef QUILLKIT_EXAMPLES_COLUMN_MAP_H_
#define QUILLKIT_EXAMPLES_COLUMN_MAP_H_

#include <cstdint>
#include <string_view>
#include <vector>

namespace quillctl {

// The numbers of "2,-1,10": the column of the file, from 0, for each field of the book, or -1 where
// none supplies it. Throws a UsageError for anything else.
std::vector<std::int32_t> ParseColumnMap(std::string_view text);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_COLUMN_MAP_H_
