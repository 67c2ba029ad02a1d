#include "import/script.h"

#include <algorithm>

#include "import/import_options.h"

namespace quillkit {
namespace {

constexpr ScriptBook kScriptBooks[] = {
    {TargetEmail, true, "emailab", 2, {31, 255}, "\n"},
    {TargetFax, true, "faxab", 3, {31, 79, 10}, "\n"},
    {TargetPrinters, false, "printersab", 3, {31, 255, 31}, "\n"},
    {TargetUsers, false, "usersab", 4, {31, 15, 255, 255}, " 1 0 0 1\n"},
};

// More than any entry takes.
constexpr std::size_t kMaxEntryLine = 1024;

char* Put(char* at, std::string_view text) {
  return std::copy(text.begin(), text.end(), at);
}

}  // namespace

const ScriptBook* FindScriptBook(std::int32_t target) {
  for (const ScriptBook& book : kScriptBooks) {
    if (book.target == target) return &book;
  }
  return nullptr;
}

const ScriptBook& EmailScriptBook() {
  return kScriptBooks[0];
}

void WriteClearLine(ScriptWriter& script, const ScriptBook& book) {
  script.Append("CA ");
  script.Append(book.word);
  script.Append("\n");
}

void WriteEntry(ScriptWriter& script, const ScriptBook& book, bool isAdmin,
                std::span<const std::string_view> values) {
  char* at = script.Room(kMaxEntryLine);
  if (isAdmin) {
    at = Put(Put(at, "SE "), book.word);
    for (std::size_t i = 0; i < book.fieldCount; ++i) {
      at = Put(Put(Put(at, " \""), values[i].substr(0, book.widths[i])), "\"");
    }
    at = Put(at, book.tail);
  } else {
    for (std::size_t i = 0; i < 2; ++i)
      at = Put(Put(at, values[i].substr(0, book.widths[i])), "\n");
  }
  script.Take(at);
}

}  // namespace quillkit
