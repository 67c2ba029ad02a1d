// The entries of the printer and printer model books.

#ifndef QUILLKIT_BRIDGE_PRINTER_RECORDS_H_
#define QUILLKIT_BRIDGE_PRINTER_RECORDS_H_

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "base/fixed_text.h"

namespace quillkit {

class Archive;
class CPrinterAB;

// Text setters store the text and give 1, or refuse one that is too long for its field with 0 and
// no change.

struct PrinterModelRecord {
  FixedText<32> modelName;  // the entry's key
  FixedText<32> modelText;
  std::uint32_t modelWord1 = 0;
  std::uint32_t modelWord2 = 0;

  int SetModelName(std::string_view text) { return modelName.Set(text); }
  int SetModelText(std::string_view text) { return modelText.Set(text); }

  // Whether all texts end inside their fields.
  bool IsValid() const;

  // Ends the texts inside their fields: for records that a server filled in.
  void Terminate();

  // modelName, modelText, the two words. Loading cuts a text where its field ends.
  void Serialize(Archive& archive);
};

struct PrinterRecord {
  FixedText<32> printerName;  // the entry's key
  FixedText<256> description;
  FixedText<32> printerModel;  // the modelName of its model
  std::int32_t isDefault = 0;  // 1: this is the default printer
  // Local fields, four bytes wide on every platform: numbers that CPrinterAB gives out and
  // resolves, 0 for none. They travel to the server as they are, and what comes back in them means
  // nothing.
  std::uint32_t modelLink = 0;
  std::uint32_t owner = 0;

  int SetPrinterName(std::string_view text) { return printerName.Set(text); }
  int SetDescription(std::string_view text) { return description.Set(text); }
  int SetPrinterModel(std::string_view text) { return printerModel.Set(text); }

  // Stores each text that fits, leaving the others as they were, and `newDefault`, and binds the
  // record to `newOwner` (CPrinterAB::Bind); null gives it no owner and no model. Always 1.
  int SetAll(const CPrinterAB* newOwner, std::string_view newName, std::string_view newDescription,
             std::string_view newModel, std::int32_t newDefault);

  bool IsValid() const;
  void Terminate();

  // printerName, printerModel, description, isDefault. Loading cuts a text where its field ends,
  // and leaves the local fields as they are.
  void Serialize(Archive& archive);
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
