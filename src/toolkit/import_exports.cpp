// Import of address books.

#include "import/import_address_book.h"
#include "toolkit/call_frame.h"
#include "toolkit/quillkit.h"

namespace quillkit {

std::int32_t ImportAddressBook(CScanner* scanner, const char* path, const ImportOptions* options) {
  return InFrame([&] { return ImportAddressBookFile(scanner, path, options); });
}

}  // namespace quillkit
