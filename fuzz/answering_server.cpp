#include "fuzz/answering_server.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "bridge/imsp_api.h"
#include "fuzz/input.h"
#include "simulator/book_type.h"

namespace quillkit {
namespace {

constexpr Status kStatuses[] = {kNoError, kDataNotFound, kMoreData, 6, 3, 8, 10, 24, -1, 99};
constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint32_t kHour = 3'600'000;  // milliseconds
constexpr std::uint32_t kTextSize = 400;    // of IMSPIOCtl 12

std::string_view answers;
bool mayBeLargest = true;  // once in each session: the library then reads 200,000 records
bool isInitialised = false;

enum Form : std::size_t { kShort, kWithoutNul, kZeroes, kHighBytes, kText, kForms };

// One word of the text.
struct Answer {
  Answer() {
    answers.remove_prefix(std::min(answers.find_first_not_of(' '), answers.size()));
    std::string_view word = answers.substr(0, answers.find(' '));
    answers.remove_prefix(word.size());
    char choices[] = {'0', '2', '0', '0'};
    for (char& each : choices) {
      if (word.empty()) break;
      each = word.front();
      word.remove_prefix(1);
    }
    const auto below = [&](int index, std::size_t limit) {
      return static_cast<unsigned char>(choices[index] - '0') % limit;
    };
    status = kStatuses[below(0, std::size(kStatuses))];
    number = static_cast<std::uint32_t>(below(1, 10));
    if (number == 9) number = 600;
    if (choices[1] == 'H') number = 5000;
    if (choices[1] == 'M' && std::exchange(mayBeLargest, false)) number = kMost;
    count = below(2, 8);
    form = static_cast<Form>(below(3, 10) % kForms);
    overwrites = below(3, 10) >= kForms;
    text = word;
  }

  // Returns what is reported after `written` records were written to a buffer for `capacity`.
  // `before` is the value of the variable.
  std::uint32_t Count(std::uint32_t written, std::uint32_t capacity, std::uint32_t before) const {
    const std::uint32_t counts[] = {written, capacity, capacity + 1, kMost / 2,
                                    kMost,   0,        written + 1,  before};
    return counts[count];
  }

  // Writes a text to a field of `size` bytes.
  void WriteText(char* field, std::size_t size, std::string_view words) const {
    const std::string_view whole = words.empty() ? "x" : words;
    const std::size_t fitting = std::min(size - 1, words.size());
    switch (form) {
      case kWithoutNul:
        for (std::size_t i = 0; i < size; ++i) field[i] = whole[i % whole.size()];
        return;
      case kShort:
      case kText:
        std::memset(field, 0, size);
        std::copy_n(words.begin(), fitting, field);
        return;
      default:
        std::memset(field, form == kZeroes ? 0 : 0xFF, size);
    }
  }

  // Overwrites an argument of a call if the answer says so.
  template <class Argument>
  void Overwrite(Argument* argument, std::size_t size = sizeof(Argument)) const {
    if (overwrites && argument != nullptr) std::memset(static_cast<void*>(argument), 'w', size);
  }

