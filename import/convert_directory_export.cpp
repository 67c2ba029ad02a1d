#include "import/convert_directory_export.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "import/conversion.h"
#include "import/script.h"
#include "import/text_routines.h"

namespace quillkit {
namespace {

constexpr std::string_view kEntryMark = "dn:";

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
  // `name` with its colon; a value is cut at `width` bytes.
  Attribute(std::string_view name, std::size_t width) : name_(name), width_(width) {}

  bool IsSeen() const { return isSeen_; }
  void Forget() { isSeen_ = false; }

  // Takes the value if the line is the attribute's first. Whether it was.
  bool Take(std::string_view line) {
    if (isSeen_ || !line.starts_with(name_)) return false;
    value_.assign(line.substr(name_.size(), width_));
    isSeen_ = true;
    return true;
  }

  // The value without leading blanks, which counted when it was cut.
  std::string_view Value() const {
    std::string_view value = value_;
    while (value.starts_with(' ')) value.remove_prefix(1);
    return value;
  }

 private:
  std::string_view name_;
  std::size_t width_;
  std::string value_;
  bool isSeen_ = false;
};

class DirectoryEntries {
 public:
  DirectoryEntries(ScriptWriter& script, bool isAdmin) : script_(script), isAdmin_(isAdmin) {}

  void Take(std::string_view line) {
    if (!isInEntry_) {
      isInEntry_ = line.starts_with(kEntryMark);
      return;
    }
    if (HoldsEntryMark(line)) {
      Forget();
      return;
    }
    if (!name_.Take(line)) address_.Take(line);
    if (name_.IsSeen() && address_.IsSeen()) Write();
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
  Attribute name_{"cn:", EmailScriptBook().widths[0]};
  Attribute address_{"mail:", EmailScriptBook().widths[1]};
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
