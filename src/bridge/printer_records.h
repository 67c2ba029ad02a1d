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

// Text setters store the text and return 1; or return 0 and change nothing if it is too long for
// its field.

struct PrinterModelRecord {
  FixedText<32> modelName;  // the entry's key
  FixedText<32> modelText;
  std::uint32_t modelWord1 = 0;
  std::uint32_t modelWord2 = 0;

  int SetModelName(std::string_view text) { return modelName.Set(text); }
  int SetModelText(std::string_view text) { return modelText.Set(text); }

  // Returns whether all texts have their NUL.
  bool IsValid() const;

  // Ends the texts inside their fields. Call it for records from a server.
  void Terminate();

  // modelName, modelText, the two words. Loading truncates a text to its field.
  void Serialize(Archive& archive);
};

struct PrinterRecord {
  FixedText<32> printerName;  // the entry's key
  FixedText<256> description;
  FixedText<32> printerModel;  // the modelName of its model
  std::int32_t isDefault = 0;  // 1: this is the default printer
  // Local fields, four bytes wide on every platform: numbers that the owning book assigns and
  // resolves, 0 for none. They are sent to the server; values from the server are ignored.
  std::uint32_t modelLink = 0;
  std::uint32_t owner = 0;

  int SetPrinterName(std::string_view text) { return printerName.Set(text); }
  int SetDescription(std::string_view text) { return description.Set(text); }
  int SetPrinterModel(std::string_view text) { return printerModel.Set(text); }

  // Stores each text that fits, and `newDefault`. Then binds the record to `newOwner` with
  // CPrinterAB::Bind; a null owner leaves it without owner and model. Returns 1.
  template <class Owner>
  int SetAll(const Owner* newOwner, std::string_view newName, std::string_view newDescription,
             std::string_view newModel, std::int32_t newDefault) {
    SetAll(nullptr, newName, newDescription, newModel, newDefault);
    if (newOwner != nullptr) newOwner->Bind(this);
    return 1;
  }
  int SetAll(std::nullptr_t, std::string_view newName, std::string_view newDescription,
             std::string_view newModel, std::int32_t newDefault);

  bool IsValid() const;
  void Terminate();

  // printerName, printerModel, description, isDefault. Loading truncates a text to its field and
  // keeps the local fields.
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
