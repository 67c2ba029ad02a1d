// The commands `private`, which save the private book of the account to a file and restore it.
//
// The file has two lines: a title with a checksum, and what CUserRecord::SerializeWithBook stores,
// in hexadecimal digits, so that the file passes unchanged through every terminal and pipe.

#include <charconv>
#include <iostream>
#include <map>
#include <memory>
#include <utility>

#include "base/archive.h"
#include "books/connected_user.h"
#include "books/priv_email_ab.h"
#include "books/user_record.h"
#include "console/confirmation.h"
#include "console/displayed_text.h"
#include "console/system/deferred_termination.h"
#include "console/text_file.h"
#include "quillctl/commands.h"
#include "quillctl/failures.h"
#include "quillctl/key_set.h"

namespace quillctl {
namespace {

using quillkit::CPrivEmailAB;

// What a restore must write: {"", entry} with its address, {list, ""} and {list, member}. A member
// can refer to the public book, and then its address is not written.
using Contents = std::map<std::pair<std::string, std::string>, std::string>;

// A private book in memory, with the account that owns it.
struct PrivateBook {
  explicit PrivateBook(const std::string& name) : user(std::make_unique<quillkit::CUserRecord>()) {
    if (user->SetName(name) != 0) user->CreatePrivateBook();
  }

  // Returns null for an account that has no private book.
  CPrivEmailAB* Book() const { return user->PrivateBook(); }

  std::string Sizes() const {
    return "(entries: " + std::to_string(Book()->EntryCount()) +
           ", lists: " + std::to_string(Book()->ListCount()) + ')';
  }

