// The arguments of an import.

#ifndef QUILLCTL_IMPORT_REQUEST_H_
#define QUILLCTL_IMPORT_REQUEST_H_

#include <cstddef>
#include <string>

namespace quillctl {

struct ImportRequest {
  std::string file = {};
  std::string format = {};     // empty: recognised
  std::string book = {};       // empty: the account's default
  std::string encoding = {};   // empty: recognised
  std::string delimiter = {};  // a character or "tab"; empty: recognised
  std::string headings = {};   // "yes" or "no"; empty: recognised
  std::string map = {};
  std::string prefer = {};  // "work", "home" or empty
  std::string storeAs = "utf-8";
  std::string onDuplicate = "skip";
  bool shorten = false;
  bool skipHeader = false;  // of the library's own delimited format
  bool clearFirst = false;
  bool batch = false;  // send a script
  bool yes = false;    // clear the book without confirmation
  bool preview = false;
  bool dryRun = false;
  bool json = false;
  std::size_t shown = 5;         // how many entries are shown
  std::size_t faultsShown = 20;  // how many rejected rows, and how many notes, are listed
  std::string rejects = {};      // the file for rejected rows; empty for none
  bool force = false;            // overwrite that file
};

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_REQUEST_H_
