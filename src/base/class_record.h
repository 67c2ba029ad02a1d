// What the library knows of a class at run time: enough to make an object by its name and to read
// one back from an Archive.

#ifndef QUILLKIT_BASE_CLASS_RECORD_H_
#define QUILLKIT_BASE_CLASS_RECORD_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "base/language.h"

namespace quillkit {

class RootObject;

struct ClassRecord {
  const char* name;
  std::size_t objectSize;  // bytes
  std::uint32_t schema;
  RootObject* (*create)();  // makes a default-constructed object that the caller owns
  const ClassRecord* base;  // null for a class right under the root

  // Whether this class is `other` or derives from it.
  bool IsA(const ClassRecord& other) const;
};

// Every class that can be made by name. The table is constant-initialised, so it is complete before
// the first static constructor runs, and it names each record, so the linker keeps them all.
std::span<const ClassRecord* const> RegisteredClasses();

// The record with exactly this class name, or null.
const ClassRecord* FindClass(std::string_view name);

// A new object of the named class, owned by the caller, or null for a name that is not registered.
RootObject* CreateByName(std::string_view name);

// The ClassRecord::create of a class with a default constructor.
template <class Class>
RootObject* CreateObject() {
  return new Class;
}

}  // namespace quillkit

#endif  // QUILLKIT_BASE_CLASS_RECORD_H_
