#include "quillctl/move_command.h"

#include <algorithm>
#include <iostream>

#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/key_commands.h"
#include "quillctl/key_set.h"

namespace quillctl {
namespace {

using Items = std::vector<ItemFields>;

Items ReadItems(const Session& session, const std::string& key) {
  return ItemsOf(FindKey(session.LoadKeys(true), key));
}

ItemFields ItemOf(const Items& items, const std::string& key, const std::string& name) {
  const auto found = std::ranges::find(items, name, &ItemFields::name);
  if (found != items.end()) return *found;
  throw Refusal("the key " + Quoted(key) + " has no item " + Quoted(name));
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
  const ItemFields item = ItemOf(ReadItems(session, key), key, name);
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

}  // namespace quillctl
