#include "quillctl/key_set_json.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <limits>
#include <set>

#include "console/json_output.h"
#include "contacts/encoding.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

constexpr const char* kFormatMember = "quillbox-keys";
// Returns the text with one byte for each character. Throws a UsageError for a character outside
// Latin-1.
std::string Latin1FromUtf8(const std::string& utf8, const std::string& where) {
  std::string text;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    if (byte > 0xC3) throw UsageError(where + " has a character outside latin-1");
    text += byte < 0x80 ? utf8[i] : static_cast<char>((byte & 3) << 6 | (utf8[++i] & 0x3F));
  }
  return text;
}

// Rejects input that the parser accepts: duplicate members, because the parser keeps only the last
// one; too many members, which take much time; and deep nesting, which takes much memory.
class ParseGuard {
 public:
  bool operator()(int depth, console::Json::parse_event_t event, const console::Json& parsed) {
    using Event = console::Json::parse_event_t;
    if (depth > kMaxDepth) throw UsageError("the file is nested too deeply");
    if (event == Event::object_start) objectNames.emplace_back();
    if (event == Event::object_end) objectNames.pop_back();
    if (event == Event::key) AddMember(parsed.get<std::string>());
    return true;
  }

 private:
  static constexpr int kMaxDepth = 8;
  static constexpr std::size_t kMaxMembers = 16;

  void AddMember(const std::string& name) {
    std::set<std::string>& names = objectNames.back();
    if (!names.insert(name).second) {
      throw UsageError("an object has two members named " + console::Quoted(name));
    }
    if (names.size() > kMaxMembers) throw UsageError("an object has too many members");
  }

  std::vector<std::set<std::string>> objectNames;  // the member names of each open object
};

// Reads a key set from parsed JSON. `where` is the position of a value in error messages.
class Reader {
 public:
  KeySet Read(const console::Json& file) {
    RequireMembers(file, "the file", {kFormatMember, "encoding", "keys"});
    if (file.value(kFormatMember, console::Json()) != console::Json(1)) {
      throw UsageError("not a key file: \"quillbox-keys\": 1 is missing");
    }
    const console::Json encoding =
        file.value("encoding", console::Json(WordOf(contacts::Encoding::kUtf8)));
    isLatin1 = encoding == WordOf(contacts::Encoding::kLatin1);
    if (!isLatin1 && encoding != WordOf(contacts::Encoding::kUtf8)) {
      throw UsageError("the file's \"encoding\" is neither \"utf-8\" nor \"latin-1\"");
    }
    KeySet keys;
    std::set<std::string> names;
    for (const console::Json& each : List(file, "keys", "the file", kMaxKeys)) {
      const std::string where = "key " + std::to_string(keys.size() + 1);
      keys.push_back(Key(each, where));
      if (!names.insert(keys.back().name).second) throw UsageError(where + kDuplicate);
    }
    return keys;
  }

 private:
  static void RequireMembers(const console::Json& object, const std::string& where,
                             const std::vector<std::string>& known) {
    if (!object.is_object()) throw UsageError(where + " is not an object");
    for (const auto& [name, value] : object.items()) {
      if (std::ranges::find(known, name) != known.end()) continue;
      throw UsageError(where + " has an unknown member " + console::Quoted(name));
    }
  }

  static const console::Json& List(const console::Json& object, const char* member,
                                   const std::string& where, std::size_t limit) {
    const auto found = object.find(member);
    if (found == object.end() || !found->is_array()) {
      throw UsageError(where + " has no list \"" + member + "\"");
    }
    if (found->size() > limit) {
      throw UsageError(where + " has more than " + std::to_string(limit) + " " + member);
    }
    return *found;
  }

  KeyFields Key(const console::Json& json, const std::string& where) const {
    RequireMembers(json, where, {"name", "items"});
    KeyFields key{Text(json, "name", where, kItemTexts[0].limit), {}};
    if (key.name.empty()) throw UsageError(where + " has no name");
    std::set<std::string> names;
    for (const console::Json& each : List(json, "items", where, kMaxItems)) {
      const std::string item = where + ", item " + std::to_string(key.items.size() + 1);
      key.items.push_back(Item(each, item));
      if (!names.insert(key.items.back().name).second) throw UsageError(item + kDuplicate);
    }
    return key;
  }

