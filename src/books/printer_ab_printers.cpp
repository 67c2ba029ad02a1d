// The printers of the book: loading, changes and search.

#include <algorithm>

#include "appliance/after_change.h"
#include "books/printer_ab.h"
#include "bridge/the_agent.h"

namespace quillkit {

PrinterRecord* CPrinterAB::PrinterAt(std::int32_t index) const {
  return index >= 0 && index < PrinterCount() ? printers[static_cast<std::size_t>(index)].get()
                                              : nullptr;
}

auto CPrinterAB::PrinterNames() const {
  return [this](std::int32_t index) { return PrinterAt(index)->printerName.View(); };
}

std::int32_t CPrinterAB::PrinterIndex(std::string_view name) const {
  return FindName(0, PrinterCount(), name, true, PrinterNames());
}

std::int32_t CPrinterAB::LoadPrinters() {
  ClearPrinters();
  EntryKey names[MaxPrinters];
  std::uint32_t count = MaxPrinters;
  BookAccess<PrinterRecord> book = PrinterEntries();
  const Status status = book.ListNames(names, &count);
  if (status != kNoError && status != kMoreData) return status == kDataNotFound ? 0 : -1;
  printers.reserve(count);
  for (std::uint32_t i = 0; i < count; ++i) {
    auto printer = std::make_unique<PrinterRecord>();
    printer->SetPrinterName(names[i].name.View());
    book.ReadOne(printer.get());
    Bind(printer.get());
    printers.push_back(std::move(printer));
  }
  return status == kNoError ? PrinterCount() : -2;
}

std::int32_t CPrinterAB::AddPrinter(PrinterRecord* printer, bool reload) {
  if (RecordIfFull()) return -1;
  return ReloadPrintersAfter(PrinterEntries().Create(printer), reload) ? PrinterCount() : -1;
}

std::int32_t CPrinterAB::DeletePrinter(std::string_view name, bool reload) {
  return ReloadPrintersAfter(PrinterEntries().Delete(name), reload) ? 1 : 0;
}

std::int32_t CPrinterAB::ModifyPrinter(PrinterRecord* printer, bool reload) {
  return ReloadPrintersAfter(PrinterEntries().Modify(printer), reload) ? 1 : 0;
}

std::int32_t CPrinterAB::RenamePrinter(std::string_view oldName, PrinterRecord* printer,
                                       bool reload) {
  return ReloadPrintersAfter(PrinterEntries().Rename(oldName, printer), reload) ? 1 : 0;
}

// Loads the printers after a successful change. Returns whether the change succeeded.
bool CPrinterAB::ReloadPrintersAfter(Status changed, bool reload) {
  return LoadAfterChange(changed, reload, [this] { LoadPrinters(); }) == kNoError;
}

std::int32_t CPrinterAB::FastAddPrinter(const PrinterRecord* printer) {
  if (RecordIfFull()) return -1;
  auto added = std::make_unique<PrinterRecord>();
  added->SetAll(this, printer->printerName.View(), printer->description.View(),
                printer->printerModel.View(), printer->isDefault);
  if (PrinterEntries().Create(added.get()) != kNoError) return -1;
  printers.push_back(std::move(added));
  return PrinterCount();
}

std::int32_t CPrinterAB::FastDeletePrinter(const PrinterRecord* printer) {
  if (PrinterEntries().Delete(*printer) != kNoError) return -1;
  const std::int32_t index = PrinterIndex(printer->printerName.View());
  if (index < 0) return -1;
  printers.erase(printers.begin() + index);
  return PrinterCount();
}

std::int32_t CPrinterAB::FastModifyPrinter(PrinterRecord* printer) {
  const Status status = PrinterEntries().Modify(printer);
  return Overwrite(status, printer->printerName.View(), *printer);
}

std::int32_t CPrinterAB::FastRenamePrinter(std::string_view oldName, PrinterRecord* printer) {
  return Overwrite(PrinterEntries().Rename(oldName, printer), oldName, *printer);
}

// After a successful change, replaces the printer of this name. Returns 1 or 0.
std::int32_t CPrinterAB::Overwrite(Status changed, std::string_view name,
                                   const PrinterRecord& record) {
  PrinterRecord* kept = changed == kNoError ? PrinterAt(PrinterIndex(name)) : nullptr;
  if (kept == nullptr) return 0;
  *kept = record;
  return 1;
}

// Returns whether 256 printers are in memory. If so, records code 24.
bool CPrinterAB::RecordIfFull() const {
  if (PrinterCount() < MaxPrinters) return false;
  TheAgent.SetError(kBookFull);
  return true;
}

std::int32_t CPrinterAB::FindDefaultPrinter() const {
  const auto found = std::find_if(printers.begin(), printers.end(),
                                  [](const auto& each) { return each->isDefault == 1; });
  return found != printers.end() ? static_cast<std::int32_t>(found - printers.begin()) : -1;
}

std::int32_t CPrinterAB::SetDefaultPrinter(std::string_view name) {
  BookAccess<PrinterRecord> book = PrinterEntries();
  PrinterRecord chosen;
  chosen.SetPrinterName(name);
  if (book.ReadOne(&chosen) != kNoError) return -1;
  chosen.isDefault = 1;
  if (book.Modify(&chosen) != kNoError) return -1;
  // The list in memory still has the old default.
  PrinterRecord* earlier = PrinterAt(FindDefaultPrinter());
  if (earlier == nullptr) return -1;
  earlier->isDefault = 0;
  if (book.Modify(earlier) == kNoError) LoadPrinters();
  return -1;
}

std::int32_t CPrinterAB::FindFirstPrinter(const std::string& pattern, bool wholeName) {
  return printerSearch.FindFirst(PrinterCount(), pattern, wholeName, PrinterNames());
}

std::int32_t CPrinterAB::FindNextPrinter(bool wholeName) {
  printerSearch.FindNext(PrinterCount(), wholeName, PrinterNames());
  return printerSearch.Position();
}

}  // namespace quillkit
