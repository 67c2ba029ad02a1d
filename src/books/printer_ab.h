// The printers of one appliance: its two small books of printer models and of printers, both held
// whole in memory. A printer names its model, and one printer may be the default.
//
//   plain  changes the server and, if asked, reads the book anew; 1 or 0, or a count or -1
//   Fast   changes the server and then patches the list in place, for printers alone
// The server comes first: where it refuses one of these the list stays as it was, and nothing is
// undone. Without a scanner everything that needs the server fails, -1 or 0, and makes no call, but
// for DeleteBook, which goes to TheAgent.
//
// Invariants:
//   1. Models and printers stand in the order of the server's listing, followed by what
//      FastAddPrinter appended.
//   2. A record stays where it is until it is removed or its list is loaded or cleared.
//   3. A printer's `modelLink` names the model that it was bound to, or nothing: a link from before
//      the models were loaded or cleared, or from another book, resolves to null.
//
// Arguments that are records must not be null.

#ifndef QUILLKIT_BOOKS_PRINTER_AB_H_
#define QUILLKIT_BOOKS_PRINTER_AB_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/book_access.h"
#include "base/root_object.h"
#include "bridge/records.h"

namespace quillkit {

class CScanner;

// The most models and printers of an appliance: what one listing asks for, and where Add ends.
inline constexpr std::int32_t MaxPrinterModels = 16;
inline constexpr std::int32_t MaxPrinters = 256;

class CPrinterAB : public RootObject {
 public:
  static const ClassRecord kClass;

  CPrinterAB();

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // Each printer in turn, without their number and without the models, in either direction over the
  // printers that are there.
  void Serialize(Archive& archive) override;

  // --- Whole book ---

  // Stores the scanner, which must outlive this object, and gives 1, or with `load` what LoadBook
  // gives. 0 and no change for a null scanner.
  std::int32_t Attach(CScanner* newScanner, std::int32_t load);

  // LoadModels and then, unless that gave 0, LoadPrinters, whose result it gives. So an appliance
  // without models loads no printers, and the printers stay as they were; a failed load of the
  // models does not stop them.
  std::int32_t LoadBook();

  // The server's number of printers: IMSPSizeofAB.
  Status ServerCount(std::uint32_t* count) const;

  // CScanner::ClearPrintersBook, and drops the printers whatever came of it; its status.
  Status ClearBook();

  // Deletes the printers' book on the agent's appliance, under the long time-out, which is put
  // back, and drops the printers whatever came of it. Calls: IMSPIOCtl 2 and 1, IMSPDeleteAB, whose
  // status is the result, IMSPIOCtl 1. A time-out that cannot be read or set ends it with that
  // status.
  Status DeleteBook();

  // Drop what is in memory.
  void ClearModels() { models.clear(); }
  void ClearPrinters() { printers.clear(); }
  void Clear();

  // --- Models ---

  std::int32_t ModelCount() const { return static_cast<std::int32_t>(models.size()); }

  // Null for an index out of range.
  PrinterModelRecord* ModelAt(std::int32_t index) const;

  // The first model of exactly this name, or null.
  PrinterModelRecord* FindModel(std::string_view name) const;

  // Replaces the models: IMSPListABEntries, and one IMSPReadEntryProperties a model, which is left
  // out when that fails. The count. -1, and none, when the listing fails, as it does for more than
  // 16. 0 when the listing gives 4, and also when the last read does, whatever was loaded before.
  std::int32_t LoadModels();

  // The count, -1 for a refusal; at 16 models code 24 is recorded and no call is made.
  std::int32_t AddModel(PrinterModelRecord* model, bool reload);

  // 1, or 0 for a refusal.
  std::int32_t DeleteModel(std::string_view name, bool reload);
  std::int32_t ModifyModel(PrinterModelRecord* model, bool reload);

  // --- Printers ---

