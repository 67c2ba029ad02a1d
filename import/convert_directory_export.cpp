#include "import/convert_directory_export.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "import/conversion.h"
#include "import/script.h"
#include "import/text_routines.h"

namespace quillkit {
namespace {

constexpr std::string_view kEntryMark = "dn:";
constexpr std::string_view kNameMark = "cn:";
constexpr std::string_view kAddressMark = "mail:";

// Whether kEntryMark stands anywhere in the line. Looks for the colon, of which a line has few.
bool HoldsEntryMark(std::string_view line) {
  for (std::size_t colon = line.find(':'); colon != line.npos; colon = line.find(':', colon + 1)) {
    if (line.substr(0, colon + 1).ends_with(kEntryMark)) return true;
  }
  return false;
}

// One attribute of the entry that is being read: the first value of its name.
class Attribute {
 public:
  explicit Attribute(std::size_t width) : width_(width) {}

  bool IsSeen() const { return isSeen_; }
  void Forget() { isSeen_ = false; }

  // Takes `text`, cut at the width and then without its leading blanks.
  void Take(std::string_view text) {
    text = text.substr(0, width_);
    while (text.starts_with(' ')) text.remove_prefix(1);
    size_ = text.size();
    std::copy(text.begin(), text.end(), value_.begin());
    isSeen_ = true;
  }

  std::string_view Value() const { return {value_.data(), size_}; }

 private:
  const std::size_t width_;
  std::array<char, 256> value_;
  std::size_t size_ = 0;
  bool isSeen_ = false;
};

class DirectoryEntries {
 public:
  DirectoryEntries(ScriptWriter& script, bool isAdmin) : script_(script), isAdmin_(isAdmin) {}

  void Take(std::string_view line) {
    if (!isInEntry_) {
      isInEntry_ = line.starts_with(kEntryMark);
    } else if (HoldsEntryMark(line)) {
      Forget();
    } else if (!name_.IsSeen() && line.starts_with(kNameMark)) {
      name_.Take(line.substr(kNameMark.size()));
      if (address_.IsSeen()) Write();
    } else if (!address_.IsSeen() && line.starts_with(kAddressMark)) {
      address_.Take(line.substr(kAddressMark.size()));
      if (name_.IsSeen()) Write();
    }
  }

 private:
  void Forget() {
    name_.Forget();
    address_.Forget();
  }

  void Write() {
    const std::string_view values[] = {name_.Value(), address_.Value()};
    WriteEntry(script_, EmailScriptBook(), isAdmin_, values);
    Forget();
    isInEntry_ = false;
  }

  ScriptWriter& script_;
  const bool isAdmin_;
  bool isInEntry_ = false;
  Attribute name_{EmailScriptBook().widths[0]};
  Attribute address_{EmailScriptBook().widths[1]};
};

}  // namespace

std::int32_t ConvertDirectoryExport(const char* sourcePath, const char* scriptPath,
                                    std::int32_t clearFirst, std::int32_t isAdmin,
                                    WindowHandle pumpWindow, std::int32_t restoreCursor) {
  Conversion conversion;
  const std::int32_t failure = conversion.Open(sourcePath, scriptPath);
  if (failure != kConverted) return failure;
  if (isAdmin != 0 && clearFirst != 0) conversion.script().Append(kWordlessClearLine);

  DirectoryEntries entries(conversion.script(), isAdmin != 0);
  for (TextSpan line; conversion.NextLine(&line);) {
    PumpPendingMessages(pumpWindow, restoreCursor);
    if (line.size() > 1) entries.Take(View(line.first(line.size() - 1)));
  }
  return conversion.Close();
}

}  // namespace quillkit
