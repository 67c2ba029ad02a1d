// The stream in which objects are stored and from which they are read back.
//
// One archive goes one way: made over a byte string to store, over bytes to load. Exchange() writes
// or reads its argument accordingly, so that a field order is written down once.
//
// Forms:
//   32-bit value  four bytes, little-endian
//   text          its length, then its bytes with no NUL. The length is one byte below 255;
//                 otherwise the byte 255 and 16 bits below 65534; otherwise the byte 255, the
//                 16-bit value 65535 and 32 bits
//   object        its class name as a text, its class's schema as a 32-bit value, then what its
//                 Serialize() writes. The empty class name stands for no object
//   object list   its count as a 32-bit value, then each object
//
// Invariants while loading:
//   1. Nothing is read past the end, and nothing is allocated for more records than the bytes
//      that are left can hold.
//   2. After the first thing that cannot be read, Failed() holds and stays: every later value loads
//      as 0, every text as empty, every object as null, and a list ends. The object in which it
//      happened is null too: what comes out of a stream is whole.

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

  // Bytes not read yet; 0 while storing and after a failure.
  std::size_t Remaining() const { return source.size(); }

  // For a count that was read: whether as many things of at least `bytesEach` bytes can follow. If
  // not, the archive fails. Always true while storing.
  bool CanHold(std::uint32_t count, std::size_t bytesEach);

  // For a block that is to be loaded: gives it `count` blank records, and none for 0. False, and
  // the archive fails, when the rest of the stream cannot hold as many or the memory is refused.
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

  // What is loaded is a part of the source's bytes.
  void Exchange(std::string_view& text);

  // Stores the field's text. Loads a text into the field, cut where the field ends.
  template <std::size_t N>
  void Exchange(FixedText<N>& field) {
    std::string_view text = field.View();
    Exchange(text);
    if (!IsStoring()) field.Assign(text);
  }

  // Stores the objects, which the list goes on owning. Loads objects of class `Object` or derived
  // from it at the end of the list; anything else there, null included, fails the archive.
  template <class Object>
  void Exchange(std::list<Object*>& objects);

  // Writes an object, or null, with its class identity. REQUIRES: IsStoring().
  void StoreObject(RootObject* object);

  // The next object, of class `Object` or derived from it. Null where null was stored. A class that
  // is not registered, is of another schema or is not an `Object` is a failure and gives null; its
  // content is not looked at, so that a stream cannot nest deeper than the classes do.
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