  std::int32_t PrinterCount() const { return static_cast<std::int32_t>(printers.size()); }

  // Null for an index out of range.
  PrinterRecord* PrinterAt(std::int32_t index) const;

  // The first printer of exactly this name, or -1.
  std::int32_t PrinterIndex(std::string_view name) const;

  // Makes this book the record's owner and links it to the model that it names, if there is one.
  void Bind(PrinterRecord* record) const;

  bool Owns(const PrinterRecord& record) const { return record.owner == number; }

  // The model that the record is linked to, or null.
  PrinterModelRecord* ModelOf(const PrinterRecord& record) const;

  // Replaces the printers: IMSPListABEntries, and one IMSPReadEntryProperties a printer, whose
  // status is ignored. The count; -2 with the first 256 when there are more; 0 for the status 4, -1
  // for others.
  std::int32_t LoadPrinters();

  // Plain. Add: the count, -1 for a refusal; at 256 printers code 24 is recorded and no call is
  // made. The others: 1, or 0 for a refusal. What the reload gives is dropped.
  std::int32_t AddPrinter(PrinterRecord* printer, bool reload);
  std::int32_t DeletePrinter(std::string_view name, bool reload);
  std::int32_t ModifyPrinter(PrinterRecord* printer, bool reload);
  std::int32_t RenamePrinter(std::string_view oldName, PrinterRecord* printer, bool reload);

  // Fast. Add sends and keeps a copy that is bound to this book: the new count, or -1, at 256
  // printers as AddPrinter. Delete: the new count, or -1, also when the server dropped a printer
  // that was not in memory; a printer of this book that is given is gone afterwards.
  std::int32_t FastAddPrinter(const PrinterRecord* printer);
  std::int32_t FastDeletePrinter(const PrinterRecord* printer);

  // Copy the whole record, local fields included, over the one in memory: 1, or 0, also when the
  // server changed a printer that was not in memory.
  std::int32_t FastModifyPrinter(PrinterRecord* printer);
  std::int32_t FastRenamePrinter(std::string_view oldName, PrinterRecord* printer);

  // The first printer whose `isDefault` is 1, or -1.
  std::int32_t FindDefaultPrinter() const;

  // Always -1: look again with FindDefaultPrinter. Reads the printer, writes it back as the
  // default, writes the default of the list in memory as none, and loads the printers; the first
  // status that is not 0 ends it, and so does a list without a default, which is then not loaded.
  // Naming the default anew thus leaves the appliance without one.
  std::int32_t SetDefaultPrinter(std::string_view name);

  // Searches by name: whole, or by as many characters as the pattern has. First gives the index or
  // -1. Next goes on behind the latest hit with the pattern of that hit, from index 0 after a First
  // without one, and from index 1 before any; where it finds nothing it gives what was found last.
  std::int32_t FindFirstPrinter(const std::string& pattern, bool wholeName);
  std::int32_t FindNextPrinter(bool wholeName);

 private:
  std::int32_t ModelIndex(std::string_view name) const;
  bool ReloadModels(Status changed, bool reload);
  BookAccess<PrinterModelRecord> ModelEntries() const;

  bool IsFull() const;
  bool ReloadPrinters(Status changed, bool reload);
  std::int32_t Overwrite(Status changed, std::string_view name, const PrinterRecord& record);
  std::int32_t SearchPrinters(std::int32_t start, std::string_view pattern, bool wholeName) const;
  BookAccess<PrinterRecord> PrinterEntries() const;

  CScanner* scanner = nullptr;  // not owned
  std::vector<std::unique_ptr<PrinterModelRecord>> models;
  std::vector<std::unique_ptr<PrinterRecord>> printers;
  std::int32_t printerCursor = 0;
  std::string printerPattern;
  std::uint32_t number;         // this book in PrinterRecord::owner
  std::uint32_t firstLink = 1;  // the first model in PrinterRecord::modelLink
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_PRINTER_AB_H_
