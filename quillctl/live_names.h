// The names on an appliance, for shell completion.

#ifndef QUILLCTL_LIVE_NAMES_H_
#define QUILLCTL_LIVE_NAMES_H_

#include <string>
#include <vector>

#include "quillctl/session.h"

namespace quillctl {

struct NameQuery {
  enum Kind { kNone, kKey, kItem, kEntry, kList };

  Kind kind = kNone;
  std::string scope;   // the key of an item, the book of an entry, the kind of a list
  std::string prefix;  // what the names begin with
};

// Returns the names; none if a book has more than 64. Those of the last 30 seconds come from a
// cache. Otherwise logs in. Never asks: returns nothing if the credentials have no password, if a
// session of the user is running, if there is no private cache, and on any failure.
std::vector<std::string> LiveNames(const Credentials& credentials, const NameQuery& query);

}  // namespace quillctl

#endif  // QUILLCTL_LIVE_NAMES_H_
