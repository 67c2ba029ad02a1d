#include "quillctl/key_set.h"

#include <algorithm>
#include <new>

#include "console/displayed_text.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

// Returns the element of this name, or null.
template <class Named>
const Named* Find(const std::vector<Named>& list, const std::string& name) {
  const auto found = std::ranges::find(list, name, &Named::name);
  return found == list.end() ? nullptr : &*found;
}

void AddItemChanges(std::vector<KeySetChange>& changes, const KeyFields& now,
                    const KeyFields& wanted) {
  for (const ItemFields& item : now.items) {
    if (Find(wanted.items, item.name) == nullptr) {
      changes.push_back({KeySetChange::kDeleteItem, now.name, item});
    }
  }
  for (const ItemFields& item : wanted.items) {
    const ItemFields* const before = Find(now.items, item.name);
    if (before == nullptr) {
      changes.push_back({KeySetChange::kAddItem, now.name, item});
    } else if (*before != item) {
      changes.push_back({KeySetChange::kChangeItem, now.name, item, *before});
    }
  }
}

// Returns text such as: address "a" -> "b", format 1 -> 2
std::string DescribedChanges(const ItemFields& before, const ItemFields& after) {
  std::string text;
  const auto add = [&text](const std::string& word, const std::string& from,
                           const std::string& to) {
    text += (text.empty() ? ": " : ", ") + word + ' ' + from + " -> " + to;
  };
  for (const ItemText& each : kItemTexts) {
    const std::string& from = before.*each.field;
    const std::string& to = after.*each.field;
    if (from != to) add(each.word, console::Quoted(from), console::Quoted(to));
  }
  if (before.fileFormat != after.fileFormat) {
    add("format", std::to_string(before.fileFormat), std::to_string(after.fileFormat));
  }
  if (before.settings != after.settings) {
    add("settings", Hexadecimal(before.settings), Hexadecimal(after.settings));
  }
  return text;
}

}  // namespace

std::string StoredKeyName(quillkit::CTopLevelAB* book, const std::string& name) {
  return console::StoredName(
      name, [&](const std::string& form) { return quillkit::FindSoftKeyIndex(book, form) >= 0; });
}

quillkit::CSoftKey* FindKey(quillkit::CTopLevelAB* book, const std::string& name) {
  const std::int32_t index = quillkit::FindSoftKeyIndex(book, StoredKeyName(book, name));
  if (index < 0)
    throw NotFound("no soft key has the name " + console::Quoted(name) + "; see quillctl key list");
  return quillkit::GetKeyAt(book, index);
}

OwnedKey MakeKey(const std::string& name, quillkit::CTopLevelAB* book) {
  quillkit::CSoftKey* key = nullptr;
  const bool made = quillkit::CreateSoftKey(name, book, &key) != 0;
  OwnedKey owned(key);
  if (!made) throw std::bad_alloc();
  return owned;
}

void RequireComplete(quillkit::CSoftKey* key) {
  const std::string name = console::Quoted(quillkit::GetKeyName(key));
  std::uint32_t stored = 0;
  RequireSuccess(quillkit::GetDBItemCount(key, &stored), "count the items of " + name);
  const auto read = static_cast<std::uint32_t>(quillkit::GetItemCount(key));
  if (read == stored) return;
  throw Refusal("cannot read the items of " + name + ": received " + std::to_string(read) + " of " +
                std::to_string(stored));
}

std::vector<ItemFields> ItemsOf(quillkit::CSoftKey* key) {
  RequireComplete(key);
  std::vector<ItemFields> items;
  const std::int32_t count = quillkit::GetItemCount(key);
  items.reserve(static_cast<std::size_t>(std::max(count, 0)));
  for (std::int32_t i = 0; i < count; ++i) {
    items.push_back(FieldsOf(quillkit::GetItemAt(key, i)));
    if (items.back().name.empty()) {
      throw Refusal("cannot read the items of " + console::Quoted(quillkit::GetKeyName(key)) +
                    ": received an item without a name");
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

ItemFields FieldsOf(quillkit::CMenuItem* item) {
  return {quillkit::GetItemName(item), quillkit::IPAddress(item),  quillkit::Path(item),
          quillkit::AppTag(item),      quillkit::FileFormat(item), quillkit::Settings(item)};
}

OwnedItem MakeItem(const ItemFields& fields) {
  quillkit::CMenuItem* made = nullptr;
  if (quillkit::CreateMenuItem(&made) == 0) throw std::bad_alloc();
  OwnedItem item(made);
  for (const ItemText& each : kItemTexts) {
    if (each.store(made, fields.*each.field) == 1) continue;
    throw UsageError("the item's " + std::string(each.title) + " is longer than " +
                     std::to_string(each.limit) + " bytes");
  }
  quillkit::SetFileFormat(made, fields.fileFormat);
  quillkit::SetSettings(made, fields.settings);
  return item;
}

std::string Hexadecimal(std::uint32_t word) {
  std::string text = "0x00000000";
  for (std::size_t at = text.size(); word != 0; word >>= 4)
    text[--at] = "0123456789ABCDEF"[word & 15];
  return text;
}

std::string DescribedItem(const std::string& item, const std::string& key) {
  return "the item " + console::Quoted(item) + " under the key " + console::Quoted(key);
}

std::vector<KeySetChange> Difference(const KeySet& now, const KeySet& wanted) {
  std::vector<KeySetChange> changes;
  for (const KeyFields& key : now) {
    const KeyFields* const kept = Find(wanted, key.name);
    if (kept == nullptr) {
      changes.push_back({KeySetChange::kDeleteKey, key.name, {}});
    } else {
      AddItemChanges(changes, key, *kept);
    }
  }
  for (const KeyFields& key : wanted) {
    if (Find(now, key.name) != nullptr) continue;
    changes.push_back({KeySetChange::kAddKey, key.name, {}});
    AddItemChanges(changes, {key.name, {}}, key);
  }
  std::ranges::stable_sort(changes, {}, &KeySetChange::kind);
  return changes;
}

std::string Described(const KeySetChange& change) {
  const std::string item = DescribedItem(change.item.name, change.key);
  switch (change.kind) {
    case KeySetChange::kDeleteItem:
      return "- " + item;
    case KeySetChange::kDeleteKey:
      return "- the key " + console::Quoted(change.key) + " and its items";
    case KeySetChange::kChangeItem:
      return "~ " + item + DescribedChanges(change.before, change.item);
    case KeySetChange::kAddKey:
      return "+ the key " + console::Quoted(change.key);
    case KeySetChange::kAddItem:
      return "+ " + item;
  }
  return {};
}

}  // namespace quillctl
