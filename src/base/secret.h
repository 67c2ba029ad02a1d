// Passwords in memory: the library wipes every copy of a password after use.

#ifndef QUILLKIT_BASE_SECRET_H_
#define QUILLKIT_BASE_SECRET_H_

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace quillkit {

// Overwrites the bytes with zeroes. The empty asm statement prevents the compiler from removing the
// write: the compiler must assume that the statement reads the bytes.
inline void WipeBytes(void* bytes, std::size_t size) {
  std::memset(bytes, 0, size);
  asm volatile("" : : "r"(bytes) : "memory");
}

// A copy of a text that may be a password. It is never moved, and is wiped by its destructor.
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

// A type of record with a password. WipePassword() overwrites the whole field.
template <class Record>
concept HoldsPassword = requires(Record& record) {
  record.WipePassword();
};

// A record, or a copy of one. A password in it is wiped by the destructor.
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
