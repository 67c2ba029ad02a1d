// The entries of a contact file of any format. The input is the file, so that the seeds can be
// files as other programs write them; its size chooses the options.

#include <functional>
#include <sstream>
#include <string>

#include "contacts/form.h"
#include "entries/entries.h"
#include "fuzz/input.h"

namespace contacts {
namespace {

using entries::Entry;
using entries::EntryOptions;
using entries::EntryReader;
using entries::Mapping;
using entries::Part;
using quillkit::Require;

constexpr std::size_t kNameWidth = 31;
constexpr std::size_t kAddressWidth = 255;

void CheckEntry(const Entry& entry) {
  if (entry.isPassedOver) {
    Require(!entry.notes.empty(), "a note says why an entry is passed over");
    return;
  }
  if (entry.fault.problem != nullptr) return;
  Require(!entry.values[0].empty() && !entry.values[1].empty(), "an entry has its values");
  Require(entry.values[0].size() <= kNameWidth && entry.values[1].size() <= kAddressWidth,
          "a value fits its field");
  for (const std::string& each : entry.values) {
    Require(each.find('\0') == each.npos, "a value has no NUL");
  }
}

void CheckFile(const std::string& file) {
  const Mapping mapping(
      {{"name", Part::kName, kNameWidth, true}, {"address", Part::kEmail, kAddressWidth, true}}, {},
      file.size() % 3 == 0 ? Place::kWork : Place::kNone);
  const EntryOptions options{file.size() % 2 == 0 ? Encoding::kUtf8 : Encoding::kWindows1252,
                             file.size() % 5 == 0};
  std::istringstream source(file);
  const Form form = Recognise(file, {}, std::bind_front(&Mapping::KnownHeadings, &mapping));
  EntryReader reader(source, form, mapping, options);
  std::uint64_t position = 0;
  std::uint64_t line = 0;
  for (Entry entry; reader.Next(entry);) {
    Require(entry.begin >= position && entry.end >= entry.begin && entry.end <= file.size(),
            "records are in order, inside the file, and do not overlap");
    Require(entry.line >= line && entry.line >= 1, "lines are in order");
    position = entry.end;
    line = entry.line;
    CheckEntry(entry);
  }
}

}  // namespace
}  // namespace contacts

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    contacts::CheckFile(std::string(reinterpret_cast<const char*>(data), size));
  } catch (const contacts::FormError&) {
    // the file as a whole is rejected
  }
  return 0;
}
