// The commands `book` and `entry`, which read the address books page by page.

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "quillctl/address_books.h"
#include "quillctl/commands.h"
#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/json_output.h"
#include "quillctl/text_table.h"

namespace quillctl {
namespace {

// The arguments of a command, which keeps them alive.
struct Arguments {
  std::string book;
  std::string name;
  std::string from;
  std::uint32_t limit = 0;  // 0: none
  bool wholeName = false;
  bool json = false;
  bool jsonLines = false;
};

const AddressBook& BookOf(const std::string& word) {
  return word == PrivateBook().front().word ? PrivateBook().front() : FindBook(word).front();
}

std::vector<std::string> AllBookWords() {
  std::vector<std::string> words = BookWords();
  words.emplace_back(PrivateBook().front().word);
  return words;
}

Json ShownEntry(const AddressBook& book, const Row& row) {
  Json entry;
  for (std::size_t i = 0; i < row.size(); ++i) entry[LowerCase(book.fields[i])] = Utf8Text(row[i]);
  return entry;
}

// Prints entries in the form that the arguments select. Add() prints a JSON line at once; Finish()
// prints a table or a JSON array.
class EntryPrinter {
 public:
  EntryPrinter(const AddressBook& newBook, const Arguments& newArguments)
      : book(newBook), arguments(newArguments), table(newBook.fields) {}

  // Returns whether more entries are wanted.
  bool Add(Row row) {
    row = book.WithoutSecret(std::move(row));
    if (arguments.jsonLines) {
      std::cout << ShownEntry(book, row).dump() << '\n';
    } else if (arguments.json) {
      entries.push_back(ShownEntry(book, row));
    } else {
      table.AddRow(std::move(row));
    }
    return ++count != arguments.limit;
  }

  void Finish() const {
    if (!arguments.jsonLines) PrintList(table, entries, arguments.json);
  }

  bool IsEmpty() const { return count == 0; }

 private:
  const AddressBook& book;
  const Arguments& arguments;
  TextTable table;
  Json entries = Json::array();
  std::uint32_t count = 0;
};

// Reads the entries that match `filter`, and passes each one to the printer if `wanted` returns
// true for it. Throws a Refusal if the entries cannot be read.
template <class Wanted>
void PrintEntries(const Session& session, const Arguments& arguments, const std::string& filter,
                  EntryPrinter& printer, Wanted wanted) {
  const AddressBook& book = BookOf(arguments.book);
  const auto handle = [&](Row row) { return !wanted(row) || printer.Add(std::move(row)); };
  const std::int32_t status = book.read(*session.Scanner(), arguments.from, filter, handle);
  const std::string what = "read the " + std::string(book.title);
  if (status == quillkit::kUnusableInput) {
    throw Refusal("cannot " + what + ": the appliance delivers invalid entries");
  }
  RequireSuccess(status, what);
}

void ListEntries(const Session& session, const Arguments& arguments) {
  EntryPrinter printer(BookOf(arguments.book), arguments);
  PrintEntries(session, arguments, "*", printer, [](const Row&) { return true; });
  printer.Finish();
}

void FindEntries(const Session& session, const Arguments& arguments) {
  const AddressBook& book = BookOf(arguments.book);
  EntryPrinter printer(book, arguments);
  // The appliance selects by the first character, `wanted` by the whole pattern.
  PrintEntries(session, arguments, arguments.name.substr(0, 1) + '*', printer, [&](const Row& row) {
    return arguments.wholeName ? row[0] == arguments.name : row[0].starts_with(arguments.name);
  });
  if (arguments.json || !printer.IsEmpty()) printer.Finish();
  if (!printer.IsEmpty()) return;
  throw NotFound("the " + std::string(book.title) +
                 (arguments.wholeName ? " has no entry " : " has no entry that begins with ") +
                 Quoted(arguments.name));
}

std::uint32_t CountOf(const Session& session, const AddressBook& book) {
  std::uint32_t count = 0;
  RequireSuccess(book.count(*session.Scanner(), &count),
                 "count the entries of the " + std::string(book.title));
  return count;
}

void CountEntries(const Session& session, const Arguments& arguments) {
  std::cout << CountOf(session, BookOf(arguments.book)) << '\n';
}

void ListBooks(const Session& session, const Arguments& arguments) {
  TextTable table({"Book", "Entries", "Fields"});
  Json books = Json::array();
  for (const AddressBook& each : PublicBooks()) {
    const std::uint32_t count = CountOf(session, each);
    Row fields = each.fields;
    std::ranges::transform(fields, fields.begin(), LowerCase);
    table.AddRow({std::string(each.word), std::to_string(count), CLI::detail::join(fields, ", ")});
    books.push_back({{"book", each.word}, {"entries", count}, {"fields", fields}});
  }
  PrintList(table, books, arguments.json);
}

constexpr std::uint32_t kMaxLimit = 999'999;

using Run = void (*)(const Session&, const Arguments&);

// Adds a command whose first argument is a book. It logs in and calls `run`.
CLI::App* AddEntryCommand(Commands& entry, const char* name, const char* help, Run run,
                          const std::shared_ptr<Arguments>& a) {
  CLI::App* command = entry.Add(name, help, [a, run](Session& session) { run(session, *a); });
  command->add_option("book", a->book, "The book")
      ->required()
      ->check(CLI::IsMember(AllBookWords()));
  return command;
}

}  // namespace

void AddBookCommands(Commands& commands) {
  Commands book = commands.AddGroup("book", "List the address books");
  const auto a = std::make_shared<Arguments>();
  AddJson(book.Add("list", "List the public books and their numbers of entries",
                   [a](Session& session) { ListBooks(session, *a); }),
          a->json);
}

void AddEntryCommands(Commands& commands) {
  Commands entry =
      commands.AddGroup("entry", "List, find, count and import entries of an address book");
  auto a = std::make_shared<Arguments>();
  CLI::App* list = AddEntryCommand(entry, "list", "List the entries in order", ListEntries, a);
  AsName(list->add_option("--from", a->from, "List the entries after this name"));
  AddNumber(list, "--limit", a->limit, "List at most this number of entries", 1, kMaxLimit);
  AddJson(list, a->json);
  list->add_flag("--json-lines", a->jsonLines, "Print each entry as JSON on a line of its own")
      ->excludes(list->get_option("--json"));

  a = std::make_shared<Arguments>();
  CLI::App* find = AddEntryCommand(entry, "find", "Find entries by name", FindEntries, a);
  AddName(find, "pattern", a->name, "The name or its beginning");
  find->add_flag("--whole", a->wholeName, "Match the whole name only");
  AddJson(find, a->json);

  AddEntryCommand(entry, "count", "Print the number of entries", CountEntries,
                  std::make_shared<Arguments>());
  AddImportCommand(entry);
}

}  // namespace quillctl
