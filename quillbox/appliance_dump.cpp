#include "quillbox/appliance_dump.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "bridge/the_agent.h"
#include "console/displayed_text.h"
#include "console/failure.h"
#include "console/password.h"
#include "platform/name_service.h"

namespace quillbox {
namespace {

constexpr std::uint32_t kPage = 256;

constexpr BookKind kFixedBooks[] = {BookKind::kUsers,  BookKind::kEmail,    BookKind::kFax,
                                    BookKind::kModels, BookKind::kPrinters, BookKind::kPrivateEmail,
                                    BookKind::kTop};
constexpr BookKind kLists[] = {BookKind::kPublicList, BookKind::kFaxList, BookKind::kPrivateList};

std::string CodeAndText(Status status) {
  return "code " + std::to_string(status) + ", " + std::string(StatusText(status));
}

std::string NameOfBook(const ABIdent& book) {
  return "book " + std::to_string(static_cast<std::uint32_t>(book.kind)) + ':' +
         std::string(book.name.View());
}

std::string PasswordOf(const DumpOptions& options) {
  if (!options.passwordFile.empty()) {
    return console::PasswordFromFile(options.passwordFile, "--password-file");
  }
  const std::optional<std::string> password = console::PasswordFromEnvironment();
  return password ? *password : console::AskForPassword(console::Quoted(options.user));
}

// The server library, and a session.
class ServerSession {
 public:
  explicit ServerSession(const DumpOptions& options) {
    LoginRecord login;
    if (!StartSockets() ||
        (login.address = TextToAddress(options.host.c_str()),
         login.address == kNoAddress && !FindHostByName(options.host.c_str(), &login.address))) {
      throw console::Refusal("cannot find the host " + options.host);
    }
    const std::string password = PasswordOf(options);
    if (login.user.Set(options.user) == 0 || login.password.Set(password) == 0) {
      throw console::Refusal("the account or its password is too long");
    }
    if (TheAgent.LoadServerLibrary() != kNoError) {
      throw console::Refusal("the server library cannot be loaded");
    }
    std::array<char, 256> identity{};
    const Status status = TheAgent.IMSPLogin(&login, identity.data(), identity.size());
    if (status != kNoError) throw console::Refusal("cannot log in: " + CodeAndText(status));
  }
  ServerSession(const ServerSession&) = delete;
  ServerSession& operator=(const ServerSession&) = delete;
  ~ServerSession() {
    TheAgent.IMSPLogout();
    TheAgent.Shutdown();
  }
};

// Reads a sequence page by page: `read` reads up to kPage elements after a name and `add` adds the
// element at an index and returns its name. Returns the first status that is a failure.
template <class Read, class Add>
Status ReadPages(const std::string& what, Read read, Add add) {
  for (EntryKey last;;) {
    KeyRange range(last.name.View(), "*");
    std::uint32_t count = kPage;
    const Status status = read(range, count);
    if (status == kDataNotFound) return kNoError;
    if (status != kNoError && status != kMoreData) return status;
    count = std::min(count, kPage);
    for (std::uint32_t i = 0; i < count; ++i) {
      const EntryKey name = add(i);
      if (!(last < name)) throw console::Refusal(what + ": the appliance delivers a wrong order");
      last = name;
    }
    if (status == kNoError || count == 0) return kNoError;
  }
}

// Reports a failure to read. Throws a Refusal unless the account only has no right to.
void RequireRead(const std::string& what, Status status) {
  if (status == kNoError) return;
  const std::string text = "cannot read " + what + ": " + CodeAndText(status);
  if (status != kAccessDenied) throw console::Refusal(text);
  std::cerr << "quillbox: " << text << '\n';
}

void ReadBook(ABIdent book, std::string_view user, Store& store) {
  const BookType& type = *TypeOf(book.kind);
  const BookPath path{book.kind, EntryKey(book.name.View()), user};
  if (!type.IsFixed()) store.CreateBook(path);
  std::vector<char> records(kPage * type.recordSize);
  const std::string what = NameOfBook(book);
  const auto read = [&](KeyRange& range, std::uint32_t& count) {
    std::ranges::fill(records, '\0');
    return TheAgent.IMSPReadAB(&book, &range, records.data(), &count, 1);
  };
  const auto add = [&](std::uint32_t i) {
    const char* const record = records.data() + i * type.recordSize;
    if (store.Put(path, record) != kNoError) {
      throw console::Refusal(what + ": the appliance delivers an invalid entry");
    }
    return NameOf(record);
  };
  RequireRead(what, ReadPages(what, read, add));
}

// Returns the names of the books of a kind.
std::vector<EntryKey> ListBooks(BookKind kind) {
  ABIdent selector(kind, "");
  std::array<ABIdent, kPage> rows;
  std::vector<EntryKey> names;
  const std::string what = NameOfBook(selector);
  const auto read = [&](KeyRange& range, std::uint32_t& count) {
    return TheAgent.IMSPListAB(&selector, &range, rows.data(), &count, 1);
  };
  const auto add = [&](std::uint32_t i) {
    rows[i].Terminate();
    return names.emplace_back(rows[i].name.View());
  };
  RequireRead(what, ReadPages(what, read, add));
  return names;
}

}  // namespace

void ReadAppliance(const DumpOptions& options, Store& store) {
  const ServerSession session(options);
  for (const BookKind each : kFixedBooks) {
    ReadBook(ABIdent(each, TypeOf(each)->fixedName), options.user, store);
  }
  for (const auto& [key, record] : *store.Find({BookKind::kTop, {}, {}})) {
    ReadBook(ABIdent(BookKind::kKeyItems, key.name.View()), options.user, store);
  }
  for (const BookKind kind : kLists) {
    for (const EntryKey& each : ListBooks(kind)) {
      ReadBook(ABIdent(kind, each.name.View()), options.user, store);
    }
  }
}

}  // namespace quillbox
