// The stream that stores objects and loads them again.
//
// An archive has one direction: constructed with a string it stores, with bytes it loads.
// Exchange() stores or loads its argument accordingly, so each field order is written only once.
//
// Formats:
//   32-bit value  four bytes, little-endian
//   text          its length, then its bytes without a NUL. A length below 255 is stored as one
//                 byte; below 65534, as the byte 255 and 16 bits; any other, as the byte 255, the
//                 16-bit value 65535 and 32 bits
//   object        its class name as a text, the schema of its class as a 32-bit value, then what
//                 its Serialize() writes. An empty class name means null
//   object list   its count as a 32-bit value, then each object
//
// Invariants while loading:
//   1. Nothing is read past the end, and nothing is allocated for more records than the remaining
//      bytes can hold.
//   2. After the first error, Failed() stays true. Every later value loads as 0, every text as
//      empty and every object as null; lists stop growing. The object with the error also loads as
//      null, so loaded objects are always complete.

#ifndef QUILLKIT_BASE_ARCHIVE_H_
#define QUILLKIT_BASE_ARCHIVE_H_

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>

#include "base/entry_block.h"
#include "base/fixed_text.h"
#include "base/root_object.h"

namespace quillkit {

class Archive {
 public:
  // Stores at the end of `newSink`, which must outlive the archive.
  explicit Archive(std::string* newSink) : sink(newSink) {}

  // Loads from `newSource`, whose bytes must outlive the archive.
  explicit Archive(std::string_view newSource) : source(newSource) {}

  bool IsStoring() const { return sink != nullptr; }
  bool Failed() const { return failed; }

  // Returns the number of bytes not read yet; 0 while storing and after a failure.
  std::size_t Remaining() const { return source.size(); }

  // Returns whether the remaining bytes can hold `count` elements of at least `bytesEach` bytes; if
  // not, the archive fails. Call it with a loaded count. Always true while storing.
  bool CanHold(std::uint32_t count, std::size_t bytesEach);

  // Allocates `count` blank records for a block that will be loaded; 0 leaves it empty. Returns
  // false, and the archive fails, if the remaining bytes cannot hold as many records or the
  // allocation fails.
  template <class Record>
  bool Prepare(EntryBlock<Record>& block, std::uint32_t count) {
    block.Free();
    if (!CanHold(count, Record::kSmallestStored)) return false;
    if (count == 0 || block.Allocate(static_cast<std::int32_t>(count))) return true;
    Fail();
    return false;
  }

  void Exchange(std::uint32_t& value);
  void Exchange(std::int32_t& value);
  void Exchange(std::string& text);

  // A loaded text points into the bytes of the source.
  void Exchange(std::string_view& text);

  // Loads a text into the field, truncated to the field.
  template <std::size_t N>
  void Exchange(FixedText<N>& field) {
    std::string_view text = field.View();
    Exchange(text);
    if (!IsStoring()) field.Assign(text);
  }

  // Stores the objects; the list keeps their ownership. Appends loaded objects of class `Object` or
  // a derived class to the list; any other object, or null, fails the archive.
  template <class Object>
  void Exchange(std::list<Object*>& objects);

  // Stores an object, or null, with its class name and schema. REQUIRES: IsStoring().
  void StoreObject(RootObject* object);

  // Loads the next object, of class `Object` or a derived class. Returns null if null was stored.
  // If the class is not registered, has another schema or is not derived from `Object`, the archive
  // fails and null is returned; the content is not read, so that a stream cannot nest deeper than
  // the classes do.
  // REQUIRES: !IsStoring().
  template <class Object>
  std::unique_ptr<Object> LoadObject() {
    return std::unique_ptr<Object>(static_cast<Object*>(LoadObjectOf(Object::kClass).release()));
  }

 private:
  std::unique_ptr<RootObject> LoadObjectOf(const ClassRecord& expected);
  void Store(std::string_view bytes);
  void StoreText(std::string_view text);
  std::string_view LoadText();
  void StoreNumber(std::uint32_t value, std::size_t bytes);
  std::uint32_t LoadNumber(std::size_t bytes);
  std::string_view LoadBytes(std::size_t count);
  void Fail();

  std::string* sink = nullptr;
  std::string_view source;
  bool failed = false;
};

template <class Object>
void Archive::Exchange(std::list<Object*>& objects) {
  auto count = static_cast<std::uint32_t>(objects.size());
  if (IsStoring()) {
    Exchange(count);
    for (Object* each : objects) StoreObject(each);
    return;
  }
  for (Exchange(count); count > 0 && !failed; --count) {
    std::unique_ptr<Object> object = LoadObject<Object>();
    if (object == nullptr) return Fail();
    objects.push_back(object.get());
    static_cast<void>(object.release());
  }
}

}  // namespace quillkit

#endif  // QUILLKIT_BASE_ARCHIVE_H_