  ItemFields Item(const console::Json& json, const std::string& where) const {
    std::vector<std::string> known;
    for (const ItemText& each : kItemTexts) known.emplace_back(each.word);
    for (const ItemNumber& each : kItemNumbers) known.emplace_back(each.word);
    RequireMembers(json, where, known);
    ItemFields item;
    for (const ItemText& each : kItemTexts) {
      item.*each.field = Text(json, each.word, where, each.limit);
    }
    for (const ItemNumber& each : kItemNumbers) item.*each.field = Number(json, each.word, where);
    if (item.name.empty()) throw UsageError(where + " has no name");
    return item;
  }

  std::string Text(const console::Json& object, const char* member, const std::string& where,
                   std::size_t limit) const {
    const std::string what = where + ": its " + member;
    const console::Json value = object.value(member, console::Json(""));
    if (!value.is_string()) throw UsageError(what + " is not a string");
    std::string text = value.get<std::string>();
    if (isLatin1) text = Latin1FromUtf8(text, what);
    if (text.find('\0') != text.npos) throw UsageError(what + " contains a NUL character");
    if (text.size() <= limit) return text;
    throw UsageError(what + " is longer than " + std::to_string(limit) + " bytes");
  }

  static std::uint32_t Number(const console::Json& object, const char* member,
                              const std::string& where) {
    const console::Json value = object.value(member, console::Json(0U));
    if (value.is_number_unsigned() &&
        value.get<std::uint64_t>() <= std::numeric_limits<std::uint32_t>::max()) {
      return value.get<std::uint32_t>();
    }
    throw UsageError(where + ": its " + member + " is not a number from 0 to 4294967295");
  }

  static constexpr const char* kDuplicate = " has the same name as an earlier one";
  bool isLatin1 = false;
};

// Stores the file of the keys. Returns false if a text is not valid in the encoding.
bool Store(console::Json& file, const KeySet& keys, contacts::Encoding encoding) {
  bool isValid = true;
  const auto text = [&](const std::string& bytes) {
    std::string utf8;
    isValid = contacts::AppendUtf8(utf8, bytes, encoding) && isValid;
    return utf8;
  };
  console::Json list = console::Json::array();
  for (const KeyFields& key : keys) {
    console::Json items = console::Json::array();
    for (const ItemFields& item : key.items) {
      console::Json shown;
      for (const ItemText& each : kItemTexts) shown[each.word] = text(item.*each.field);
      for (const ItemNumber& each : kItemNumbers) shown[each.word] = item.*each.field;
      items.push_back(std::move(shown));
    }
    list.push_back({{"name", text(key.name)}, {"items", items}});
  }
  file = {{kFormatMember, 1}, {"encoding", WordOf(encoding)}, {"keys", std::move(list)}};
  return isValid;
}

}  // namespace

std::string JsonOf(const KeySet& keys) {
  console::Json file;
  if (!Store(file, keys, contacts::Encoding::kUtf8)) {
    Store(file, keys, contacts::Encoding::kLatin1);
  }
  return file.dump(2) + '\n';
}

KeySet ParseKeySet(std::string_view json) {
  console::Json file;
  ParseGuard guard;
  try {
    file = console::Json::parse(json, std::ref(guard));
  } catch (const console::Json::parse_error& error) {
    const std::string_view read = json.substr(0, std::min(error.byte, json.size()));
    throw UsageError("line " + std::to_string(1 + std::ranges::count(read, '\n')) +
                     " is not valid JSON");
  }
  return Reader().Read(file);
}

console::Json ShownItem(const std::string& key, const ItemFields& item) {
  console::Json json;
  console::SetText(json, "key", key);
  for (const ItemText& each : kItemTexts) console::SetText(json, each.word, item.*each.field);
  for (const ItemNumber& each : kItemNumbers) json[each.word] = item.*each.field;
  return json;
}

}  // namespace quillctl
