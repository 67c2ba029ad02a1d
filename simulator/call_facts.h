// The facts about a call that a fault can depend on.

#ifndef QUILLKIT_SIMULATOR_CALL_FACTS_H_
#define QUILLKIT_SIMULATOR_CALL_FACTS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "simulator/book_type.h"
#include "simulator/journal.h"
#include "simulator/protocol.h"

namespace quillbox {

struct CallFacts {
  std::string_view entryPoint;
  BookKind kind = BookKind::kNone;  // of the book; kNone without one
  std::string book;                 // its name
  std::string name;                 // of the entry, or of the user to change to
  std::string account;              // whose rights apply, or the one that logs in
  std::uint64_t time = 0;           // milliseconds since the first call of the process

  // Adds what an argument contains.
  template <class Argument>
  void Add(const Argument& argument) {
    if constexpr (std::is_convertible_v<Argument, const ABIdent*>) {
      if (argument == nullptr) return;
      kind = argument->kind;
      book = argument->name.View();
    } else if constexpr (std::is_convertible_v<Argument, const EntryKey*>) {
      if (argument != nullptr) name = argument->name.View();
    } else if constexpr (std::is_convertible_v<Argument, const LoginRecord*>) {
      if (argument != nullptr) account = argument->user.View();
    } else if constexpr (std::is_same_v<Argument, RecordArgument>) {
      if (name.empty() && argument.record != nullptr) name = NameOf(argument.record).name.View();
    }
  }
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_CALL_FACTS_H_
