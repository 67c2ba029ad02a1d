// The entries of the printer and printer model books.

#ifndef QUILLKIT_BRIDGE_PRINTER_RECORDS_H_
#define QUILLKIT_BRIDGE_PRINTER_RECORDS_H_

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "base/fixed_text.h"

namespace quillkit {

struct PrinterModelRecord {
  FixedText<32> modelName;  // the entry's key
  FixedText<32> modelText;
  std::uint32_t modelWord1 = 0;
  std::uint32_t modelWord2 = 0;

  // Ends the texts inside their fields: for records that a server filled in.
  void Terminate() {
    modelName.Terminate();
    modelText.Terminate();
  }
};

struct PrinterRecord {
  FixedText<32> printerName;  // the entry's key
  FixedText<256> description;
  FixedText<32> printerModel;  // the modelName of its model
  std::int32_t isDefault = 0;  // 1: this is the default printer
  // Local fields, four bytes wide on every platform. They travel to the server as they are, and
  // what comes back in them means nothing.
  std::uint32_t modelLink = 0;
  std::uint32_t owner = 0;

  // Ends the texts inside their fields: for records that a server filled in.
  void Terminate() {
    printerName.Terminate();
    description.Terminate();
    printerModel.Terminate();
  }
};

static_assert(sizeof(PrinterModelRecord) == 72 && std::is_trivially_copyable_v<PrinterModelRecord>);
static_assert(offsetof(PrinterModelRecord, modelName) == 0 &&
              offsetof(PrinterModelRecord, modelText) == 32 &&
              offsetof(PrinterModelRecord, modelWord1) == 64 &&
              offsetof(PrinterModelRecord, modelWord2) == 68);
static_assert(sizeof(PrinterRecord) == 332 && std::is_trivially_copyable_v<PrinterRecord>);
static_assert(offsetof(PrinterRecord, printerName) == 0 &&
              offsetof(PrinterRecord, description) == 32 &&
              offsetof(PrinterRecord, printerModel) == 288 &&
              offsetof(PrinterRecord, isDefault) == 320 &&
              offsetof(PrinterRecord, modelLink) == 324 && offsetof(PrinterRecord, owner) == 328);

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_PRINTER_RECORDS_H_
