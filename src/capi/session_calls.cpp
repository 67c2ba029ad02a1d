// Session, errors, the appliance, imports, and information on this library.

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <new>
#include <string>

#include "capi/call_frame.h"
#include "platform/files.h"

using namespace quillkit;
using namespace quillkit::capi;

namespace {

constexpr const char* kErrorTexts[] = {
    /*-1001*/ "the handle is 0",
    /*-1002*/ "the object of the handle no longer exists",
    /*-1003*/ "not a handle of such an object",
    /*-1004*/ "the object has a different owner",
    /*-1005*/ "an argument is null or out of range",
    /*-1006*/ "the buffer is too small",
    /*-1007*/ "out of memory",
    /*-1008*/ "internal failure",
    /*-1009*/ "the thread is inside another call",
    /*-1010*/ "the process is a fork of the one that loaded the library",
};

using ScannerOrNoneArgument = ObjectArgument<CScanner, Need::kAliveOrNone>;

void EndSession() {
  Handles().EndAll(HandleKind::kUser);
  Handles().EndAll(HandleKind::kScanner);
}

// If a user is connected after a failure, no server call was made and no object was destroyed.
// Otherwise the library may have destroyed the scanner of this address, and it is unknown which one
// that is.
std::int32_t OpenSession(const HandleResult& scanner, const std::string& host,
                         const std::string& user, const std::string& password,
                         const std::string& third, std::int32_t loadTopBook) {
  ScopeExit end(EndSession);
  CScanner* box = LogToQuillbox(host, user, password, third, loadTopBook);
  if (box == nullptr && GetCurrentConnectedUser(nullptr) == nullptr) return 0;
  end.Release();
  if (box == nullptr) return 0;
  Handles().EndAll(HandleKind::kUser);
  const quill_handle address = GetScannerAddress(box);
  Handles().EndChildren(address);
  return scanner.StoreUnder(address, box);
}

// Asks for the length first, then for the text.
std::int32_t StoreErrorText(const TextResult& result, std::int32_t code) {
  std::int32_t size = 0;
  TranslateToolkitError(code, nullptr, &size);
  std::string text(static_cast<std::size_t>(size), '\0');
  ++size;
  TranslateToolkitError(code, text.data(), &size);
  return result.Store(text.c_str());
}

// The options of an import as ImportOptions, in storage with space for the whole column map.
class Options {
 public:
  explicit Options(const quill_import_options& options) {
    auto* record = new (storage) ImportOptions{};
    record->skipHeader = options.skip_header;
    record->clearFirst = options.clear_first;
    record->format = options.format;
    record->targetBook = options.target_book;
    record->columnCount = std::min(options.column_count, std::int32_t{QUILL_IMPORT_COLUMNS});
    std::memcpy(storage + offsetof(ImportOptions, columnMap), options.column_map,
                sizeof options.column_map);
  }

  const ImportOptions* get() const {
    return std::launder(reinterpret_cast<const ImportOptions*>(storage));
  }

 private:
  alignas(ImportOptions) unsigned char storage[offsetof(ImportOptions, columnMap) +
                                               sizeof(quill_import_options::column_map)] = {};
};

}  // namespace

const char* quill_version(void) {
  return QUILLKIT_VERSION;
}

int32_t quill_contract(void) {
  return QUILL_CONTRACT;
}

const char* quill_error_text(int32_t error) {
  const auto slot = static_cast<std::uint32_t>(QUILL_E_NULL) - static_cast<std::uint32_t>(error);
  return slot < std::size(kErrorTexts) ? kErrorTexts[slot] : "";
}

int32_t quill_log_to_quillbox(const char* host, const char* user, const char* password,
                              const char* third, int32_t load_top_book, quill_handle* scanner,
                              int32_t* error) {
  return InTurnReporting(error, 0, OpenSession, HandleResult(scanner), TextArgument(host),
                         TextArgument(user), TextArgument(password), TextArgument(third),
                         load_top_book);
}

int32_t quill_logout(void) {
  return InTurn([] {
    ScopeExit end([] { Handles().EndAll(HandleKind::kUser); });
    Logout();
  });
}

int32_t quill_exit(void) {
  return InTurn([] {
    ScopeExit end(EndSession);
    Exit();
  });
}

int32_t quill_get_last_toolkit_error(void) {
  return InTurn(GetLastToolkitError);
}

int32_t quill_translate_toolkit_error(int32_t code, char* buffer, uint32_t* size) {
  return InTurn(StoreErrorText, TextResult(buffer, size), code);
}

int32_t quill_get_scanner_name(quill_handle scanner, char* buffer, uint32_t* size) {
  return InTurn(kStoreResult<GetScannerName>, TextResult(buffer, size), ScannerArgument(scanner));
}

int32_t quill_get_scanner_version(quill_handle scanner, char* buffer, uint32_t* size) {
  return InTurn(kStoreResult<GetScannerVersion>, TextResult(buffer, size),
                ScannerArgument(scanner));
}

int32_t quill_get_scanner_model(quill_handle scanner, char* buffer, uint32_t* size) {
  return InTurn(kStoreResult<GetScannerModel>, TextResult(buffer, size), ScannerArgument(scanner));
}

int32_t quill_get_scanner_address(quill_handle scanner, uint32_t* value) {
  return InTurn(kStoreResult<GetScannerAddress>, NumberResult(value), ScannerArgument(scanner));
}

int32_t quill_get_current_connected_user(quill_handle scanner, quill_handle* user) {
  return InTurn(kStoreResult<GetCurrentConnectedUser>, HandleResult(user),
                ScannerOrNoneArgument(scanner));
}

int32_t quill_is_admin_connected(quill_handle scanner) {
  return InTurn(IsAdminConnected, ScannerOrNoneArgument(scanner));
}

int32_t quill_get_top_level_abook(quill_handle scanner, quill_handle* book) {
  return InTurn(kStoreResult<GetTopLevelAbook>, HandleResult(book, scanner),
                ScannerArgument(scanner));
}

int32_t quill_import_address_book(quill_handle scanner, const char* path,
                                  const quill_import_options* options) {
  return InTurn(
      [=](CScanner* box) {
        if (options == nullptr) return kMissingArgument;
        const std::string file = path != nullptr ? SystemPath(path) : std::string();
        return ImportAddressBook(box, file.c_str(), Options(*options).get());
      },
      ScannerArgument(scanner));
}
