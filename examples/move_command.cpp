#include "examples/move_command.h"

#include <algorithm>
#include <iostream>

#include "examples/displayed_text.h"
#include "examples/failures.h"
#include "examples/json_output.h"
#include "examples/key_commands.h"
#include "examples/key_set.h"
#include "platform/ending.h"

namespace quillctl {
namespace {

using Items = std::vector<ItemFields>;

Items ReadItems(const Session& session, const std::string& key) {
  return ItemsOf(FindKey(session.LoadKeys(true), key));
}

Items::const_iterator Find(const Items& items, const std::string& key, const std::string& name) {
  const auto found = std::ranges::find(items, name, &ItemFields::name);
  if (found == items.end()) {
    throw Refusal("the key " + Quoted(key) + " has no item " + Quoted(name));
  }
  return found;
}

// The items in the order that is wanted.
Items Moved(Items items, const std::string& key, const std::string& name, const std::string& next) {
  const ItemFields item = *Find(items, key, name);
  items.erase(Find(items, key, name));
  items.insert(next.empty() ? items.cend() : Find(items, key, next), item);
  return items;
}

// How many of the wanted items can stay where they are: those in front that have their order
// already, so that the rest, added again, comes behind them.
std::size_t Kept(const Items& now, const Items& wanted) {
  std::size_t kept = 0;
  for (const ItemFields& item : now) {
    if (item == wanted[kept]) ++kept;
  }
  return kept;
}

void AddAgain(quillkit::CSoftKey* key, const ItemFields& item) {
  const OwnedItem made = MakeItem(item);
  if (quillkit::AddMenuItem(key, made.get(), 1) == 0) return;
  const std::int32_t status = quillkit::AddMenuItem(key, made.get(), 1);
  if (status == 0) return;
  throw Refusal(DescribedItem(item.name, quillkit::GetKeyName(key)) +
                " was deleted and cannot be added again: " + CodeAndText(status) +
                "; it was: " + ItemJson(item, Utf8Text).dump());
}

// Deletes an item and adds it again. Whether it is now the last one.
bool PutLast(quillkit::CSoftKey* key, const ItemFields& item) {
  RequireGood(quillkit::DeleteMenuItem(key, item.name, 0),
              "delete " + DescribedItem(item.name, quillkit::GetKeyName(key)));
  AddAgain(key, item);
  const Items now = ItemsOf(key);
  return !now.empty() && now.back() == item;
}

}  // namespace

void MoveToKey(const Session& session, const std::string& key, const std::string& name,
               const std::string& target) {
  if (key == target) throw UsageError("the item is to go under the key that it is under");
  quillkit::CTopLevelAB* book = session.LoadKeys(true);
  quillkit::CSoftKey* from = FindKey(book, key);
  quillkit::CSoftKey* to = FindKey(book, target);
  const Items items = ItemsOf(from);
  const OwnedItem item = MakeItem(*Find(items, key, name));
  RequireGood(quillkit::AddMenuItem(to, item.get(), 0), "add " + DescribedItem(name, target));
  const std::int32_t status = quillkit::DeleteMenuItem(from, name, 0);
  if (status != 0) {
    throw Refusal("the item " + Quoted(name) +
                  " is now under both keys; it cannot be deleted under " + Quoted(key) + ": " +
                  CodeAndText(status));
  }
  std::cout << "Moved " << DescribedItem(name, key) << " to the key " << Quoted(target) << ".\n";
}

void MoveWithinKey(const Session& session, const std::string& key, const std::string& name,
                   const std::string& next) {
  if (name == next) throw UsageError("an item cannot stand in front of itself");
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), key);
  const Items now = ItemsOf(found);
  const Items wanted = Moved(now, key, name, next);
  if (now == wanted) {
    std::cout << "Nothing to move: " << DescribedItem(name, key) << " stands there.\n";
    return;
  }
  const std::size_t kept = Kept(now, wanted);
  const quillkit::DeferredEnding wholeMove;  // no item is lost between its places
  for (std::size_t i = kept; i < wanted.size(); ++i) {
    if (PutLast(found, wanted[i])) continue;
    throw Refusal(
        "this appliance puts a new item where it wants to; the items are all there, and " +
        std::string(i == kept ? "none has moved" : "their order may have changed"));
  }
  if (ReadItems(session, key) != wanted) {
    throw Refusal("this appliance orders items itself; they are all there, in its order");
  }
  std::cout << "Moved " << DescribedItem(name, key) << ".\n";
}

}  // namespace quillctl