  Status status = kNoError;
  std::uint32_t number = 0;
  std::size_t count = 0;
  Form form = kShort;
  bool overwrites = false;
  std::string_view text;
};

// Returns the answer of a call for a book. Each part of its arguments may be null.
Answer Begin(const ABIdent* book, const KeyRange* range = nullptr, const EntryKey* key = nullptr) {
  Require(isInitialised, "calls are made between IMSPInit and IMSPTerminate");
  Require(book == nullptr || book->name.IsTerminated(), "the name of a book is terminated");
  Require(range == nullptr || (range->first.IsTerminated() && range->filter.IsTerminated()),
          "the texts of a range are terminated");
  Require(key == nullptr || key->name.IsTerminated(), "a key is terminated");
  return {};
}

// The bytes of the row at `index`, of the kind and size of the other arguments.
void WriteRecord(const Answer& answer, BookKind kind, std::uint32_t index, char* row,
                 std::size_t size) {
  const std::string name = std::string(answer.text) + static_cast<char>('A' + index % 26);
  if (answer.form != kShort) return answer.WriteText(row, size, answer.text);
  std::memset(row, 0, size);
  for (const quillbox::TextField& field : quillbox::TypeOf(kind)->texts) {
    answer.WriteText(row + field.offset, field.size, field.offset == 0 ? name : "at");
  }
}

void Write(const Answer& answer, const ABIdent& book, std::uint32_t index, EntryKey* row) {
  const std::string name = std::string(answer.text) + static_cast<char>('A' + index % 26);
  answer.WriteText(reinterpret_cast<char*>(row), sizeof *row,
                   answer.form == kShort ? std::string_view(name) : answer.text);
  static_cast<void>(book);
}

void Write(const Answer& answer, const ABIdent& book, std::uint32_t index, ABIdent* row) {
  if (answer.form != kShort) {
    return answer.WriteText(reinterpret_cast<char*>(row), sizeof *row, answer.text);
  }
  row->kind = book.kind;
  row->SetName(std::string(answer.text.substr(0, 30)) + static_cast<char>('A' + index % 26));
}

void Write(const Answer& answer, const ABIdent& /*book*/, std::uint32_t index, PageBoundary* row) {
  answer.WriteText(reinterpret_cast<char*>(row), sizeof *row, answer.text);
  row->letter = static_cast<char>('A' + index);
  if (answer.form == kShort) row->count = static_cast<std::int32_t>(1 + index % 3);
}

// A record of the book.
struct Bytes {};

std::size_t SizeOfRow(const ABIdent& book, const Bytes* /*rows*/) {
  return quillbox::TypeOf(book.kind)->recordSize;
}
template <class Row>
std::size_t SizeOfRow(const ABIdent& /*book*/, const Row* /*rows*/) {
  return sizeof(Row);
}
void Write(const Answer& answer, const ABIdent& book, std::uint32_t index, Bytes* row) {
  WriteRecord(answer, book.kind, index, reinterpret_cast<char*>(row), SizeOfRow(book, row));
}

// Fills a buffer of `*count` rows, from its end if the direction is 0.
template <class Row>
Status Deliver(const Answer& answer, ABIdent* book, Row* rows, std::uint32_t* count,
               std::int32_t direction) {
  const std::uint32_t capacity = *count;
  const std::size_t size = SizeOfRow(*book, rows);
  Require(rows != nullptr && capacity != 0, "there is a buffer for at least one record");
  // The sanitizer reports a buffer that is smaller than the call says.
  volatile char* const last = reinterpret_cast<char*>(rows) + capacity * size - 1;
  *last = *last;
  const std::uint32_t written = std::min(answer.number, capacity);
  char* const bytes = reinterpret_cast<char*>(rows);
  char* const first = direction == 0 ? bytes + (capacity - written) * size : bytes;
  for (std::uint32_t i = 0; i < written; ++i) {
    Write(answer, *book, i, reinterpret_cast<Row*>(first + i * size));
  }
  *count = answer.Count(written, capacity, capacity);
  return answer.status;
}

// A read of a range of a book.
template <class Row>
Status DeliverPage(ABIdent* book, KeyRange* range, Row* rows, std::uint32_t* count,
                   std::int32_t direction) {
  const Answer answer = Begin(book, range);
  const Status status = Deliver(answer, book, rows, count, direction);
  answer.Overwrite(book);
  answer.Overwrite(range);
  return status;
}

// A call without a buffer.
Status Answered(ABIdent* book, EntryKey* key = nullptr, void* record = nullptr) {
  const Answer answer = Begin(book, nullptr, key);
  if (record != nullptr) answer.Overwrite(record, quillbox::TypeOf(book->kind)->recordSize);
  answer.Overwrite(book);
  answer.Overwrite(key);
  return answer.status;
}

}  // namespace

extern "C" {

void AnsweringServerTake(const char* text, std::size_t size) {
  answers = {text, size};
}

Status IMSPInit() {
  Require(!isInitialised, "the library is initialised once");
  isInitialised = true;
  mayBeLargest = true;
  return Answered(nullptr);
}

Status IMSPTerminate() {
  const Status status = Answered(nullptr);
  isInitialised = false;
  return status;
}

Status IMSPLogin(LoginRecord* login, char* identity, std::uint32_t capacity) {
  Require(login->user.IsTerminated() && login->password.IsTerminated(), "a login is terminated");
  const Answer answer = Begin(nullptr);
  const std::string text = "Quillbox - 1.0 - " + std::string(answer.text);
  answer.WriteText(identity, capacity,
                   answer.form == kShort ? std::string_view(text) : answer.text);
  answer.Overwrite(login);
  return answer.status;
}

Status IMSPLogout() {
  return Answered(nullptr);
}

// Its calls depend on the time, and so take no word.
Status IMSPWakeup() {
  Require(isInitialised, "the keep-alive is sent between IMSPInit and IMSPTerminate");
  return kNoError;
}

Status IMSPAbort() {
  return Answered(nullptr);
}

Status IMSPIOCtl(IOCtlRecord* record) {
  static char ownText[kTextSize];
  const Answer answer = Begin(nullptr);
  // The keep-alive is never due during an input.
  const bool isPeriod = record->code == IOCtlCode::kGetWakeupPeriod;
  record->value = isPeriod ? std::max(answer.number, 2 * kHour) : 1000 * answer.number;
  if (record->code == IOCtlCode::kGetText) {
    if (answer.count == 1) record->text = ownText;
    answer.WriteText(record->text, kTextSize, answer.text);
    if (answer.count == 2) record->text = nullptr;
  }
  return answer.status;
}

Status IMSPCheckString(const char* /*text*/, std::int32_t /*maximumLength*/) {
  return Answered(nullptr);
}

Status IMSPBatchConfiguration(const char* /*path*/) {
  return Answered(nullptr);
}

Status IMSPChangeIdentity(EntryKey* user) {
  return Answered(nullptr, user);
}

Status IMSPCreateAB(ABIdent* book) {
  return Answered(book);
}

Status IMSPDeleteAB(ABIdent* book) {
  return Answered(book);
}

Status IMSPClearAB(ABIdent* book, const char* /*filter*/) {
  return Answered(book);
}

Status IMSPSizeofAB(ABIdent* book, const char* /*filter*/, std::uint32_t* count) {
  const Answer answer = Begin(book);
  if (answer.count == 0) *count = answer.number;
  answer.Overwrite(book);
  return answer.status;
}

Status IMSPReadAB(ABIdent* book, KeyRange* range, void* records, std::uint32_t* count,
                  std::int32_t direction) {
  return DeliverPage(book, range, static_cast<Bytes*>(records), count, direction);
}

Status IMSPListABEntries(ABIdent* book, KeyRange* range, EntryKey* rows, std::uint32_t* count,
                         std::int32_t direction) {
  return DeliverPage(book, range, rows, count, direction);
}

Status IMSPListAB(ABIdent* selector, KeyRange* range, ABIdent* books, std::uint32_t* count,
                  std::int32_t direction) {
  const Answer answer = Begin(selector, range);
  Status status = answer.status;
  if (books == nullptr) {
    *count = answer.Count(answer.number, answer.number, *count);
  } else {
    status = Deliver(answer, selector, books, count, direction);
  }
  answer.Overwrite(selector);
  answer.Overwrite(range);
  return status;
}

Status IMSPReadPageBoundaries(ABIdent* book, PageBoundary* table, std::uint32_t* count) {
  const Answer answer = Begin(book);
  const Status status = Deliver(answer, book, table, count, 1);
  answer.Overwrite(book);
  return status;
}

Status IMSPCreateEntry(ABIdent* book, void* record) {
  return Answered(book, nullptr, record);
}

Status IMSPReadEntryProperties(ABIdent* book, EntryKey* key, void* record) {
  const Answer answer = Begin(book, nullptr, key);
  if (answer.number != 0) Write(answer, *book, 0, static_cast<Bytes*>(record));
  answer.Overwrite(book);
  answer.Overwrite(key);
  return answer.status;
}

Status IMSPModifyEntry(ABIdent* book, EntryKey* key, void* record) {
  return Answered(book, key, record);
}

Status IMSPDeleteEntry(ABIdent* book, EntryKey* key) {
  return Answered(book, key);
}

Status IMSPExport(std::uint32_t /*first*/, std::uint32_t /*second*/) {
  return Answered(nullptr);
}

Status IMSPGetExportFile(std::uint32_t /*first*/, std::uint32_t /*second*/,
                         std::uint32_t /*third*/) {
  return Answered(nullptr);
}

Status IMSPImport(std::uint32_t /*first*/, std::uint32_t /*second*/, std::uint32_t /*third*/) {
  return Answered(nullptr);
}

Status IMSPImpExpState(std::uint32_t /*first*/, std::uint32_t /*second*/) {
  return Answered(nullptr);
}

Status IMSPImpExpAbort() {
  return Answered(nullptr);
}

}  // extern "C"

}  // namespace quillkit
