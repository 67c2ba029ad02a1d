// The public header is complete by itself: this file includes nothing else.

#include "toolkit/quillkit.h"

namespace quillkit {

// Code of an application that includes only this header.
const char* NameOfFirstKey(const std::string& host, const std::string& password) {
  CScanner* box = LogToQuillbox(host, "ADMINISTRATOR", password, "", 1);
  CTopLevelAB* book = box != nullptr ? GetTopLevelAbook(box) : nullptr;
  CSoftKey* key = book != nullptr ? GetKeyAt(book, 0) : nullptr;
  return key != nullptr ? GetKeyName(key) : nullptr;
}

}  // namespace quillkit
