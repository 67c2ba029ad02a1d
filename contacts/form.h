// The form of a contact file: its format, encoding and delimiter, and how they are recognised.

#ifndef CONTACTS_FORM_H_
#define CONTACTS_FORM_H_

#include <cstdint>
#include <functional>
#include <istream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "contacts/encoding.h"
#include "contacts/record.h"

namespace contacts {

// The file is not what it was taken for. The text is for the user.
class FormError : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

enum class Format : std::uint8_t { kCsv, kLdif, kVcard, kJson };

// The names "csv", "ldif", "vcard" and "json".
std::string_view WordOf(Format format);
std::optional<Format> FormatOf(std::string_view word);

struct Form {
  Format format = Format::kCsv;
  Encoding encoding = Encoding::kUtf8;
  bool hasMark = false;      // whether the file begins with a byte order mark
  char delimiter = ',';      // of a csv file
  bool hasHeadings = false;  // whether its first row is a line of headings
};

// What is known of a form without looking at the file.
struct KnownForm {
  std::optional<Format> format;
  std::optional<Encoding> encoding;
  std::optional<char> delimiter;
  std::optional<bool> hasHeadings;
};

// How many bytes at the beginning of a file Recognise() looks at.
inline constexpr std::size_t kSampleSize = std::size_t{1} << 20;

// Returns how many values of a record are known as headings of a csv file.
using HeadingCounter = std::function<std::size_t(const Record&)>;

// Returns the form of a file that begins with the sample. Throws a FormError if the form cannot be
// told, or is not supported.
Form Recognise(std::string_view sample, const KnownForm& known, const HeadingCounter& countKnown);

// Returns a reader of the source, which must outlive it.
std::unique_ptr<Reader> MakeReader(std::istream& source, const Form& form);

}  // namespace contacts

#endif  // CONTACTS_FORM_H_
