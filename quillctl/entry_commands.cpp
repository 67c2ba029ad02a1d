// The commands `book` and `entry`: the address books of the appliance, and their entries. Books are
// read page by page.

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "books/user_record.h"
#include "console/confirmation.h"
#include "console/displayed_text.h"
#include "console/json_output.h"
#include "console/options.h"
#include "console/progress.h"
#include "console/system/deferred_termination.h"
#include "console/system/terminal.h"
#include "console/text_file.h"
#include "console/text_table.h"
#include "quillctl/address_books.h"
#include "quillctl/commands.h"
#include "quillctl/entry_file.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

// The values that options give to the fields of an entry, by the name of the field.
using Values = std::map<std::string, std::optional<std::string>>;

struct Arguments {
  std::string book;
  std::string name;
  std::string from;
  std::string letter;
  std::string file;
  std::string format = "csv";
  std::uint32_t limit = 0;  // 0: none
  Values values;
  std::optional<std::string> newName;
  bool wholeName = false;
  bool spreadsheet = false;
  bool json = false;
  bool jsonLines = false;
  console::Consent consent;
};

constexpr const char* kUsers = "users";

std::string TitleOf(const AddressBook& book) {
  return std::string(book.title);
}

std::string CountedEntries(std::size_t count) {
  return console::Counted(count, "entry", "entries");
}

std::string DescribedEntry(const AddressBook& book, const std::string& name) {
  return "the entry " + console::Quoted(name) + " of the " + TitleOf(book);
}

// Throws a Refusal unless the status is 0: a NotFound if the book has no such entry.
void RequireEntry(std::int32_t status, const AddressBook& book, const std::string& name,
                  const std::string& verb,
                  void (*require)(std::int32_t, std::string_view) = RequireChange) {
  if (status == quillkit::kDataNotFound) {
    throw NotFound("the " + TitleOf(book) + " has no entry " + console::Quoted(name));
  }
  const std::string what = verb + ' ' + DescribedEntry(book, name);
  if (status == quillkit::kUnusableInput) {
    throw Refusal("cannot " + what + ": the appliance delivers another one");
  }
  require(status, what);
}

// Prints entries in the form that the arguments select. Add() prints a JSON line at once; Finish()
// prints a table or a JSON array.
class EntryPrinter {
 public:
  EntryPrinter(const AddressBook& newBook, const Arguments& newArguments)
      : book(newBook), arguments(newArguments), table(newBook.fields) {}

  // Returns whether more entries are wanted.
  bool Add(console::Row row) {
    row = book.WithoutSecret(std::move(row));
    if (arguments.jsonLines) {
      console::WaitForStdout();
      std::cout << console::ShownRow(book.fields, row).dump() << '\n';
    } else if (arguments.json) {
      entries.push_back(console::ShownRow(book.fields, row));
    } else {
      table.AddRow(std::move(row));
    }
    return ++count != arguments.limit;
  }

  void Finish() const {
    if (!arguments.jsonLines) console::PrintList(table, entries, arguments.json);
  }

  bool IsEmpty() const { return count == 0; }

 private:
  const AddressBook& book;
  const Arguments& arguments;
  console::TextTable table;
  console::Json entries = console::Json::array();
  std::uint32_t count = 0;
};

// Reads the entries after the name `from` that match `filter`, and passes each one to the handler.
// Throws a Refusal if they cannot be read.
void ForEachEntry(const Session& session, const AddressBook& book, const std::string& from,
                  const std::string& filter, const RowHandler& handle) {
  const std::int32_t status = book.read(*session.Scanner(), from, filter, handle);
  const std::string what = "read the " + TitleOf(book);
  if (status == quillkit::kUnusableInput) {
    throw Refusal("cannot " + what + ": the appliance delivers invalid entries");
  }
  RequireSuccess(status, what);
}

// Returns the entry of this name, if there is one.
std::optional<console::Row> FindEntry(const Session& session, const AddressBook& book,
                                      const std::string& name) {
  std::optional<console::Row> found;
  const auto keep = [&found](const console::Row& row) {
    found = row;
    return false;
  };
  const std::int32_t status = book.change(book, *session.Scanner(), name, keep);
  if (status != quillkit::kDataNotFound) RequireEntry(status, book, name, "read", RequireSuccess);
  return found;
}

