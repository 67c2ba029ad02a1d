// The exported functions as a table of typed pointers. What calls them through it runs on those of
// this program, or on those of a shared library that was loaded as an application loads it.

#ifndef QUILLKIT_TESTS_TOOLKIT_EXPORTS_H_
#define QUILLKIT_TESTS_TOOLKIT_EXPORTS_H_

#include <string>
#include <vector>

#include "platform/module.h"
#include "toolkit/quillkit.h"

namespace quillkit {

class ExportSource {
 public:
  // Which of the functions a loaded library lacks.
  const std::vector<std::string>& missing() const { return missing_; }

 protected:
  ExportSource() = default;
  explicit ExportSource(ModuleHandle module) : isLoaded_(true), module_(module) {}

  template <class Function>
  Function* Choose(const char* name, Function* linked) {
    if (!isLoaded_) return linked;
    auto* found = reinterpret_cast<Function*>(FindEntryPoint(module_, name));
    if (found == nullptr) missing_.emplace_back(name);
    return found;
  }

 private:
  bool isLoaded_ = false;
  ModuleHandle module_ = nullptr;
  std::vector<std::string> missing_;
};

// As default-constructed, the functions of this program; made from a module, those that it exports
// under their undecorated names.
struct Exports : ExportSource {
  Exports() = default;
  explicit Exports(ModuleHandle module) : ExportSource(module) {}

#define QUILLKIT_EXPORT(name) decltype(&quillkit::name) name = Choose(#name, &quillkit::name)
  QUILLKIT_EXPORT(LogToQuillbox);
  QUILLKIT_EXPORT(Logout);
  QUILLKIT_EXPORT(Exit);
  QUILLKIT_EXPORT(GetLastToolkitError);
  QUILLKIT_EXPORT(TranslateToolkitError);
  QUILLKIT_EXPORT(GetScannerName);
  QUILLKIT_EXPORT(GetScannerVersion);
  QUILLKIT_EXPORT(GetScannerModel);
  QUILLKIT_EXPORT(GetScannerAddress);
  QUILLKIT_EXPORT(GetCurrentConnectedUser);
  QUILLKIT_EXPORT(IsAdminConnected);
  QUILLKIT_EXPORT(GetTopLevelAbook);
  QUILLKIT_EXPORT(GetCount);
  QUILLKIT_EXPORT(LoadTopLevelAbook);
  QUILLKIT_EXPORT(AddKey);
  QUILLKIT_EXPORT(DeleteKey);
  QUILLKIT_EXPORT(ModifyKey);
  QUILLKIT_EXPORT(RenameSoftKey);
  QUILLKIT_EXPORT(GetKeyAt);
  QUILLKIT_EXPORT(FindSoftKeyIndex);
  QUILLKIT_EXPORT(FastKeyAdd);
  QUILLKIT_EXPORT(FastKeyRemove);
  QUILLKIT_EXPORT(FastKeyModify);
  QUILLKIT_EXPORT(FastKeyRename);
  QUILLKIT_EXPORT(CreateSoftKey);
  QUILLKIT_EXPORT(DestroySoftKey);
  QUILLKIT_EXPORT(LoadItems);
  QUILLKIT_EXPORT(GetKeyName);
  QUILLKIT_EXPORT(IsSoftKeyEmpty);
  QUILLKIT_EXPORT(GetItemCount);
  QUILLKIT_EXPORT(GetDBItemCount);
  QUILLKIT_EXPORT(GetItemAt);
  QUILLKIT_EXPORT(SetItemAt);
  QUILLKIT_EXPORT(RemoveItemAt);
  QUILLKIT_EXPORT(FindFirstItem);
  QUILLKIT_EXPORT(FindNextItem);
  QUILLKIT_EXPORT(FindMenuItemIndex);
  QUILLKIT_EXPORT(AddMenuItem);
  QUILLKIT_EXPORT(ModifyMenuItem);
  QUILLKIT_EXPORT(RenameMenuItem);
  QUILLKIT_EXPORT(DeleteMenuItem);
  QUILLKIT_EXPORT(FastItemAdd);
  QUILLKIT_EXPORT(FastItemRemove);
  QUILLKIT_EXPORT(FastItemModify);
  QUILLKIT_EXPORT(FastItemRename);
  QUILLKIT_EXPORT(CreateMenuItem);
  QUILLKIT_EXPORT(DestroyMenuItem);
  QUILLKIT_EXPORT(GetItemName);
  QUILLKIT_EXPORT(IPAddress);
  QUILLKIT_EXPORT(Path);
  QUILLKIT_EXPORT(AppTag);
  QUILLKIT_EXPORT(FileFormat);
  QUILLKIT_EXPORT(Settings);
  QUILLKIT_EXPORT(SetName);
  QUILLKIT_EXPORT(SetIPAddress);
  QUILLKIT_EXPORT(SetPath);
  QUILLKIT_EXPORT(SetAppTag);
  QUILLKIT_EXPORT(SetFileFormat);
  QUILLKIT_EXPORT(SetSettings);
  QUILLKIT_EXPORT(ImportAddressBook);
#undef QUILLKIT_EXPORT
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_TOOLKIT_EXPORTS_H_
