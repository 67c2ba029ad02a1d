#include "bridge/printer_records.h"

#include "base/archive.h"

namespace quillkit {

bool PrinterModelRecord::IsValid() const {
  return modelName.IsTerminated() && modelText.IsTerminated();
}

void PrinterModelRecord::Terminate() {
  modelName.Terminate();
  modelText.Terminate();
}

void PrinterModelRecord::Serialize(Archive& archive) {
  archive.Exchange(modelName);
  archive.Exchange(modelText);
  archive.Exchange(modelWord1);
  archive.Exchange(modelWord2);
}

int PrinterRecord::SetAll(std::nullptr_t, std::string_view newName, std::string_view newDescription,
                          std::string_view newModel, std::int32_t newDefault) {
  SetPrinterName(newName);
  SetDescription(newDescription);
  SetPrinterModel(newModel);
  isDefault = newDefault;
  owner = modelLink = 0;
  return 1;
}

bool PrinterRecord::IsValid() const {
  return printerName.IsTerminated() && description.IsTerminated() && printerModel.IsTerminated();
}

void PrinterRecord::Terminate() {
  printerName.Terminate();
  description.Terminate();
  printerModel.Terminate();
}

void PrinterRecord::Serialize(Archive& archive) {
  archive.Exchange(printerName);
  archive.Exchange(printerModel);
  archive.Exchange(description);
  archive.Exchange(isDefault);
}

}  // namespace quillkit
