// Backs up and restores a user's private book. A restore does not report every refused entry: each
// step is verified by the last error and by the counts that the appliance reports afterwards.
// docs/guide/private_books.md shows how to compare every entry and member too.

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#include "appliance/scanner.h"
#include "base/archive.h"
#include "books/priv_email_ab.h"
#include "books/user_record.h"
#include "lists/priv_email_dl.h"
#include "toolkit/quillkit.h"
#include "toolkit/toolkit_app.h"

namespace {

using namespace quillkit;

// What the appliance holds. An absent book has no entries.
std::string Counts(CPrivEmailAB& book) {
  std::uint32_t entries = 0;
  std::uint32_t lists = 0;
  std::uint32_t members = 0;
  if (book.ServerEntryCount(&entries) != kNoError) entries = 0;
  if (book.ServerListCount(&lists) != kNoError) lists = 0;
  if (book.ListSize("Crew", &members) != kNoError) members = 0;
  return std::to_string(entries) + " entries, " + std::to_string(lists) + " list, " +
         std::to_string(members) + " member";
}

// Prints the result of a step. True if the step succeeded and left these counts.
bool Verify(const char* step, bool succeeded, const CUserRecord& user,
            const std::string& expected) {
  const std::int32_t error = GetLastToolkitError();  // before Counts changes it
  const std::string counts = Counts(*user.PrivateBook());
  std::cout << step << ": " << counts << ", last error " << error << '\n';
  return succeeded && counts == expected;
}

CEmailEntry Entry(const char* name, const char* address) {
  CEmailEntry entry;
  entry.SetName(name);
  entry.SetAddress(address);
  return entry;
}

// Two entries, and a list with one of them.
bool Fill(CPrivEmailAB& book) {
  CEmailEntry ida = Entry("Ida", "ida@north.example.com");
  CEmailEntry colm = Entry("Colm", "colm@college.example.net");
  const std::uint32_t one = 1;
  return book.CreateServerEntry(&ida) == kNoError && book.CreateServerEntry(&colm) == kNoError &&
         book.CreateListWithMembers("Crew", &ida, &one) == kNoError;
}

// Stores the private book as bytes, for a file.
bool BackUp(CUserRecord& user, std::string* bytes) {
  if (user.LoadPrivateBook() != 1) return false;
  Archive archive(bytes);
  user.SerializeWithBook(archive);
  return !user.NameMismatch();
}

bool Empty(const CUserRecord& user) {
  return user.PrivateBook()->EmptyOnServer() == kNoError;
}

// Replaces the book on the appliance by the one in the bytes.
bool Restore(CUserRecord& user, const std::string& bytes) {
  Archive archive{std::string_view(bytes)};
  user.SerializeWithBook(archive);
  // The restore empties the book first: never restore a book that was not read completely.
  return !archive.Failed() && !user.NameMismatch() && user.RestorePrivateBook() == 1;
}

bool Run(CUserRecord& user) {
  std::string bytes;
  if (user.LoadPrivateBook() != 1 || user.PrivateBook() == nullptr) return false;
  const std::string whole = "2 entries, 1 list, 1 member";
  return Verify("filled", Fill(*user.PrivateBook()), user, whole) &&
         Verify("backed up", BackUp(user, &bytes), user, whole) &&
         Verify("emptied", Empty(user), user, "0 entries, 0 list, 0 member") &&
         Verify("restored", Restore(user, bytes), user, whole);
}

}  // namespace

int main() {
  CScanner* box =
      CToolkitApp::Start() ? LogToQuillbox("127.0.0.1", "Ewa Nowicka", "juniper", "", 0) : nullptr;
  CUserRecord* user = GetCurrentConnectedUser(box);
  if (user == nullptr) return EXIT_FAILURE;
  const bool succeeded = Run(*user);
  Logout();
  CToolkitApp::Stop();
  return succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
}
