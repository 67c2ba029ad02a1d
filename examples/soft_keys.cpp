// Soft keys in C++: logs in, adds a key with two items, renames it, lists all keys, and shows how a
// call reports that it failed.

#include <cstdint>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <string>

#include "toolkit/quillkit.h"

namespace {

using namespace quillkit;

// Whether the status of a call is 0. If not, prints its message.
bool Succeeded(std::int32_t status) {
  if (status == 0) return true;
  char message[64] = "";
  std::int32_t size = sizeof message;
  TranslateToolkitError(status, message, &size);
  std::cout << "Refused: " << message << '\n';
  return false;
}

bool AddItem(CSoftKey* key, const std::string& name, const std::string& address,
             const std::string& path) {
  CMenuItem* item = nullptr;
  if (CreateMenuItem(&item) != 1) return false;
  const bool added = SetName(item, name) == 1 && SetIPAddress(item, address) == 1 &&
                     SetPath(item, path) == 1 && FastItemAdd(key, item) >= 0;
  DestroyMenuItem(item);
  return added;
}

bool AddAccounting(CTopLevelAB* keys) {
  if (!Succeeded(AddKey(keys, "Accounting", 1))) return false;
  CSoftKey* key = GetKeyAt(keys, FindSoftKeyIndex(keys, "Accounting"));
  return key != nullptr && AddItem(key, "Invoices in", "files.example.com", "/in") &&
         AddItem(key, "Tax office", "tax.example.org", "/upload");
}

// Renames the key on the appliance, and reads all keys again.
bool Rename(CTopLevelAB* keys, const std::string& oldName, const std::string& newName) {
  CSoftKey* named = nullptr;
  const bool renamed =
      CreateSoftKey(newName, keys, &named) != 0 && Succeeded(RenameSoftKey(keys, oldName, named));
  DestroySoftKey(named);
  return renamed && Succeeded(LoadTopLevelAbook(keys, 1));
}

void List(CTopLevelAB* keys) {
  std::cout << std::left;
  for (int i = 0; i < GetCount(keys); ++i) {
    CSoftKey* key = GetKeyAt(keys, i);
    std::cout << GetKeyName(key) << '\n';
    for (int place = 0; place < GetItemCount(key); ++place) {
      CMenuItem* item = GetItemAt(key, place);
      std::cout << "  " << std::setw(16) << GetItemName(item) << std::setw(20) << IPAddress(item)
                << Path(item) << '\n';
    }
  }
}

}  // namespace

int main() {
  CScanner* box = LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 1);
  CTopLevelAB* keys = box != nullptr ? GetTopLevelAbook(box) : nullptr;
  if (keys == nullptr) {
    // The code is 0 if the library refused without a server call. Do not exit with it.
    std::cerr << "no login: code " << GetLastToolkitError() << '\n';
    return EXIT_FAILURE;
  }
  std::cout << "Connected to " << GetScannerName(box) << '\n';
  if (!AddAccounting(keys) || !Rename(keys, "Accounting", "Bookkeeping")) return EXIT_FAILURE;
  List(keys);
  Succeeded(AddKey(keys, "Archive", 0));  // already exists
  Logout();
  Succeeded(AddKey(keys, "Late", 0));
  Exit();
}
