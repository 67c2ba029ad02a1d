// The lines of a contact file, decoded. Memory use does not depend on the size of the file.

#ifndef CONTACTS_LINES_H_
#define CONTACTS_LINES_H_

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <string_view>

#include "contacts/ascii.h"
#include "contacts/encoding.h"
#include "contacts/problem.h"

namespace contacts {

// The largest line, and the largest record, in bytes.
inline constexpr std::size_t kMaxRecord = std::size_t{1} << 20;

class Lines {
 public:
  // Reads from the current position of `newSource`, which must outlive this object. A byte order
  // mark of the encoding is skipped.
  Lines(std::istream& newSource, Encoding newEncoding);

  // Moves to the next line. Lines end with LF, CR LF or CR. Returns false after the last one, and
  // after a failed read; the state of the source distinguishes the two.
  bool Next();

  // The line without its end and without a byte order mark, as UTF-8. What cannot be decoded is
  // U+FFFD. Empty if it is too long.
  std::string_view Text() const { return text; }
  // The end: one or two characters, or none for a last line without an end.
  std::string_view Ending() const { return ending; }
  // The bytes of the line in the file, without its end; empty if it is too long.
  std::string_view Bytes() const { return bytes; }
  // kNotDecodable, kNul or kRecordTooLong; null if there is no fault.
  const Problem* Fault() const { return fault; }
  // Whether a line that is too long has an odd number of double quotes.
  bool HasOddQuotes() const { return hasOddQuotes; }
  bool IsBlank() const { return fault == nullptr && contacts::IsBlank(text); }

  std::uint64_t Number() const { return number; }  // from 1
  std::uint64_t Begin() const { return begin; }    // the position of its first byte
  std::uint64_t End() const { return end; }        // the position after its end

 private:
  // Returns the unit at a position of the buffer: a byte, or two bytes of UTF-16.
  unsigned UnitAt(std::size_t at) const;
  std::size_t FindLineEnd(std::size_t from);
  bool Refill();
  void CountQuotes(std::size_t to);
  void Decode();

  std::istream& source;
  const Encoding encoding;
  const std::size_t unit;   // bytes of a character that ends a line
  std::string buffer;       // bytes that were read
  std::size_t next = 0;     // the position in the buffer of the next line
  std::size_t newline = 0;  // the position of the first LF from there on; less if not known
  std::string decoded;
  std::string_view text;
  std::string_view ending;
  std::string_view bytes;
  const Problem* fault = nullptr;
  bool hasOddQuotes = false;
  std::uint64_t number = 0;
  std::uint64_t begin = 0;
  std::uint64_t end = 0;
};

// A line with the lines that continue it.
struct LogicalLine {
  // Sets everything from the current line of the file.
  void Begin(const Lines& lines) {
    text = lines.Text();
    fault = lines.Fault();
    number = lines.Number();
    begin = lines.Begin();
    end = lines.End();
  }

  std::string text;
  const Problem* fault = nullptr;
  std::uint64_t number = 0;
  std::uint64_t begin = 0;
  std::uint64_t end = 0;
};

}  // namespace contacts

#endif  // CONTACTS_LINES_H_
