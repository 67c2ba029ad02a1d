#include "base/archive.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "base/secret.h"

namespace quillkit {
namespace {

constexpr std::uint32_t kLongMark = 0xFF;
constexpr std::uint32_t kVeryLongMark = 0xFFFF;
constexpr std::uint32_t kFirstVeryLong = 0xFFFE;

}  // namespace

void Archive::Exchange(std::uint32_t& value) {
  if (IsStoring()) {
    StoreNumber(value, sizeof value);
  } else {
    value = LoadNumber(sizeof value);
  }
}

void Archive::Exchange(std::int32_t& value) {
  auto bits = std::bit_cast<std::uint32_t>(value);
  Exchange(bits);
  value = std::bit_cast<std::int32_t>(bits);
}

void Archive::Exchange(std::string& text) {
  std::string_view view = text;
  Exchange(view);
  if (!IsStoring()) text = view;
}

void Archive::Exchange(std::string_view& text) {
  if (IsStoring()) {
    StoreText(text);
  } else {
    text = LoadText();
  }
}

bool Archive::CanHold(std::uint32_t count, std::size_t bytesEach) {
  if (IsStoring() || count <= source.size() / bytesEach) return true;
  Fail();
  return false;
}

// The sink grows only here. The old memory is wiped: it may contain accounts.
void Archive::Store(std::string_view bytes) {
  const std::size_t size = sink->size() + bytes.size();
  if (size > sink->capacity()) {
    std::string grown;
    grown.reserve(std::max(size, 2 * sink->capacity()));
    grown.append(*sink);
    WipeBytes(sink->data(), sink->size());
    *sink = std::move(grown);
  }
  sink->append(bytes);
}

void Archive::StoreText(std::string_view text) {
  const auto length = static_cast<std::uint32_t>(text.size());
  if (length < kLongMark) {
    StoreNumber(length, 1);
  } else {
    StoreNumber(kLongMark, 1);
    if (length < kFirstVeryLong) {
      StoreNumber(length, 2);
    } else {
      StoreNumber(kVeryLongMark, 2);
      StoreNumber(length, 4);
    }
  }
  Store(text.substr(0, length));
}

std::string_view Archive::LoadText() {
  std::uint32_t length = LoadNumber(1);
  if (length == kLongMark) {
    length = LoadNumber(2);
    if (length == kVeryLongMark) length = LoadNumber(4);
  }
  return LoadBytes(length);
}

void Archive::StoreObject(RootObject* object) {
  if (object == nullptr) return StoreText({});
  const ClassRecord* record = object->GetRuntimeClass();
  StoreText(record->name);
  StoreNumber(record->schema, sizeof record->schema);
  object->Serialize(*this);
}

std::unique_ptr<RootObject> Archive::LoadObjectOf(const ClassRecord& expected) {
  const std::string_view name = LoadText();
  if (name.empty()) return nullptr;
  const ClassRecord* record = FindClass(name);
  if (record == nullptr || !record->IsA(expected) || LoadNumber(4) != record->schema) {
    Fail();
    return nullptr;
  }
  std::unique_ptr<RootObject> object(record->create());
  object->Serialize(*this);
  if (failed) return nullptr;
  return object;
}

void Archive::StoreNumber(std::uint32_t value, std::size_t bytes) {
  char number[sizeof value];
  for (std::size_t i = 0; i < bytes; ++i, value >>= 8) number[i] = static_cast<char>(value & 0xFF);
  Store({number, bytes});
}

std::uint32_t Archive::LoadNumber(std::size_t bytes) {
  std::uint32_t value = 0;
  unsigned shift = 0;
  for (const char byte : LoadBytes(bytes)) {
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(byte)) << shift;
    shift += 8;
  }
  return value;
}

std::string_view Archive::LoadBytes(std::size_t count) {
  if (count > source.size()) Fail();
  const std::string_view bytes = source.substr(0, failed ? 0 : count);
  source.remove_prefix(bytes.size());
  return bytes;
}

void Archive::Fail() {
  failed = true;
  source = {};
}

}  // namespace quillkit
