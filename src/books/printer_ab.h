// The printers of one appliance: its two small books of printer models and of printers, both held
// in memory. A printer names its model. One printer may be the default.
//
// Two families change them:
//   plain  changes the server, then reads the book again if `reload` is set; returns 1 or 0, or a
//          count or -1
//   Fast   changes the server, then the list in memory; for printers only
// In both, if the server refuses the change, the list stays unchanged. Nothing is rolled back.
//
// Without a scanner every operation that needs the server returns -1 or 0 and makes no server call,
// except DeleteBook, which calls TheAgent. Operations that list no server calls make no server
// call. Pointers to records must not be null.
//
// Invariants:
//   1. Models and printers are in the order of the server's listing, followed by the printers that
//      FastAddPrinter appended.
//   2. The book owns its records. A pointer to one is valid until the record is removed or its list
//      is loaded or cleared.
//   3. A printer's `modelLink` identifies its model. A link from before the models were loaded or
//      cleared, or from another book, resolves to null.

#ifndef QUILLKIT_BOOKS_PRINTER_AB_H_
#define QUILLKIT_BOOKS_PRINTER_AB_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/scanner.h"
#include "base/name_search.h"
#include "base/root_object.h"

namespace quillkit {

// The most models and printers of an appliance: the capacity of a listing, and the limit of an
// addition.
inline constexpr std::int32_t MaxPrinterModels = 16;
inline constexpr std::int32_t MaxPrinters = 256;

class CPrinterAB : public RootObject {
 public:
  static const ClassRecord kClass;

  CPrinterAB();

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // Each printer in turn, without their number and without the models. Loading fills the printers
  // that are in memory.
  void Serialize(Archive& archive) override;

  // --- The whole book ---

  // Stores the scanner, which must outlive the book. Returns the result of LoadBook if `load` is
  // set, otherwise 1; 0 and no change for a null scanner.
  // Server calls: those of LoadBook if `load` is set.
  std::int32_t Attach(CScanner* newScanner, std::int32_t load);

  // Calls LoadModels and, unless that returned 0, LoadPrinters. Returns the result of the last
  // call. For an appliance without models, the printers in memory stay; after a failed load of the
  // models, the printers are loaded.
  // Server calls: those of LoadModels, then those of LoadPrinters.
  std::int32_t LoadBook();

  // Stores the number of printers on the server in `*count`. Returns the status.
  // Server calls: IMSPSizeofAB.
  Status ServerCount(std::uint32_t* count) const { return Scanner().SizeofPrinters(count); }

  // Empties the book with CScanner::ClearPrintersBook, and frees the printers in memory even if
  // that fails. Returns its status; -1 and no change without a scanner.
  // Server calls: those of CScanner::ClearPrintersBook.
  Status ClearBook();

  // Deletes the printers' book on the appliance of TheAgent, under the long time-out, and frees the
  // printers in memory even if that fails. Returns the status of the deletion. If the time-out
  // cannot be read or set, returns that status and changes nothing.
  // Server calls: IMSPIOCtl 2 and 1, IMSPDeleteAB, IMSPIOCtl 1.
  Status DeleteBook();

  // Drop the records in memory.
  void ClearModels() { models.clear(); }
  void ClearPrinters() { printers.clear(); }
  void Clear();

  // --- Models ---

  std::int32_t ModelCount() const { return static_cast<std::int32_t>(models.size()); }

  // Returns null for an index out of range.
  PrinterModelRecord* ModelAt(std::int32_t index) const;

  // Returns the first model with exactly this name, or null.
  PrinterModelRecord* FindModel(std::string_view name) const;

  // Replaces the models. A model that cannot be read is left out. Returns the count; -1, with no
  // models, if the listing fails, as it does for more than 16; 0 if the listing returns 4, or if
  // the last read returns 4, even if other models were loaded.
  // Server calls: IMSPListABEntries, then IMSPReadEntryProperties for each model.
  std::int32_t LoadModels();

  // Change a model on the server. With `reload`, LoadModels follows a change that succeeded; its
  // result is ignored. AddModel returns the number of models in memory, or -1 on failure; with 16
  // models in memory it records code 24, returns -1 and makes no server call. The others return 1,
  // or 0 on failure. The caller keeps `model`.
  // Server calls: IMSPCreateEntry, IMSPDeleteEntry or IMSPModifyEntry; then those of LoadModels if
  // `reload` is set.
  std::int32_t AddModel(PrinterModelRecord* model, bool reload);
  std::int32_t DeleteModel(std::string_view name, bool reload);
  std::int32_t ModifyModel(PrinterModelRecord* model, bool reload);

  // --- Printers ---

