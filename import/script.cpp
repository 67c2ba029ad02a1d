#include "import/script.h"

#include "import/import_options.h"

namespace quillkit {
namespace {

constexpr ScriptBook kScriptBooks[] = {
    {TargetEmail, "emailab", 2, {31, 255}, "\n", true},
    {TargetFax, "faxab", 3, {31, 79, 10}, "\n", true},
    {TargetPrinters, "printersab", 3, {31, 255, 31}, "\n", false},
    {TargetUsers, "usersab", 4, {31, 15, 255, 255}, " 1 0 0 1\n", false},
};

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
  if (!isAdmin) {
    for (std::size_t i = 0; i < 2; ++i) {
      script.Append(values[i].substr(0, book.widths[i]));
      script.Append("\n");
    }
    return;
  }
  script.Append("SE ");
  script.Append(book.word);
  for (std::size_t i = 0; i < book.fieldCount; ++i) {
    script.Append(" \"");
    script.Append(values[i].substr(0, book.widths[i]));
    script.Append("\"");
  }
  script.Append(book.tail);
}

}  // namespace quillkit
