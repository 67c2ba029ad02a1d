// What the command line asks of an import.

#ifndef QUILLKIT_EXAMPLES_IMPORT_REQUEST_H_
#define QUILLKIT_EXAMPLES_IMPORT_REQUEST_H_

#include <cstddef>
#include <string>

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

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_IMPORT_REQUEST_H_
