#include "base/class_record.h"

#include <algorithm>

namespace quillkit {

bool ClassRecord::IsA(const ClassRecord& other) const {
  for (const ClassRecord* each = this; each != nullptr; each = each->base) {
    if (each == &other) return true;
  }
  return false;
}

const ClassRecord* FindClass(std::string_view name) {
  const auto classes = RegisteredClasses();
  const auto found = std::find_if(classes.begin(), classes.end(),
                                  [&](const ClassRecord* each) { return each->name == name; });
  return found != classes.end() ? *found : nullptr;
}

RootObject* CreateByName(std::string_view name) {
  const ClassRecord* record = FindClass(name);
  return record != nullptr ? record->create() : nullptr;
}

}  // namespace quillkit
