#include "quillctl/live_names.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string_view>
#include <system_error>

#include "console/displayed_text.h"
#include "console/text_file.h"
#include "platform/draft.h"
#include "quillctl/address_books.h"
#include "quillctl/failures.h"
#include "quillctl/key_set.h"
#include "quillctl/system/private_cache.h"

namespace quillctl {
namespace {

using namespace std::chrono_literals;

using Names = std::vector<std::string>;

constexpr auto kLifetime = 30s;
constexpr std::size_t kMaxNames = 64;

Names KeyNames(const Session& session) {
  Names names;
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    names.emplace_back(quillkit::GetKeyName(quillkit::GetKeyAt(book, i)));
  }
  return names;
}

Names ItemNames(const Session& session, const std::string& key) {
  Names names;
  for (const ItemFields& each : ItemsOf(FindKey(session.LoadKeys(true), key))) {
    names.push_back(each.name);
  }
  return names;
}

// Reads from the prefix on: the appliance selects by the first character only.
Names EntryNames(const Session& session, const NameQuery& query) {
  if (!std::ranges::count(AllBooks(), query.scope, &AddressBook::word)) return {};
  Names names;
  for (const std::string& prefix : console::FormsOf(query.prefix)) {
    BookOf(query.scope)
        .read(*session.Scanner(), prefix, prefix.substr(0, 1) + '*', [&](const console::Row& row) {
          const bool isWanted = row[0].starts_with(prefix);
          if (isWanted) names.push_back(row[0]);
          return isWanted && names.size() <= kMaxNames;
        });
  }
  // A shell inserts what all names have in common. That is wrong if further names are missing.
  if (names.size() > kMaxNames) names.clear();
  return names;
}

Names ListNames(const Session& session, const std::string& kind) {
  std::array<quillkit::ABIdent, 512> lists;
  auto count = static_cast<std::uint32_t>(lists.size());
  const quillkit::CScanner& scanner = *session.Scanner();
  RequireSuccess(kind == "fax"       ? scanner.ListFaxLists(lists.data(), &count)
                 : kind == "private" ? scanner.ListPrivateLists(lists.data(), &count)
                                     : scanner.ListPublicLists(lists.data(), &count),
                 "list the lists");
  Names names;
  for (std::uint32_t i = 0; i < count; ++i) names.emplace_back(lists[i].name.View());
  return names;
}

Names Fetch(const Credentials& credentials, const NameQuery& query) {
  const Session session(credentials);
  switch (query.kind) {
    case NameQuery::kKey:
      return KeyNames(session);
    case NameQuery::kItem:
      return ItemNames(session, query.scope);
    case NameQuery::kEntry:
      return EntryNames(session, query);
    case NameQuery::kList:
      return ListNames(session, query.scope);
    case NameQuery::kNone:
      break;
  }
  return {};
}

std::string CacheFile(const std::string& folder, const Credentials& credentials,
                      const NameQuery& query) {
  std::string key;
  for (const std::string& each : {credentials.host, credentials.user, query.scope,
                                  query.kind == NameQuery::kEntry ? query.prefix : ""}) {
    key += each + '\n';
  }
  return folder + '/' + std::to_string(std::hash<std::string>()(key)) + '-' +
         std::to_string(query.kind);
}

bool IsFresh(const std::string& file) {
  std::error_code failure;
  const auto written = std::filesystem::last_write_time(file, failure);
  if (failure) return false;
  const auto age = std::filesystem::file_time_type::clock::now() - written;
  return age >= 0s && age < kLifetime;
}

Names NamesIn(const std::string& file) {
  Names names;
  const std::string text = console::ReadTextFile(file, std::size_t{1} << 20);
  for (console::FileLines lines(text); lines.Next();) names.emplace_back(lines.Text());
  return names;
}

// Stores the names in UTF-8, in which commands find them, except those that could control the
// terminal.
void Store(const std::string& file, Names& names) {
  for (std::string& each : names) each = console::Utf8Text(each);
  std::erase_if(names,
                [](const std::string& name) { return console::DisplayedText(name) != name; });
  std::string text;
  for (const std::string& each : names) text += each + '\n';
  quillkit::ReplaceFileAt(file, text, quillkit::Readers::kOwner);
}

}  // namespace

std::vector<std::string> LiveNames(const Credentials& credentials, const NameQuery& query) {
  const std::string folder = PrivateCacheFolder();
  if (query.kind == NameQuery::kNone || folder.empty()) return {};
  try {
    const std::string file = CacheFile(folder, credentials, query);
    if (IsFresh(file)) return NamesIn(file);
    if (!credentials.password || SessionMark::Exists()) return {};
    Names names = Fetch(credentials, query);
    Store(file, names);
    return names;
  } catch (const Failure&) {
    return {};
  }
}

}  // namespace quillctl
