#include "quillctl/key_set_difference.h"

#include <algorithm>

#include "quillctl/displayed_text.h"

namespace quillctl {
namespace {

// The element of this name, or null.
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

// ": address "a" -> "b", format 1 -> 2".
std::string ChangedFields(const ItemFields& before, const ItemFields& after) {
  std::string text;
  const auto add = [&text](const std::string& word, const std::string& from,
                           const std::string& to) {
    text += (text.empty() ? ": " : ", ") + word + ' ' + from + " -> " + to;
  };
  for (const ItemText& each : kItemTexts) {
    const std::string& from = before.*each.field;
    const std::string& to = after.*each.field;
    if (from != to) add(each.word, Quoted(from), Quoted(to));
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
      return "- the key " + Quoted(change.key) + " and the items under it";
    case KeySetChange::kChangeItem:
      return "~ " + item + ChangedFields(change.before, change.item);
    case KeySetChange::kAddKey:
      return "+ the key " + Quoted(change.key);
    case KeySetChange::kAddItem:
      return "+ " + item;
  }
  return {};
}

}  // namespace quillctl
