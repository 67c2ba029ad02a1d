// The commands `list`, for the distribution lists of the appliance and the private ones of the
// account.
//
// The operations of the books that create or copy a list do not report each member that the
// appliance refuses. Therefore members are sent one by one, and every change is verified: the names
// of the lists, or the members, are read again.

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "books/email_ab.h"
#include "books/fax_ab.h"
#include "books/priv_email_ab.h"
#include "console/confirmation.h"
#include "console/displayed_text.h"
#include "console/json_output.h"
#include "console/options.h"
#include "console/system/deferred_termination.h"
#include "console/text_table.h"
#include "quillctl/address_books.h"
#include "quillctl/commands.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

using quillkit::CScanner;
using quillkit::Status;

struct Arguments {
  std::size_t command = 0;  // its index in kCommands
  std::string kind;
  std::string name;
  std::string newName;
  std::vector<std::string> members;
  bool json = false;
  console::Consent consent;
};

std::string CountedMembers(std::size_t count) {
  return console::Counted(count, "member");
}

// Verifies a change. `isDone` reads what should have changed. Throws a Refusal if it returns false,
// and an UnknownResult if it throws a Refusal.
template <class IsDone>
void Verify(const std::string& what, IsDone isDone) {
  if (!ReadBack("cannot check the request to " + what, isDone))
    throw Refusal("the appliance reports success, but did not " + what);
}

constexpr const char* kStopping = "stopping after the current member";

enum class Change { kFill, kAdd, kRemove };

// The lists of one kind, and the commands for them. `kEntries` is the scanner's function for the
// entries of the book that members are made of, `kRename` the one that renames a list, or null.
template <class Book, auto kEntries, auto kRename>
class Lists {
 public:
  Lists(const Session& session, const std::string& kind)
      : scanner(*session.Scanner()), source(BookOf(kind)), title(source.title) {
    title.replace(title.rfind("book"), 4, "list");
    if constexpr (!kIsPrivate) book.Attach(session.Scanner(), 0);
  }

  // Returns the name of a list as the appliance has it, if it has the list.
  std::string NameOf(const std::string& typed) {
    return console::StoredName(typed,
                               [&](const std::string& name) { return ReadNames().contains(name); });
  }

  void Print(const Arguments& a) {
    console::TextTable table({"List", "Members"});
    console::Json lists = console::Json::array();
    for (const std::string& name : ReadNames()) {
      const std::size_t members = Read(name).size();
      table.AddRow({name, std::to_string(members)});
      console::SetText(lists.emplace_back(console::Json::object()), "list", name);
      lists.back()["members"] = members;
    }
    console::PrintList(table, lists, a.json);
  }

  void Show(const Arguments& a) {
    console::Row fields = source.fields;
    if (kIsPrivate) fields.emplace_back("Book");
    console::TextTable table(fields);
    console::Json members = console::Json::array();
    for (const Member& each : ReadNamed(a.name)) {
      table.AddRow(RowOf(each));
      members.push_back(console::ShownRow(fields, RowOf(each)));
    }
    console::Json list;
    console::SetText(list, "list", a.name);
    list["members"] = std::move(members);
    console::PrintList(table, list, a.json);
  }

  void Create(const Arguments& a) {
    const Members members = MembersFor(a, {}, true);
    const std::string what = Named(a.name) + " with " + CountedMembers(members.size());
    if (console::IsDryRun(a.consent, "Create " + what)) return;
    Fill(a.name, members, "create " + Named(a.name), console::DeferredTermination(kStopping));
    std::cout << "Created " << what << ".\n";
  }

  void Copy(const Arguments& a) {
    const std::string names = Named(a.name) + " to " + console::Quoted(a.newName);
    const Members members = ReadNamed(a.name);
    if (console::IsDryRun(a.consent, "Copy " + names)) return;
    Fill(a.newName, members, "copy " + names, console::DeferredTermination(kStopping));
    std::cout << "Copied " << names << " with " << CountedMembers(members.size()) << ".\n";
  }

