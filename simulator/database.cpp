#include "simulator/database.h"

#include <algorithm>
#include <string>

#include "simulator/protocol.h"

namespace quillbox {

std::string_view CommandText(const char* text) {
  constexpr std::size_t kCapacity = 400;
  std::size_t length = 0;
  while (length < kCapacity && text[length] != '\0') ++length;
  return {text, length};
}

Status RunDatabaseCommand(Contents& contents, std::string_view command) {
  constexpr std::size_t kWordLength = 14;
  const std::string_view word = command.substr(0, kWordLength);
  const std::string_view texts = command.substr(word.size());
  const std::string name(texts.substr(0, texts.find(',')));
  if (word == "DBCHECK.......") return kNoError;
  if (word == "DBBACKUP......") {
    contents.backups.insert_or_assign(name, contents.store);
    contents.store.MarkWhole();
    return kNoError;
  }
  if (word != "DBRESTORE.....") return kBadCommand;
  const auto backup = contents.backups.find(name);
  if (backup == contents.backups.end()) return kDataNotFound;
  contents.store = backup->second;
  contents.store.MarkWhole();
  return kNoError;
}

}  // namespace quillbox
