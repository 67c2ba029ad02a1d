#include "quillctl/checkup.h"

#include "quillctl/failures.h"
#include "quillctl/key_commands.h"
#include "quillctl/key_set_difference.h"

namespace quillctl {

Session& Checkup::session() {
  if (!session_ || !session_->IsOpen()) throw Skip("nobody is logged in");
  return *session_;
}

const std::vector<std::string>& Checkup::listed() const {
  if (!listed_) throw Skip("the keys were not listed");
  return *listed_;
}

const KeySet& Checkup::keys() const {
  if (!keys_) throw Skip("the keys and their items were not read");
  return *keys_;
}

void Checkup::RequireTime() const {
  if (termination_ && termination_->IsRequested()) throw Skip("the check was interrupted");
}

void Checkup::RequireSame(const KeySet& now) const {
  const KeySet& before = keys();
  if (now == before) return;
  const std::vector<KeySetChange> changes = Difference(before, now);
  throw Refusal(changes.empty() ? "the order is not the one of before"
                                : "this differs from before: " + Described(changes.front()));
}

void RequireUnknown(quillkit::CTopLevelAB* book, const std::string& name) {
  const OwnedKey key = MakeKey(name, book);
  std::uint32_t items = 0;
  RequireCode(quillkit::GetDBItemCount(key.get(), &items), kNoSuchBook);
}

std::string FreeName(quillkit::CTopLevelAB* book, const std::string& taken) {
  const std::string first = "quillctl check";
  std::string name = first;
  for (int i = 2; name == taken || quillkit::FindSoftKeyIndex(book, name) >= 0; ++i) {
    name = first + ' ' + std::to_string(i);
  }
  return name;
}

}  // namespace quillctl