  void Rename(const Arguments& a) {
    RequireNewName(a.name, a.newName);
    const std::string names = Named(a.name) + " to " + console::Quoted(a.newName);
    const std::set<console::Row> rows = RowsOf(ReadNamed(a.name));
    if (console::IsDryRun(a.consent, "Rename " + names)) return;
    if constexpr (std::is_null_pointer_v<decltype(kRename)>) {
      RenameByCopy(a, "rename " + names);
    } else {
      MakeChange([&] { return (scanner.*kRename)(a.name, a.newName); }, "rename " + names);
      Verify("rename " + names, [&] {
        const Names now = ReadNames();
        return now.contains(a.newName) && !now.contains(a.name) && RowsOf(Read(a.newName)) == rows;
      });
    }
    std::cout << "Renamed " << names << ".\n";
  }

  void Delete(const Arguments& a) {
    const std::string what = Named(a.name) + " with " + CountedMembers(ReadNamed(a.name).size());
    if (!console::Agreed(a.consent, "Delete " + what)) return;
    DeleteList(a.name);
    std::cout << "Deleted " << what << ".\n";
  }

  void Add(const Arguments& a) { AddOrRemove(a, true); }
  void Remove(const Arguments& a) { AddOrRemove(a, false); }

 private:
  static constexpr bool kIsPrivate = std::is_same_v<Book, quillkit::CPrivEmailAB>;
  using Member = typename decltype((std::declval<CScanner>().*kEntries)())::Record;
  using Members = std::vector<Member>;
  using Names = std::set<std::string>;

  std::string Named(const std::string& name) const {
    return "the " + title + ' ' + console::Quoted(name);
  }

  // In a private list, a member refers to the public e-mail book if it has no flags.
  static console::Row RowOf(const Member& member) {
    console::Row row = Cells(member);
    if constexpr (kIsPrivate) row.emplace_back(member.HasNoFlags() ? "public" : "private");
    return row;
  }

  static std::set<console::Row> RowsOf(const Members& members) {
    std::set<console::Row> rows;
    for (const Member& each : members) rows.insert(RowOf(each));
    return rows;
  }

  Names ReadNames() {
    const Status status = book.LoadLists(0);
    if (status != quillkit::kDataNotFound) {
      RequireSuccess(status, "read the names of the " + title + 's');
    }
    Names names;
    const std::int32_t count = book.ListCount();
    for (std::int32_t i = 0; i < count; ++i) names.insert(book.ListAt(i)->Name());
    if (names.size() == static_cast<std::size_t>(count) && !names.contains("")) return names;
    throw Refusal("the appliance delivers invalid names of the " + title + 's');
  }

  // Reads the members of a list, also if it has more than the library allows. Throws a Refusal if
  // their number is not the one that the appliance reports.
  Members Read(const std::string& name) {
    const std::string what = "read the members of " + Named(name);
    std::uint32_t size = 0;
    const Status sized = book.ServerListSize(name, &size);
    std::uint32_t count = std::min<std::uint32_t>(size, quillkit::MaxServerMembers) + 1;
    Members members(count);
    const Status status = book.MembersOf(name).ReadAll(members.data(), &count);
    if (status == quillkit::kDataNotFound) count = 0;
    for (const Status each : {sized, status}) {
      if (each != quillkit::kDataNotFound) RequireSuccess(each, what);
    }
    members.resize(count);
    Names names;
    for (const Member& each : members) names.insert(each.Name());
    if (names.size() == size && size == count && !names.contains("")) return members;
    throw Refusal("cannot " + what + ": the appliance delivers invalid ones, or a wrong number");
  }

  // The same. Throws a NotFound if there is no such list.
  Members ReadNamed(const std::string& name) {
    if (ReadNames().contains(name)) return Read(name);
    throw NotFound("there is no " + title + ' ' + console::Quoted(name) +
                   "; see quillctl list list " + std::string(source.word));
  }

  // Returns the members that a command names: new ones made of entries, or some of those present.
  Members MembersFor(const Arguments& a, const Members& present, bool adds) const {
    Members members;
    for (const std::string& typed : a.members) {
      const std::string name = console::StoredName(typed, [&](const std::string& each) {
        return adds ? EntryOf(each).first == quillkit::kNoError
                    : std::ranges::count(present, each, &Member::Name) != 0;
      });
      if (std::ranges::count(members, name, &Member::Name) != 0) {
        throw UsageError("a member is given twice");
      }
      const auto found = std::ranges::find(present, name, &Member::Name);
      const bool isPresent = found != present.end();
      if (adds && isPresent) throw Refusal(Named(a.name) + " already has " + console::Quoted(name));
      if (!adds && !isPresent)
        throw NotFound(Named(a.name) + " has no member " + console::Quoted(name));
      members.push_back(adds ? MemberFrom(name) : *found);
    }
    const std::size_t count = members.size() + present.size();
    if (!adds || count <= quillkit::MaxListMembers) return members;
    throw Refusal(Named(a.name) + " would have " + CountedMembers(count) + "; the limit is 512");
  }

