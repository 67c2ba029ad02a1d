#include "quillctl/move_command.h"

#include <algorithm>
#include <iostream>

#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/json_output.h"
#include "quillctl/key_commands.h"
#include "quillctl/key_set.h"
#include "quillctl/system/ending.h"

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

bool Holds(const Items& items, const ItemFields& item) {
  return std::ranges::find(items, item) != items.end();
}

std::string Lost(const ItemFields& item, const std::string& key, const std::string& why) {
  return DescribedItem(item.name, key) + " is gone, as far as the appliance tells" + why +
         "; it was: " + ItemJson(item, Utf8Text).dump();
}

// Deletes an item and adds it again. The items then. A Refusal that tells the item when it may be
// lost, whatever the appliance answered.
Items PutLast(const Session& session, const std::string& key, const ItemFields& item) {
  quillkit::CSoftKey* const owner = FindKey(session.book(), key);
  const OwnedItem made = MakeItem(item);
  RequireGood(quillkit::DeleteMenuItem(owner, item.name, 0),
              "delete " + DescribedItem(item.name, key));
  std::int32_t status = quillkit::AddMenuItem(owner, made.get(), 0);
  if (status != 0) status = quillkit::AddMenuItem(owner, made.get(), 0);
  const std::string why = status == 0 ? "" : ": " + CodeAndText(status);
  try {
    Items now = ReadItems(session, key);
    if (Holds(now, item)) return now;
  } catch (const Refusal& unread) {
    throw Refusal(Lost(item, key, why + ": " + unread.what()));
  }
  throw Refusal(Lost(item, key, why));
}

std::string Order(bool isKept) {
  return std::string("the items are all there, and ") +
         (isKept ? "none has moved" : "their order may have changed");
}

// Puts the wanted items behind the first `kept`, which stand where they are to stand.
void PutInOrder(const Session& session, const std::string& key, const Items& before,
                const Items& wanted, std::size_t kept) {
  const quillkit::DeferredEnding ending;  // no item is lost between its places
  Items now = before;
  for (std::size_t i = kept; i < wanted.size(); ++i) {
    if (ending.IsDemanded()) throw Refusal("interrupted; " + Order(now == before));
    now = PutLast(session, key, wanted[i]);
    for (const ItemFields& item : wanted) {
      if (!Holds(now, item)) throw Refusal(Lost(item, key, ""));
    }
    if (now.back() == wanted[i]) continue;
    throw Refusal("this appliance puts a new item where it wants to; " + Order(now == before));
  }
  if (now != wanted) {
    throw Refusal("this appliance orders items itself; " + Order(now == before));
  }
}

// Whether the key has an item of the name. A Refusal that says what was `done` when that cannot be
// read.
bool HasItem(const Session& session, const std::string& key, const std::string& name,
             const std::string& done) {
  try {
    return std::ranges::count(ReadItems(session, key), name, &ItemFields::name) != 0;
  } catch (const Refusal& why) {
    throw Refusal(done + ": " + why.what());
  }
}

}  // namespace

void MoveToKey(const Session& session, const std::string& key, const std::string& name,
               const std::string& target) {
  if (key == target) throw UsageError("the item is to go under the key that it is under");
  const ItemFields item = *Find(ReadItems(session, key), key, name);
  const std::string moved = DescribedItem(name, target);
  RequireGood(quillkit::AddMenuItem(FindKey(session.book(), target), MakeItem(item).get(), 0),
              "add " + moved);
  // The copy has to be there before the original goes.
  if (!HasItem(session, target, name,
               "the appliance took " + moved + ", which cannot be read; nothing was deleted")) {
    throw Refusal("the appliance took " + moved + ", and does not tell of it; nothing was deleted");
  }
  const std::int32_t status = quillkit::DeleteMenuItem(FindKey(session.book(), key), name, 0);
  if (status != 0 || HasItem(session, key, name,
                             moved + " stands there; whether it is gone under " + Quoted(key) +
                                 " cannot be read")) {
    throw Refusal("the item " + Quoted(name) +
                  " is now under both keys; it cannot be deleted under " + Quoted(key) + ": " +
                  (status != 0 ? CodeAndText(status) : "the appliance says that it did"));
  }
  std::cout << "Moved " << DescribedItem(name, key) << " to the key " << Quoted(target) << ".\n";
}

void MoveWithinKey(const Session& session, const std::string& key, const std::string& name,
                   const std::string& next) {
  if (name == next) throw UsageError("an item cannot stand in front of itself");
  const Items now = ReadItems(session, key);
  const Items wanted = Moved(now, key, name, next);
  if (now == wanted) {
    std::cout << "Nothing to move: " << DescribedItem(name, key) << " stands there.\n";
    return;
  }
  PutInOrder(session, key, now, wanted, Kept(now, wanted));
  std::cout << "Moved " << DescribedItem(name, key) << ".\n";
}

}  // namespace quillctl