void ListEntries(const Session& session, const Arguments& arguments) {
  const AddressBook& book = BookOf(arguments.book);
  EntryPrinter printer(book, arguments);
  const std::string from = console::StoredName(arguments.from, [&](const std::string& name) {
    return FindEntry(session, book, name).has_value();
  });
  std::optional<console::Progress> progress;
  if (!arguments.jsonLines) progress.emplace("Reading the " + TitleOf(book));
  for (const std::string& letter : console::FormsOf(arguments.letter)) {
    if (!printer.IsEmpty()) break;
    // The appliance selects by one byte.
    ForEachEntry(session, book, from, letter.substr(0, 1) + '*', [&](console::Row row) {
      if (progress) progress->Step();
      const bool isWanted = letter.size() < 2 || row[0].starts_with(letter);
      return !isWanted || printer.Add(std::move(row));
    });
  }
  progress.reset();
  printer.Finish();
}

// Prints the entry of this name and, unless the whole name is wanted, those that begin with it.
void PrintMatches(const Session& session, const Arguments& arguments, const std::string& name,
                  EntryPrinter& printer) {
  const AddressBook& book = BookOf(arguments.book);
  if (std::optional<console::Row> same = FindEntry(session, book, name))
    printer.Add(std::move(*same));
  if (arguments.wholeName) return;
  // The book is in the order of names: those that begin with the name follow its entry.
  ForEachEntry(session, book, name, name.substr(0, 1) + '*', [&](console::Row row) {
    return row[0].starts_with(name) && printer.Add(std::move(row));
  });
}

void FindEntries(const Session& session, const Arguments& arguments) {
  const AddressBook& book = BookOf(arguments.book);
  EntryPrinter printer(book, arguments);
  for (const std::string& each : console::FormsOf(arguments.name)) {
    if (printer.IsEmpty()) PrintMatches(session, arguments, each, printer);
  }
  if (arguments.json || !printer.IsEmpty()) printer.Finish();
  if (!printer.IsEmpty()) return;
  throw NotFound("the " + TitleOf(book) +
                 (arguments.wholeName ? " has no entry " : " has no entry that begins with ") +
                 console::Quoted(arguments.name));
}

std::uint32_t CountOf(const Session& session, const AddressBook& book) {
  std::uint32_t count = 0;
  RequireSuccess(book.count(*session.Scanner(), &count),
                 "count the entries of the " + TitleOf(book));
  return count;
}

void CountEntries(const Session& session, const Arguments& arguments) {
  std::cout << CountOf(session, BookOf(arguments.book)) << '\n';
}

// Returns whether the account gets a private book.
bool HasPrivateBook(const Session& session) {
  quillkit::CUserRecord user;
  user.SetName(session.User());
  user.CreatePrivateBook();
  return user.PrivateBook() != nullptr;
}

void ListBooks(const Session& session, const Arguments& arguments) {
  console::TextTable table({"Book", "Entries", "Fields"});
  console::Json books = console::Json::array();
  for (const AddressBook& each : HasPrivateBook(session) ? AllBooks() : PublicBooks()) {
    const std::uint32_t count = CountOf(session, each);
    console::Row fields = each.fields;
    std::ranges::transform(fields, fields.begin(), console::LowerCase);
    table.AddRow({std::string(each.word), std::to_string(count), CLI::detail::join(fields, ", ")});
    books.push_back({{"book", each.word}, {"entries", count}, {"fields", fields}});
  }
  console::PrintList(table, books, arguments.json);
}

// Returns the entry of this name, with the name as the book has it. Throws a NotFound if there is
// none.
console::Row ReadEntry(const Session& session, const AddressBook& book, const std::string& name) {
  for (const std::string& each : console::FormsOf(name)) {
    if (std::optional<console::Row> found = FindEntry(session, book, each))
      return std::move(*found);
  }
  throw NotFound("the " + TitleOf(book) + " has no entry " + console::Quoted(name));
}

void ShowEntry(const Session& session, const Arguments& arguments) {
  const AddressBook& book = BookOf(arguments.book);
  const console::Row row = book.WithoutSecret(ReadEntry(session, book, arguments.name));
  if (arguments.json) {
    console::PrintJson(console::ShownRow(book.fields, row));
    return;
  }
  console::TextTable table;
  for (std::size_t i = 0; i < row.size(); ++i) table.AddRow({book.fields[i], row[i]});
  table.Print();
}

// Stores the given values in the row. Throws a UsageError for a field that the book does not have.
void StoreValues(console::Row& row, const AddressBook& book, const Values& values) {
  for (const auto& [field, value] : values) {
    if (!value) continue;
    const auto found = std::ranges::find(book.fields, field, console::LowerCase);
    if (found == book.fields.end()) {
      throw UsageError("--" + field + " does not apply to the " + TitleOf(book));
    }
    row[static_cast<std::size_t>(found - book.fields.begin())] = *value;
  }
}