  // Reads the entry of this name.
  std::pair<Status, Member> EntryOf(const std::string& name) const {
    Member entry;
    entry.SetName(name);
    const Status status = (scanner.*kEntries)().ReadOne(&entry);
    return {status, entry};
  }

  Member MemberFrom(const std::string& name) const {
    auto [status, entry] = EntryOf(name);
    const std::string what =
        "the entry " + console::Quoted(name) + " of the " + std::string(source.title);
    if (status == quillkit::kDataNotFound) throw NotFound("cannot find " + what);
    RequireSuccess(status, "read " + what);
    const console::Row cells = Cells(entry);
    if (cells[0] != name || cells[1].empty()) throw Refusal(what + " is invalid");
    if constexpr (kIsPrivate) entry.flags = 1;
    return entry;
  }

  void AddOrRemove(const Arguments& a, bool adds) {
    const Members present = ReadNamed(a.name);
    const Members members = MembersFor(a, present, adds);
    const std::string what =
        CountedMembers(members.size()) + (adds ? " to " : " from ") + Named(a.name);
    if (adds ? console::IsDryRun(a.consent, "Add " + what)
             : !console::Agreed(a.consent, "Remove " + what)) {
      return;
    }
    ChangeMembers(a.name, adds ? Change::kAdd : Change::kRemove, members, present.size(),
                  (adds ? "add " : "remove ") + what, console::DeferredTermination(kStopping));
    std::cout << (adds ? "Added " : "Removed ") << what << ".\n";
  }

  void DeleteList(const std::string& name) {
    const std::string what = "delete " + Named(name);
    MakeChange([&] { return book.MembersOf(name).DeleteBook(); }, what);
    Verify(what, [&] { return !ReadNames().contains(name); });
  }

  // Creates a list with these members.
  void Fill(const std::string& name, const Members& members, const std::string& what,
            const console::DeferredTermination& termination) {
    const Names names = ReadNames();
    if (names.contains(name)) throw Refusal(Named(name) + " already exists");
    if (names.size() >= kMaxLists) {
      throw Refusal("cannot " + what + ": the limit of " + std::to_string(kMaxLists) +
                    " is reached");
    }
    MakeChange([&] { return book.MembersOf(name).CreateBook(); }, what);
    Verify(what, [&] { return ReadNames().contains(name); });
    ChangeMembers(name, Change::kFill, members, 0, what, termination);
  }

  // Adds or removes members one by one, and then reads the list, which had `present` members.
  // Throws a Refusal if nothing was done, and a PartialFailure if not everything was done.
  void ChangeMembers(const std::string& name, Change change, Members members, std::size_t present,
                     const std::string& what, const console::DeferredTermination& termination) {
    const bool adds = change != Change::kRemove;
    std::string fault;
    for (Member& each : members) {
      if (!fault.empty()) break;
      auto list = book.MembersOf(name);
      const Status status = adds ? list.Create(&each) : list.Delete(each);
      if (status != 0)
        fault = "member " + console::Quoted(each.Name()) + ": " + CodeAndText(status);
      if (termination.IsRequested()) fault = "interrupted";
    }
    std::set<console::Row> rows;
    Verify(what, [&] { return (rows = RowsOf(Read(name)), true); });
    std::size_t done = 0;
    for (const Member& each : members) done += rows.contains(RowOf(each)) == adds ? 1 : 0;
    const std::size_t count = adds ? present + members.size() : present - members.size();
    if (done == members.size() && rows.size() == count) return;
    if (fault.empty()) fault = "the appliance reports success, but delivers other members";
    const bool isNew = change == Change::kFill;
    const std::string text = "cannot " + what + ": " + fault + "; " +
                             (isNew ? "created the list, and " : "") +
                             (adds ? "added " : "removed ") + std::to_string(done) + " of " +
                             CountedMembers(members.size());
    if (done == 0 && !isNew) throw Refusal(text);
    throw PartialFailure(text);
  }

