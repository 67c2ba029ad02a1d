// Passwords in memory: every copy that the library makes of one is wiped when it has served.

#ifndef QUILLKIT_BASE_SECRET_H_
#define QUILLKIT_BASE_SECRET_H_

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace quillkit {

// Overwrites the bytes with zeroes. No compiler leaves that out because nothing reads them later:
// as far as it knows, the empty statement does.
inline void WipeBytes(void* bytes, std::size_t size) {
  std::memset(bytes, 0, size);
  asm volatile("" : : "r"(bytes) : "memory");
}

// A copy of a text that may be a password. It never moves, and is wiped when it is destroyed.
class SecretText {
 public:
  explicit SecretText(std::string_view newText) : text(newText) {}
  SecretText(const SecretText&) = delete;
  SecretText& operator=(const SecretText&) = delete;
  ~SecretText() { WipeBytes(text.data(), text.size()); }

  operator const std::string&() const { return text; }

 private:
  std::string text;
};

// A type of record that holds a password. WipePassword() overwrites the whole field.
template <class Record>
concept HoldsPassword = requires(Record& record) {
  record.WipePassword();
};

// A record, or a copy of one. If it holds a password, that is wiped when it is destroyed.
template <class Record>
struct Wiped : Record {
  Wiped() = default;
  explicit Wiped(const Record& record) : Record(record) {}
  Wiped(const Wiped&) = delete;
  Wiped& operator=(const Wiped&) = delete;
  ~Wiped() {
    if constexpr (HoldsPassword<Record>) this->WipePassword();
  }
};

}  // namespace quillkit

#endif  // QUILLKIT_BASE_SECRET_H_
