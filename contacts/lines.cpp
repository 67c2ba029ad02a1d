#include "contacts/lines.h"

#include <algorithm>

namespace contacts {
namespace {

constexpr std::size_t kBlock = std::size_t{64} << 10;

}  // namespace

Lines::Lines(std::istream& newSource, Encoding newEncoding)
    : source(newSource), encoding(newEncoding), unit(IsUtf16(newEncoding) ? 2 : 1) {
  Refill();
  const Mark mark = FindMark(buffer);
  if (mark.encoding == encoding) end = next = mark.size;
}

unsigned Lines::UnitAt(std::size_t at) const {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(buffer[i]); };
  if (unit == 1) return byte(at);
  const std::size_t high = encoding == Encoding::kUtf16Be ? at : at + 1;
  return byte(high) * 256U + byte(high == at ? at + 1 : at);
}

// Returns the position of the first LF or CR from `from` on; the size of the buffer without one.
std::size_t Lines::FindLineEnd(std::size_t from) {
  if (unit == 2) {
    while (from + 1 < buffer.size() && UnitAt(from) != '\n' && UnitAt(from) != '\r') from += 2;
    return from + 1 < buffer.size() ? from : buffer.size();
  }
  if (newline < from || newline == 0) newline = std::min(buffer.find('\n', from), buffer.size());
  const std::string_view line = std::string_view(buffer).substr(from, newline - from);
  return from + std::min(line.find('\r'), line.size());
}

// Removes the bytes before the next line and appends a block of the source.
bool Lines::Refill() {
  buffer.erase(0, next);
  next = newline = 0;
  const std::size_t size = buffer.size();
  buffer.resize(size + kBlock);
  source.read(buffer.data() + size, kBlock);
  buffer.resize(size + static_cast<std::size_t>(source.gcount()));
  return buffer.size() != size;
}

// Counts the double quotes from the beginning of the line, or of a further part of it.
void Lines::CountQuotes(std::size_t to) {
  const std::string_view part = std::string_view(buffer).substr(next, to - next);
  if (std::ranges::count(part, '"') % 2 != 0) hasOddQuotes = !hasOddQuotes;
}

bool Lines::Next() {
  begin = end;
  std::size_t scanned = 0;  // bytes of the line without an end
  bool isTooLong = false;
  hasOddQuotes = false;
  std::size_t at = FindLineEnd(next);
  // The byte after a CR decides whether the line ends with CR LF.
  while (at + 2 * unit > buffer.size()) {
    if (buffer.size() - next > kMaxRecord) {
      isTooLong = true;
      CountQuotes(at);
      end += at - next;
      next = at;
    }
    scanned = at - next;
    const std::size_t lost = next;
    const bool hasMore = Refill();
    at -= lost;
    if (!hasMore) break;
    at = FindLineEnd(scanned);
  }
  at = std::min(at, buffer.size());
  if (at == buffer.size() && at == next && !isTooLong) return false;

  ++number;
  bytes = std::string_view(buffer).substr(next, at - next);
  if (isTooLong || bytes.size() > kMaxRecord) CountQuotes(at);
  ending = {};
  if (at < buffer.size()) {
    const bool isReturn = UnitAt(at) == '\r';
    const bool hasTwo = isReturn && at + 2 * unit <= buffer.size() && UnitAt(at + unit) == '\n';
    ending = hasTwo ? "\r\n" : isReturn ? "\r" : "\n";
  }
  const std::size_t size = at - next + ending.size() * unit;
  end += size;
  next += size;
  fault = isTooLong || bytes.size() > kMaxRecord ? &kRecordTooLong : nullptr;
  Decode();
  return true;
}

void Lines::Decode() {
  if (fault != nullptr) bytes = {};
  if (encoding == Encoding::kUtf8 && bytes.starts_with(kUtf8Mark)) {
    bytes.remove_prefix(kUtf8Mark.size());
  }
  text = bytes;
  if (encoding != Encoding::kUtf8 || !IsUtf8(bytes)) {
    decoded.clear();
    if (!AppendUtf8(decoded, bytes, encoding)) fault = &kNotDecodable;
    text = decoded;
    if (text.starts_with(kUtf8Mark)) text.remove_prefix(kUtf8Mark.size());
  }
  if (fault == nullptr && text.find('\0') != text.npos) fault = &kNul;
}

}  // namespace contacts
