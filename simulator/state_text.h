// The contents of all books and their backups as lines of ASCII, for people to read and compare:
//
//   quillbox state 2
//   book 1 "EMAILAB" ""                     kind, name, user; created if it does not exist
//   entry "Agnes\z27;agnes@..."             a record of the book, in the format of escaped_text.h;
//                                           replaces the entry of that name
//   backup "nightly"                        the following books belong to this backup
//   end
//
// Changes may follow, each completed by a line "end":
//
//   book 1 "EMAILAB" ""
//   remove "Agnes"                          deletes an entry of the book
//   clear                                   deletes all entries of the book
//   drop 512 "Desks" ""                     deletes a book
//   end
//
// Lines end with LF or CR LF; blank lines are skipped. A last change without its line "end" was
// interrupted and is ignored. Without any such line, the text is truncated and rejected. The three
// permanent accounts need no entry. The heading may also be "quillbox state 1".

#ifndef QUILLKIT_SIMULATOR_STATE_TEXT_H_
#define QUILLKIT_SIMULATOR_STATE_TEXT_H_

#include <string>
#include <string_view>

#include "simulator/store.h"

namespace quillbox {

enum class Passwords {
  kShown,
  kHidden,  // an account has no password; a permanent one has its initial password
};

std::string StateText(const Contents& contents, Passwords passwords = Passwords::kShown);

// The present records of the places that changed, as one change. REQUIRES: `changes` is not whole.
std::string ChangeText(Store& store, const StoreChanges& changes);

// The size of the text up to its last line "end", with its line end. 0 if there is none.
std::size_t CompleteSize(std::string_view text);

// Fills contents that are in the initial state. Returns an empty text, or the line and description
// of an error; then discard the contents. Every record passes through Store::Put, so that the
// invariants of the store hold for any input.
std::string ReadState(std::string_view text, Contents& contents);

// Makes the changes of a text without a heading. The result is that of ReadState.
std::string ReadChanges(std::string_view text, Contents& contents);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_STATE_TEXT_H_