  std::int32_t PrinterCount() const { return static_cast<std::int32_t>(printers.size()); }

  // Returns null for an index out of range.
  PrinterRecord* PrinterAt(std::int32_t index) const;

  // Returns the index of the first printer with exactly this name, or -1.
  std::int32_t PrinterIndex(std::string_view name) const;

  // Makes this book the owner of the record, and links the record to the model it names, if there
  // is one.
  void Bind(PrinterRecord* record) const;

  bool Owns(const PrinterRecord& record) const { return record.owner == number; }

  // Returns the model that the record is linked to, or null.
  PrinterModelRecord* ModelOf(const PrinterRecord& record) const;

  // Replaces the printers. The status of reading a printer is ignored. Returns the count; -2, with
  // the first 256, if there are more; 0 for the status 4, -1 for other failures.
  // Server calls: IMSPListABEntries, then IMSPReadEntryProperties for each printer.
  std::int32_t LoadPrinters();

  // The plain family. With `reload`, LoadPrinters follows a change that succeeded; its result is
  // ignored. AddPrinter returns the number of printers in memory, or -1 on failure; with 256
  // printers in memory it records code 24, returns -1 and makes no server call. The others return
  // 1, or 0 on failure. The caller keeps `printer`.
  // Server calls: IMSPCreateEntry, IMSPDeleteEntry or IMSPModifyEntry (modify and rename); then
  // those of LoadPrinters if `reload` is set.
  std::int32_t AddPrinter(PrinterRecord* printer, bool reload);
  std::int32_t DeletePrinter(std::string_view name, bool reload);
  std::int32_t ModifyPrinter(PrinterRecord* printer, bool reload);
  std::int32_t RenamePrinter(std::string_view oldName, PrinterRecord* printer, bool reload);

  // The Fast family. FastAddPrinter sends and keeps a copy that is bound to this book, with the
  // limit of AddPrinter. FastDeletePrinter fails too if the deleted printer is not in memory;
  // `printer` may be a record of this book, and is then destroyed. Both return the new count, or -1
  // on failure. Server calls: IMSPCreateEntry or IMSPDeleteEntry.
  std::int32_t FastAddPrinter(const PrinterRecord* printer);
  std::int32_t FastDeletePrinter(const PrinterRecord* printer);

  // Replace the record in memory, local fields included. Return 1; or 0 on failure, also if the
  // changed printer is not in memory. Server calls: IMSPModifyEntry.
  std::int32_t FastModifyPrinter(PrinterRecord* printer);
  std::int32_t FastRenamePrinter(std::string_view oldName, PrinterRecord* printer);

  // Returns the index of the first printer whose `isDefault` is 1, or -1.
  std::int32_t FindDefaultPrinter() const;

  // Makes a printer the default. Always returns -1: use FindDefaultPrinter to see the result. Stops
  // at the first status that is not 0, and after the first change if no printer in memory is the
  // default. Clears the old default in memory even if the server refuses that. If the printer is
  // already the default, no printer is the default afterwards.
  // Server calls: IMSPReadEntryProperties; IMSPModifyEntry to set the new default; IMSPModifyEntry
  // to clear the old one; those of LoadPrinters.
  std::int32_t SetDefaultPrinter(std::string_view name);

  // Search by name: the whole name if `wholeName` is set, otherwise its beginning. FindFirstPrinter
  // returns the index or -1. FindNextPrinter continues as NameCursor does; before any search it
  // starts at index 1. Without a hit, it returns the index of the previous hit.
  std::int32_t FindFirstPrinter(const std::string& pattern, bool wholeName);
  std::int32_t FindNextPrinter(bool wholeName);

 private:
  const CScanner& Scanner() const { return ScannerOrUnbound(scanner); }

  std::int32_t ModelIndex(std::string_view name) const;
  bool ReloadModelsAfter(Status changed, bool reload);
  BookAccess<PrinterModelRecord> ModelEntries() const { return Scanner().ModelEntries(); }

  bool RecordIfFull() const;
  bool ReloadPrintersAfter(Status changed, bool reload);
  std::int32_t Overwrite(Status changed, std::string_view name, const PrinterRecord& record);
  auto PrinterNames() const;
  BookAccess<PrinterRecord> PrinterEntries() const { return Scanner().PrinterEntries(); }

  CScanner* scanner = nullptr;  // not owned
  std::vector<std::unique_ptr<PrinterModelRecord>> models;
  std::vector<std::unique_ptr<PrinterRecord>> printers;
  NameCursor printerSearch;
  std::uint32_t number;         // this book in PrinterRecord::owner
  std::uint32_t firstLink = 1;  // the first model in PrinterRecord::modelLink
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_PRINTER_AB_H_
