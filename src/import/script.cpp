#include "import/script.h"

#include <algorithm>
#include <utility>

#include "base/secret.h"
#include "import/import_options.h"

namespace quillkit {
namespace {

constexpr ScriptBook kScriptBooks[] = {
    {TargetEmail, true, "emailab", 2, {31, 255}, "\n"},
    {TargetFax, true, "faxab", 3, {31, 79, 10}, "\n"},
    {TargetPrinters, false, "printersab", 3, {31, 255, 31}, "\n"},
    {TargetUsers, false, "usersab", 4, {31, 15, 255, 255}, " 1 0 0 1\n"},
};

// The longest line of an entry: "SE", the word, each field with a space and two quotes, the tail.
constexpr std::size_t LongestEntry() {
  std::size_t longest = 0;
  for (const ScriptBook& book : kScriptBooks) {
    std::size_t size = 3 + book.word.size() + book.tail.size();
    for (const std::size_t width : book.widths) size += 3 + width;
    longest = std::max(longest, size);
  }
  return longest;
}
constexpr std::size_t kLongestEntry = LongestEntry();

// Writes the text and returns the end of it.
char* Put(char* at, std::string_view text) {
  return std::copy(text.begin(), text.end(), at);
}

}  // namespace

ScriptWriter::ScriptWriter() : buffer(new char[kBufferSize]) {}

ScriptWriter::~ScriptWriter() {
  WipeBytes(buffer.get(), kBufferSize);
}

bool ScriptWriter::Open(OpenFile newFile) {
  file = std::move(newFile);
  if (!file.IsOpen()) return false;
  file.WriteAsText();
  return true;
}

bool ScriptWriter::Close() {
  WriteBuffer();
  return file.Close();
}

void ScriptWriter::WriteBuffer() {
  if (IsGood()) file.Write({buffer.get(), used});
  used = 0;
}

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
  char* at = script.Reserve(kLongestEntry);
  if (isAdmin) {
    at = Put(Put(at, "SE "), book.word);
    for (std::size_t i = 0; i < book.fieldCount; ++i) {
      at = Put(Put(Put(at, " \""), values[i].substr(0, book.widths[i])), "\"");
    }
    at = Put(at, book.tail);
  } else {
    for (std::size_t i = 0; i < 2; ++i) {
      at = Put(Put(at, values[i].substr(0, book.widths[i])), "\n");
    }
  }
  script.Commit(at);
}

}  // namespace quillkit
