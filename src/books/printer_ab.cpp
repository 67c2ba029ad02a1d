#include "books/printer_ab.h"

#include "appliance/after_change.h"
#include "base/name_search.h"
#include "bridge/long_timeout.h"
#include "bridge/the_agent.h"

namespace quillkit {
namespace {

// The last assigned number. Each book has a number of its own, and each load of models a range.
std::uint32_t lastNumber = 0;

// Assigns `count` new numbers and returns the first.
std::uint32_t AssignNumbers(std::uint32_t count) {
  const std::uint32_t first = lastNumber + 1;
  lastNumber += count;
  return first;
}

}  // namespace

const ClassRecord CPrinterAB::kClass = {"CPrinterAB", sizeof(CPrinterAB), 1,
                                        CreateObject<CPrinterAB>, nullptr};

CPrinterAB::CPrinterAB() : number(AssignNumbers(1)) {}

void CPrinterAB::Serialize(Archive& archive) {
  for (const auto& each : printers) each->Serialize(archive);
}

std::int32_t CPrinterAB::Attach(CScanner* newScanner, std::int32_t load) {
  if (newScanner == nullptr) return 0;
  scanner = newScanner;
  return load != 0 ? LoadBook() : 1;
}

std::int32_t CPrinterAB::LoadBook() {
  return LoadModels() != 0 ? LoadPrinters() : 0;
}

Status CPrinterAB::ClearBook() {
  if (scanner == nullptr) return kRefused;
  const Status status = scanner->ClearPrintersBook();
  ClearPrinters();
  return status;
}

Status CPrinterAB::DeleteBook() {
  LongTimeout timeout(&TheAgent, LongTimeout::Unit::kMilliseconds);
  return timeout
      .RunAndRestore([this] {
        const Status status =
            BookAccess<PrinterRecord>(&TheAgent, BookKind::kPrinters, kPrintersBook).DeleteBook();
        ClearPrinters();
        return status;
      })
      .work;
}

void CPrinterAB::Clear() {
  ClearModels();
  ClearPrinters();
}

PrinterModelRecord* CPrinterAB::ModelAt(std::int32_t index) const {
  return index >= 0 && index < ModelCount() ? models[static_cast<std::size_t>(index)].get()
                                            : nullptr;
}

std::int32_t CPrinterAB::ModelIndex(std::string_view name) const {
  return FindName(0, ModelCount(), name, true,
                  [&](std::int32_t i) { return ModelAt(i)->modelName.View(); });
}

PrinterModelRecord* CPrinterAB::FindModel(std::string_view name) const {
  return ModelAt(ModelIndex(name));
}

std::int32_t CPrinterAB::LoadModels() {
  ClearModels();
  EntryKey names[MaxPrinterModels];
  std::uint32_t count = MaxPrinterModels;
  BookAccess<PrinterModelRecord> book = ModelEntries();
  Status status = book.ListNames(names, &count);
  if (status != kNoError) return status == kDataNotFound ? 0 : -1;
  firstLink = AssignNumbers(MaxPrinterModels);
  for (std::uint32_t i = 0; i < count; ++i) {
    auto model = std::make_unique<PrinterModelRecord>();
    model->SetModelName(names[i].name.View());
    status = book.ReadOne(model.get());
    if (status == kNoError) models.push_back(std::move(model));
  }
  return status == kDataNotFound ? 0 : ModelCount();
}

std::int32_t CPrinterAB::AddModel(PrinterModelRecord* model, bool reload) {
  if (ModelCount() >= MaxPrinterModels) {
    TheAgent.SetError(kBookFull);
    return -1;
  }
  return ReloadModelsAfter(ModelEntries().Create(model), reload) ? ModelCount() : -1;
}

std::int32_t CPrinterAB::DeleteModel(std::string_view name, bool reload) {
  return ReloadModelsAfter(ModelEntries().Delete(name), reload) ? 1 : 0;
}

std::int32_t CPrinterAB::ModifyModel(PrinterModelRecord* model, bool reload) {
  return ReloadModelsAfter(ModelEntries().Modify(model), reload) ? 1 : 0;
}

// Loads the models after a successful change. Returns whether the change succeeded.
bool CPrinterAB::ReloadModelsAfter(Status changed, bool reload) {
  return LoadAfterChange(changed, reload, [this] { LoadModels(); }) == kNoError;
}

void CPrinterAB::Bind(PrinterRecord* record) const {
  const std::int32_t model = ModelIndex(record->printerModel.View());
  record->owner = number;
  record->modelLink = model >= 0 ? firstLink + static_cast<std::uint32_t>(model) : 0;
}

PrinterModelRecord* CPrinterAB::ModelOf(const PrinterRecord& record) const {
  const std::uint32_t index = record.modelLink - firstLink;
  return index < models.size() ? models[index].get() : nullptr;
}

}  // namespace quillkit