void RequireValues(const AddressBook& book, const console::Row& row) {
  for (std::size_t i = 0; i < book.requiredFields; ++i) {
    if (!row[i].empty()) continue;
    throw UsageError("an entry of the " + TitleOf(book) + " needs --" +
                     console::LowerCase(book.fields[i]));
  }
}

void AddEntry(const Session& session, const Arguments& arguments) {
  const AddressBook& book = BookOf(arguments.book);
  console::Row row(book.fields.size());
  StoreValues(row, book, arguments.values);
  row[0] = console::StoredName(arguments.name, [&](const std::string& form) {
    return FindEntry(session, book, form).has_value();  // one that exists is refused
  });
  RequireValues(book, row);
  const std::string what = DescribedEntry(book, row[0]);
  MakeChange([&] { return book.add(book, *session.Scanner(), row); }, "add " + what);
  std::cout << "Added " << what << ".\n";
}

void EditEntry(const Session& session, const Arguments& arguments) {
  const AddressBook& book = BookOf(arguments.book);
  bool hasChanged = false;
  const auto edit = [&](console::Row& row) {
    const console::Row before = row;
    StoreValues(row, book, arguments.values);
    if (arguments.newName) row[0] = *arguments.newName;
    RequireValues(book, row);
    hasChanged = row != before;
    return hasChanged;
  };
  const console::DeferredTermination termination(kAwaitingReply);
  std::int32_t status = quillkit::kDataNotFound;
  for (const std::string& each : console::FormsOf(arguments.name)) {
    if (status != quillkit::kDataNotFound) break;
    status = book.change(book, *session.Scanner(), each, edit);
  }
  RequireEntry(status, book, arguments.name, "change");
  const std::string what = DescribedEntry(book, arguments.name);
  if (hasChanged) {
    std::cout << "Changed " << what << ".\n";
  } else {
    std::cout << "Nothing to change: " << what << " already has these values.\n";
  }
}

void DeleteEntry(const Session& session, const Arguments& arguments) {
  const AddressBook& book = BookOf(arguments.book);
  const std::string name = ReadEntry(session, book, arguments.name).front();
  const std::string what = DescribedEntry(book, name);
  console::Confirm(arguments.consent.yes, "Delete " + what + '?');
  const console::DeferredTermination termination(kAwaitingReply);
  RequireEntry(book.remove(*session.Scanner(), name), book, name, "delete");
  std::cout << "Deleted " << what << ".\n";
}

void ClearBook(const Session& session, const Arguments& arguments) {
  const AddressBook& book = BookOf(arguments.book);
  const std::string what = CountedEntries(CountOf(session, book)) + " of the " + TitleOf(book);
  if (!console::Agreed(arguments.consent, "Delete " + what)) return;
  MakeChange([&] { return book.clear(*session.Scanner()); }, "clear the " + TitleOf(book));
  std::cout << "Deleted " << what << ".\n";
}

// Writes the entries to a file, or to standard output. Throws a Refusal and writes nothing if they
// cannot be read.
void ExportEntries(const Session& session, const Arguments& arguments) {
  const AddressBook& book = BookOf(arguments.book);
  const EntryFileWriter write = EntryFileWriterFor(arguments.format, book, arguments.spreadsheet);
  console::ConfirmOverwrite(arguments.consent.yes, arguments.file);
  const std::optional<std::vector<console::Row>> entries = ReadAllEntries(book, *session.Scanner());
  if (!entries) throw Refusal("cannot read the " + TitleOf(book) + " completely");
  if (console::WriteOutput(arguments.file, write(book, *entries))) {
    std::cout << "Exported " << CountedEntries(entries->size()) << " of the " << TitleOf(book)
              << " to " << console::Quoted(arguments.file) << ".\n";
  }
}

std::string LetterFault(const std::string& text) {
  const bool isCharacter =
      text.size() == 1 || console::DisplayedWidth(console::DisplayedText(text)) == 1;
  return isCharacter ? "" : "not a single character";
}

constexpr std::uint32_t kMaxLimit = 999'999;

using Added = Commands::Added<Arguments>;
using Run = void (*)(const Session&, const Arguments&);

