#include "simulator/book_type.h"

#include <algorithm>
#include <cstring>

namespace quillbox {
namespace {

// A text field of a record, for the tables below.
#define FIELD(Record, name)                      \
  TextField {                                    \
    offsetof(Record, name), sizeof(Record::name) \
  }

constexpr TextField kEmailTexts[] = {FIELD(CEmailEntry, name), FIELD(CEmailEntry, address)};
constexpr TextField kFaxTexts[] = {FIELD(CFaxEntry, name), FIELD(CFaxEntry, number),
                                   FIELD(CFaxEntry, third)};
constexpr TextField kUserTexts[] = {FIELD(CUserEntry, name), FIELD(CUserEntry, password),
                                    FIELD(CUserEntry, third), FIELD(CUserEntry, fourth)};
constexpr TextField kPrinterTexts[] = {FIELD(PrinterRecord, printerName),
                                       FIELD(PrinterRecord, description),
                                       FIELD(PrinterRecord, printerModel)};
constexpr TextField kModelTexts[] = {FIELD(PrinterModelRecord, modelName),
                                     FIELD(PrinterModelRecord, modelText)};
constexpr TextField kItemTexts[] = {FIELD(CMenuItem, name), FIELD(CMenuItem, ipAddress),
                                    FIELD(CMenuItem, path), FIELD(CMenuItem, appTag)};
constexpr TextField kLogTexts[] = {{0, 32}, {32, sizeof(LogRecord) - 32}};

#undef FIELD

constexpr BookType kTypes[] = {
    {BookKind::kEmail, false, kEmailBook, sizeof(CEmailEntry), kEmailTexts},
    {BookKind::kFax, false, kFaxBook, sizeof(CFaxEntry), kFaxTexts},
    {BookKind::kUsers, false, kUsersBook, sizeof(CUserEntry), kUserTexts},
    {BookKind::kPrinters, false, kPrintersBook, sizeof(PrinterRecord), kPrinterTexts},
    {BookKind::kPrivateEmail, true, kPrivateBook, sizeof(CEmailEntry), kEmailTexts},
    {BookKind::kPublicList, false, "", sizeof(CEmailEntry), kEmailTexts},
    {BookKind::kPrivateList, true, "", sizeof(CEmailEntry), kEmailTexts},
    {BookKind::kTop, false, kTopBook, sizeof(CMenuItem), kItemTexts},
    {BookKind::kKeyItems, false, "", sizeof(CMenuItem), kItemTexts},
    {BookKind::kFaxList, false, "", sizeof(CFaxEntry), kFaxTexts},
    {BookKind::kLog, false, kLogBook, sizeof(LogRecord), kLogTexts},
    {BookKind::kModels, false, kModelsBook, sizeof(PrinterModelRecord), kModelTexts},
};

}  // namespace

const BookType* TypeOf(BookKind kind) {
  const auto* const found =
      std::find_if(std::begin(kTypes), std::end(kTypes),
                   [kind](const BookType& type) { return type.kind == kind; });
  return found == std::end(kTypes) ? nullptr : found;
}

EntryKey NameOf(const void* record) {
  EntryKey key;
  std::memcpy(&key, record, sizeof key);
  return key;
}

bool IsStorable(const BookType& type, const void* record) {
  const char* const bytes = static_cast<const char*>(record);
  return bytes[0] != '\0' &&
         std::all_of(type.texts.begin(), type.texts.end(), [bytes](const TextField& field) {
           return std::memchr(bytes + field.offset, '\0', field.size) != nullptr;
         });
}

}  // namespace quillbox