  // Copies the list and then deletes the original.
  void RenameByCopy(const Arguments& a, const std::string& what) {
    const console::DeferredTermination termination(kStopping);
    Fill(a.newName, Read(a.name), what, termination);
    try {
      if (termination.IsRequested()) throw Refusal("interrupted");
      DeleteList(a.name);
    } catch (const Failure& why) {
      throw PartialFailure("cannot " + what + ": " + why.what() +
                           "; the list may now exist under both names");
    }
  }

  static constexpr std::size_t kMaxLists =
      kIsPrivate ? quillkit::MaxPrivateLists : quillkit::MaxPublicLists;

  const CScanner& scanner;
  const AddressBook& source;
  std::string title;  // as that of the book, such as "e-mail list"
  Book book;
};

// What a command needs besides the kind.
enum Options : unsigned {
  kName = 1,
  kNewName = 2,
  kMembers = 4,
  kJson = 8,
  kConsent = 16,
  kDryRun = 32
};

template <class Kind>
struct ListCommand {
  const char* name;
  void (Kind::*run)(const Arguments&);
  unsigned options;
  const char* help;
};
template <class Kind>
constexpr ListCommand<Kind> kCommands[] = {
    {"list", &Kind::Print, kJson, "List the lists and their numbers of members"},
    {"show", &Kind::Show, kName | kJson, "Show the members of a list"},
    {"create", &Kind::Create, kName | kMembers | kDryRun, "Create a list of entries of the book"},
    {"rename", &Kind::Rename, kName | kNewName | kDryRun, "Rename a list"},
    {"copy", &Kind::Copy, kName | kNewName | kDryRun, "Copy a list"},
    {"delete", &Kind::Delete, kName | kConsent, "Delete a list"},
    {"add", &Kind::Add, kName | kMembers | kDryRun, "Add entries of the book to a list"},
    {"remove", &Kind::Remove, kName | kMembers | kConsent, "Remove members from a list"},
};

using EmailLists = Lists<quillkit::CEmailAB, &CScanner::EmailEntries, &CScanner::RenamePublicList>;
using FaxLists = Lists<quillkit::CFaxAB, &CScanner::FaxEntries, nullptr>;
using PrivateLists =
    Lists<quillkit::CPrivEmailAB, &CScanner::PrivateEntries, &CScanner::RenamePrivateList>;

template <class Kind>
void RunFor(const Session& session, const Arguments& a) {
  Kind lists(session, a.kind);
  Arguments stored = a;
  stored.name = lists.NameOf(a.name);
  (lists.*kCommands<Kind>[a.command].run)(stored);
}

const std::map<std::string, void (*)(const Session&, const Arguments&)> kKinds = {
    {"email", RunFor<EmailLists>}, {"fax", RunFor<FaxLists>}, {"private", RunFor<PrivateLists>}};

void Run(const Session& session, const Arguments& a) {
  kKinds.at(a.kind)(session, a);
}

}  // namespace

void AddListCommands(Commands& commands) {
  Commands group = commands.AddGroup("list", "List and change distribution lists");
  std::size_t index = 0;
  for (const auto& [name, run, options, help] : kCommands<EmailLists>) {
    const auto [command, a] = group.Add(name, help, Run);
    a.command = index++;
    command->add_option("kind", a.kind, "The kind of list")
        ->required()
        ->check(CLI::IsMember(std::vector<std::string>{"email", "fax", "private"}));
    if ((options & kName) != 0) AddName(command, "name", a.name, "The list's name");
    if ((options & kNewName) != 0) AddName(command, "new", a.newName, "The new name");
    if ((options & kMembers) != 0) {
      AsName(command->add_option("members", a.members, "The names of the members"))
          ->required(run != &EmailLists::Create);
    }
    if ((options & kJson) != 0) console::AddJson(command, a.json);
    if ((options & kConsent) != 0) console::AddConsent(command, a.consent);
    if ((options & kDryRun) != 0) console::AddDryRun(command, a.consent);
  }
}

}  // namespace quillctl