// Adds a command whose first argument is a book.
Added AddBookCommand(Commands& entry, const char* name, const char* help, Run run,
                     bool withUsers = true) {
  const Added added = entry.Add(name, help, run);
  std::vector<std::string> books = AllBookWords();
  if (!withUsers) std::erase(books, kUsers);
  const std::string words = CLI::detail::join(books, ",");
  const auto fault = [books, words](const std::string& word) -> std::string {
    if (std::ranges::count(books, word) != 0) return "";
    if (word == kUsers) return "the commands for accounts are those of quillctl user";
    return console::Quoted(word) + " is not one of the books {" + words + '}';
  };
  added.app->add_option("book", added.arguments.book, "The book")
      ->required()
      ->type_name("BOOK:{" + words + '}')
      ->check(fault, "");
  return added;
}

// Adds a command whose arguments are a book and an entry.
Added AddEntryCommand(Commands& entry, const char* name, const char* help, Run run,
                      bool withUsers = false) {
  const Added added = AddBookCommand(entry, name, help, run, withUsers);
  AddName(added.app, "name", added.arguments.name, "The entry's name");
  return added;
}

// Adds an option for each field of the books that entries can be added to.
void AddValues(CLI::App* command, Values& values) {
  for (const auto& [field, help] :
       {std::pair{"address", "email, private: the e-mail address, at most 255 bytes"},
        std::pair{"number", "fax: the number, at most 79 bytes"},
        std::pair{"third", "fax: the third text, at most 10 bytes"},
        std::pair{"description", "printers: the description, at most 255 bytes"},
        std::pair{"model", "printers: the model, at most 31 bytes"}}) {
    command->add_option(std::string("--") + field, values[field], help);
  }
}

void AddReadingCommands(Commands& entry) {
  const auto [list, listed] =
      AddBookCommand(entry, "list", "List the entries in order", ListEntries);
  AsName(list->add_option("--from", listed.from, "List the entries after this name"));
  list->add_option("--letter", listed.letter, "List the entries that begin with this character")
      ->check(LetterFault, "");
  console::AddNumber(list, "--limit", listed.limit, "List at most this number of entries", 1,
                     kMaxLimit);
  console::AddJsonLines(list, listed.json, listed.jsonLines);

  const auto [find, found] = AddBookCommand(entry, "find", "Find entries by name", FindEntries);
  AddName(find, "pattern", found.name, "The name or its beginning");
  find->add_flag("--whole", found.wholeName, "Match the whole name only");
  console::AddJsonLines(find, found.json, found.jsonLines);

  const auto [show, shown] = AddEntryCommand(entry, "show", "Show an entry", ShowEntry, true);
  console::AddJson(show, shown.json);

  AddBookCommand(entry, "count", "Print the number of entries", CountEntries);

  const auto [save, saved] =
      AddBookCommand(entry, "export", "Write the entries to a file", ExportEntries);
  save->add_option("file", saved.file, "The file (default: standard output)")->type_name("FILE");
  save->add_option("--format", saved.format, "The format of the file")
      ->check(CLI::IsMember(EntryFileFormats()))
      ->capture_default_str();
  save->add_flag("--spreadsheet", saved.spreadsheet,
                 "csv only: write UTF-8 with a byte order mark, and mark values that a spreadsheet "
                 "would treat as formulas");
  console::AddYes(save, saved.consent.yes);
}

void AddChangingCommands(Commands& entry) {
  const auto [add, added] = AddEntryCommand(entry, "add", "Add an entry", AddEntry);
  AddValues(add, added.values);

  const auto [edit, edited] =
      AddEntryCommand(entry, "edit", "Change fields of an entry", EditEntry);
  AsName(edit->add_option("--name", edited.newName, "The new name"));
  AddValues(edit, edited.values);

  const auto [remove, removed] = AddEntryCommand(entry, "delete", "Delete an entry", DeleteEntry);
  console::AddYes(remove, removed.consent.yes);

  const auto [clear, cleared] =
      AddBookCommand(entry, "clear", "Delete all entries of a book", ClearBook, false);
  console::AddConsent(clear, cleared.consent);
}

}  // namespace

void AddBookCommands(Commands& commands) {
  Commands book = commands.AddGroup("book", "List the address books");
  const auto [list, a] = book.Add("list", "List the books and their numbers of entries", ListBooks);
  console::AddJson(list, a.json);
}

void AddEntryCommands(Commands& commands) {
  Commands entry =
      commands.AddGroup("entry", "List, find, change, import and export the entries of a book");
  AddReadingCommands(entry);
  AddChangingCommands(entry);
  AddImportCommand(entry);
}

}  // namespace quillctl
