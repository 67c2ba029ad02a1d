#include "import/convert_directory_export.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "import/conversion.h"
#include "import/script.h"
#include "import/text_routines.h"

namespace quillkit {
namespace {

constexpr std::string_view kEntryMark = "dn:";
constexpr std::string_view kNameMark = "cn:";
constexpr std::string_view kAddressMark = "mail:";

// Returns whether kEntryMark begins at one of the eight characters from `at` on. Compares all eight
// at once: a byte of `differences` is zero where the mark begins.
// REQUIRES: two more characters follow the eight.
bool BeginsInEight(const char* at) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  std::uint64_t differences = 0;
  for (std::size_t i = 0; i < kEntryMark.size(); ++i) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, at + i, 8);
    differences |= eight ^ kOnes * static_cast<unsigned char>(kEntryMark[i]);
  }
  return ((differences - kOnes) & ~differences & kOnes << 7) != 0;  // whether a byte is zero
}

// Returns whether the line contains kEntryMark.
bool ContainsEntryMark(std::string_view line) {
  constexpr std::size_t kEight = 8 + kEntryMark.size() - 1;
  if (line.size() < kEight) return line.find(kEntryMark) != line.npos;
  const char* const last = line.data() + line.size() - kEight;
  for (const char* at = line.data(); at < last; at += 8) {
    if (BeginsInEight(at)) return true;
  }
  return BeginsInEight(last);
}

// Like starts_with(), but inlined.
bool BeginsWith(std::string_view line, std::string_view mark) {
  return line.size() >= mark.size() && std::equal(mark.begin(), mark.end(), line.begin());
}

}  // namespace

void DirectoryEntry::Attribute::Set(std::string_view text, std::size_t width) {
  text = text.substr(0, width);
  while (text.starts_with(' ')) text.remove_prefix(1);
  size = text.size();
  std::copy(text.begin(), text.end(), value.begin());
  isSeen = true;
}

bool DirectoryEntry::ProcessLine(std::string_view line) {
  const ScriptBook& book = EmailScriptBook();
  if (!isOpen) {
    isOpen = BeginsWith(line, kEntryMark);
  } else if (ContainsEntryMark(line)) {
    MarkUnseen();
  } else if (!name.IsSeen() && BeginsWith(line, kNameMark)) {
    name.Set(line.substr(kNameMark.size()), book.widths[0]);
    return CloseWhenComplete();
  } else if (!address.IsSeen() && BeginsWith(line, kAddressMark)) {
    address.Set(line.substr(kAddressMark.size()), book.widths[1]);
    return CloseWhenComplete();
  }
  return false;
}

void DirectoryEntry::MarkUnseen() {
  name.MarkUnseen();
  address.MarkUnseen();
}

bool DirectoryEntry::CloseWhenComplete() {
  if (!name.IsSeen() || !address.IsSeen()) return false;
  MarkUnseen();
  isOpen = false;
  return true;
}

std::int32_t ConvertDirectoryExport(ConversionJob job) {
  Conversion conversion;
  const std::int32_t failure = conversion.Open(&job);
  if (failure != kConverted) return failure;
  if (job.isAdmin && job.clearFirst) conversion.script().Append(kWordlessClearLine);

  DirectoryEntry entry;
  for (TextSpan line; conversion.NextLine(&line);) {
    PumpPendingMessages(job.pumpWindow, job.restoreCursor);
    if (line.size() > 1 && entry.ProcessLine(View(line.first(line.size() - 1)))) {
      const std::string_view values[] = {entry.Name(), entry.Address()};
      conversion.AddEntry(EmailScriptBook(), values);
    } else {
      conversion.Report();
    }
  }
  return conversion.Close();
}

}  // namespace quillkit
