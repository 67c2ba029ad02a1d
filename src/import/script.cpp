#include "import/script.h"

#include <algorithm>
#include <utility>

#include "base/secret.h"
#include "import/import_options.h"

namespace quillkit {
namespace {

constexpr ScriptBook BookOf(std::int32_t target, bool hasPlainPair, std::string_view word,
                            std::size_t fieldCount,
                            const std::array<std::size_t, kMaxEntryFields>& widths,
                            std::string_view tail = {}) {
  return {target, hasPlainPair, word, fieldCount, widths, {"SE ", word, " \""}, {"\"", tail, "\n"}};
}

constexpr ScriptBook kScriptBooks[] = {
    BookOf(TargetEmail, true, "emailab", 2, {31, 255}),
    BookOf(TargetFax, true, "faxab", 3, {31, 79, 10}),
    BookOf(TargetPrinters, false, "printersab", 3, {31, 255, 31}),
    BookOf(TargetUsers, false, "usersab", 4, {31, 15, 255, 255}, " 1 0 0 1"),
};

// The space for the longest line of an entry. Its last part is copied as 16 bytes.
constexpr std::size_t LongestEntry() {
  std::size_t longest = 0;
  for (const ScriptBook& book : kScriptBooks) {
    std::size_t size = book.entryBegin.Size() + ShortText::kCopied;
    for (const std::size_t width : book.widths) size += width + 3;
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
    at = book.entryBegin.Put(at);
    for (std::size_t i = 0; i < book.fieldCount; ++i) {
      if (i != 0) at = Put(at, "\" \"");
      at = Put(at, values[i].substr(0, book.widths[i]));
    }
    at = book.entryEnd.Put(at);
  } else {
    for (std::size_t i = 0; i < 2; ++i) {
      at = Put(Put(at, values[i].substr(0, book.widths[i])), "\n");
    }
  }
  script.Commit(at);
}

}  // namespace quillkit