  std::unique_ptr<quillkit::CUserRecord> user;
  Contents contents;
};

// Stores the contents of the book. Returns false if no appliance can have them.
bool StoreContents(PrivateBook& into) {
  CPrivEmailAB& book = *into.Book();
  bool isValid = book.EntryCount() <= quillkit::MaxPrivateEntries &&
                 book.ListCount() <= quillkit::MaxPrivateLists;
  const auto add = [&](const std::string& list, const std::string& name, const char* address) {
    isValid = into.contents.try_emplace({list, name}, address).second && isValid;
  };
  for (std::int32_t i = 0; i < book.EntryCount(); ++i) {
    add("", book.EntryAt(i)->Name(), book.EntryAt(i)->Address());
  }
  for (std::int32_t i = 0; i < book.ListCount(); ++i) {
    const quillkit::CPrivEmailDL& list = *book.ListAt(i);
    isValid = isValid && list.Name().size() < 32 && list.Name().find('\0') == std::string::npos &&
              list.Count() <= quillkit::MaxListMembers;
    add(list.Name(), "", "");
    for (std::int32_t j = 0; j < list.Count(); ++j) add(list.Name(), list.GetAt(j)->Name(), "");
  }
  return isValid && !into.contents.contains({"", ""});
}

// Returns whether the book, its lists and their members can be read, and have the sizes that the
// appliance reports. Blank members of a list, which could not be read, are left to
// StoreContents.
bool ReadParts(CPrivEmailAB& book) {
  std::uint32_t size = 0;
  const auto has = [&size](std::int32_t status, std::int32_t count) {
    const bool isMissing = status == quillkit::kNoSuchBook || status == quillkit::kDataNotFound;
    return isMissing ? count == 0 : status == 0 && size == static_cast<std::uint32_t>(count);
  };
  bool isWhole = book.LoadEntries(0) == 1 && book.LoadListsChecked(1) == 1 &&
                 has(book.ServerEntryCount(&size), book.EntryCount()) &&
                 has(book.ServerListCount(&size), book.ListCount());
  for (std::int32_t i = 0; isWhole && i < book.ListCount(); ++i) {
    isWhole = has(book.ListSize(book.ListName(i), &size), book.ListAt(i)->Count());
  }
  return isWhole;
}

// Reads the private book of the session. Throws a Refusal if it cannot be read completely.
PrivateBook ReadBook(const Session& session) {
  PrivateBook read(quillkit::ConnectedUser(session.Scanner())->Name());
  if (read.Book() == nullptr)
    throw Refusal("this account has no private book; log in as its owner, with --user");
  const bool isRead = ReadParts(*read.Book());
  if (!isRead) RequireSuccess(quillkit::GetLastToolkitError(), "read the private book");
  if (isRead && StoreContents(read)) return read;
  throw Refusal("cannot read the private book: the appliance delivers it only in part");
}

// Returns the first line of a file. The checksum is the 32-bit FNV-1a hash.
std::string TitleOf(std::string_view section) {
  std::uint32_t hash = 2166136261;
  for (const char each : section) hash = (hash ^ static_cast<unsigned char>(each)) * 16777619;
  return "quillbox private book 1 " + Hexadecimal(hash);
}

constexpr std::size_t kMaxBackup = std::size_t{64} << 20;

// Returns the bytes. Other characters than digits change them, which the checksum reveals.
std::string BytesOf(std::string_view digits) {
  std::string bytes(digits.size() / 2, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    unsigned char byte = 0;
    std::from_chars(&digits[2 * i], &digits[2 * i] + 2, byte, 16);
    bytes[i] = static_cast<char>(byte);
  }
  return bytes;
}

// Makes no server call. Throws a UsageError if the text is not a complete file, or contains what no
// appliance can store.
PrivateBook ParseFile(const std::string& text) {
  console::FileLines lines(text);
  lines.Next();
  const std::string_view title = lines.Text();
  lines.Next();
  const std::string section = BytesOf(lines.Text());
  std::string name;  // the section begins with it
  quillkit::Archive(std::string_view(section)).Exchange(name);
  PrivateBook book(name);
  quillkit::Archive archive{std::string_view(section)};
  if (book.Book() != nullptr && title == TitleOf(section) && !lines.Next()) {
    book.user->SerializeWithBook(archive);
    if (!archive.Failed() && archive.Remaining() == 0 && StoreContents(book)) return book;
  }
  throw UsageError("the file is damaged, or is not a backup of a private book");
}

struct Arguments {
  std::string file;
  console::Consent consent;
};

void BackUp(const Session& session, const Arguments& a) {
  console::ConfirmOverwrite(a.consent.yes, a.file);
  const PrivateBook book = ReadBook(session);
  std::string section;
  quillkit::Archive archive(&section);
  book.user->SerializeWithBook(archive);
  const std::string text = TitleOf(section) + '\n' + console::HexadecimalBytes(section) + '\n';
  if (ParseFile(text).contents != book.contents) {
    throw Refusal("the private book changed while it was read; try again");
  }
  if (console::WriteOutput(a.file, text, quillkit::Readers::kOwner)) {
    std::cout << "Saved the private book " << book.Sizes() << " to " << console::Quoted(a.file)
              << ".\n";
  }
}

// Throws a PartialFailure, or a Refusal if nothing was changed, unless the private book of the
// session has the wanted contents after a restore, whose failure is `fault`.
void RequireRestored(const Session& session, const Contents& before, const Contents& wanted,
                     const std::string& fault) {
  const Contents now =
      ReadBack("the private book may have changed", [&] { return ReadBook(session).contents; });
  if (now == wanted) return;
  if (now == before) throw Refusal("the private book was not changed" + fault);
  throw PartialFailure("the private book was changed, but differs from the file" + fault +
                       "; keep the file and restore it again");
}

void Restore(const Credentials& credentials, const Arguments& a) {
  const PrivateBook wanted = ParseFile(console::ReadTextFile(a.file, kMaxBackup));
  const Session session(credentials);
  const PrivateBook before = ReadBook(session);
  if (before.user->name != wanted.user->name) {
    throw UsageError("the file is the backup of the account " +
                     console::Quoted(wanted.user->Name()));
  }
  const std::string action =
      "Replace the private book " + before.Sizes() + " with the one in the file " + wanted.Sizes();
  if (!console::Agreed(a.consent, action)) return;
  const console::DeferredTermination termination("restoring the private book");
  // The library cannot replace a book that does not exist.
  const bool isDone = before.contents.empty() ? wanted.Book()->WriteBack() == 0
                                              : wanted.user->RestorePrivateBook() == 1;
  const std::int32_t error = quillkit::GetLastToolkitError();
  const std::string fault = !isDone && error != 0 ? ": " + CodeAndText(error) : "";
  RequireRestored(session, before.contents, wanted.contents, fault);
  std::cout << "Restored the private book " << wanted.Sizes() << ".\n";
}

// Adds a command for a file.
template <class Context>
Commands::Added<Arguments> AddFileCommand(Commands& book, const char* name, const char* help,
                                          void (*run)(const Context&, const Arguments&)) {
  const auto added = book.Add(name, help, run);
  added.app->add_option("file", added.arguments.file, "The file (-: standard input or output)")
      ->required()
      ->type_name("FILE");
  return added;
}

}  // namespace

void AddPrivateCommands(Commands& commands) {
  Commands book = commands.AddGroup("private", "Save and restore the account's private book");
  const auto [save, saved] =
      AddFileCommand(book, "backup", "Save the private book to a file", BackUp);
  console::AddYes(save, saved.consent.yes);
  const auto [restore, restored] =
      AddFileCommand(book, "restore", "Replace the private book with the one in a file", Restore);
  console::AddConsent(restore, restored.consent);
}

}  // namespace quillctl
