#include "quillctl/key_set.h"

#include <algorithm>

#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"

namespace quillctl {

void RequireWhole(quillkit::CSoftKey* key) {
  const std::string name = Quoted(quillkit::GetKeyName(key));
  std::uint32_t stored = 0;
  RequireGood(quillkit::GetDBItemCount(key, &stored), "count the items of " + name);
  const auto read = static_cast<std::uint32_t>(quillkit::GetItemCount(key));
  if (read == stored) return;
  throw Refusal("cannot read the items of " + name + ": " + std::to_string(read) + " of " +
                std::to_string(stored) + " came");
}

std::vector<ItemFields> ItemsOf(quillkit::CSoftKey* key) {
  RequireWhole(key);
  std::vector<ItemFields> items;
  const std::int32_t count = quillkit::GetItemCount(key);
  items.reserve(static_cast<std::size_t>(std::max(count, 0)));
  for (std::int32_t i = 0; i < count; ++i) {
    items.push_back(FieldsOf(quillkit::GetItemAt(key, i)));
    if (items.back().name.empty()) {
      throw Refusal("an item of " + Quoted(quillkit::GetKeyName(key)) + " came without a name");
    }
  }
  return items;
}

KeySet KeysIn(quillkit::CTopLevelAB* book) {
  KeySet keys;
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    quillkit::CSoftKey* key = quillkit::GetKeyAt(book, i);
    keys.push_back({quillkit::GetKeyName(key), ItemsOf(key)});
  }
  return keys;
}

KeySet ReadKeySet(const Session& session) {
  return KeysIn(session.LoadKeys(true));
}

}  // namespace quillctl
