// Run-time information on a class: it creates an object by the class name and loads one from an
// Archive.

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
  RootObject* (*create)();  // returns a default-constructed object, owned by the caller
  const ClassRecord* base;  // null for a direct subclass of the root

  // Returns whether this class is `other` or derives from it.
  bool IsA(const ClassRecord& other) const;
};

// Returns all classes that can be created by name. The table is constant-initialised: it is
// complete before the first static constructor runs, and the linker keeps every record that it
// names.
std::span<const ClassRecord* const> RegisteredClasses();

// Returns the record with exactly this class name, or null.
const ClassRecord* FindClass(std::string_view name);

// Returns a new object of the class, owned by the caller, or null for an unknown name.
RootObject* CreateByName(std::string_view name);

// The ClassRecord::create of a class with a default constructor.
template <class Class>
RootObject* CreateObject() {
  return new Class;
}

}  // namespace quillkit

#endif  // QUILLKIT_BASE_CLASS_RECORD_H_
