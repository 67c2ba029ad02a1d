// The table of objects that have a handle.
//
// Invariants:
//   1. A handle consists of a kind (8 bits), a slot (24 bits) and the generation of the slot (32
//      bits), which increases when an object leaves the slot: no handle is used twice.
//   2. Every object in the table is alive and is in it once. A call that destroys an object of the
//      library, or may have destroyed it, removes it.
//   3. If the parent of an object leaves the table, the object leaves too, unless the application
//      owns it. Such an object keeps the handle of its parent, which is stale from then on.

#ifndef QUILLKIT_CAPI_HANDLE_TABLE_H_
#define QUILLKIT_CAPI_HANDLE_TABLE_H_

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "capi/quillkit_c.h"

namespace quillkit::capi {

enum class HandleKind : std::uint8_t { kScanner = 1, kBook, kKey, kItem, kUser, kEntries, kView };

struct HandleEntry {
  void* object = nullptr;  // null: the slot is free
  HandleKind kind{};
  bool isAppOwned = false;  // owned by the application
  std::uint32_t generation = 1;
  // The handle of the object that this one belongs to, or 0. For a scanner its IPv4 address, which
  // equals no handle, so that scanners of one address have the same parent. For a free slot the
  // next free slot; after the last one, the slot that will be added next.
  quill_handle parent = 0;
};

class HandleTable {
 public:
  // Returns the handle of an object. Adds the object if it has none.
  quill_handle FindOrAdd(HandleKind kind, void* object, quill_handle parent, bool isAppOwned);

  // Returns the entry of a handle of this kind and stores 0 in `*fault`. Otherwise returns null and
  // stores QUILL_E_NULL, QUILL_E_STALE or QUILL_E_FOREIGN. Valid until the table changes.
  const HandleEntry* Find(quill_handle handle, HandleKind kind, std::int32_t* fault) const;

  // Returns whether a handle of any kind names an object.
  bool IsLive(quill_handle handle) const;

  // Returns the handle of an object, or 0.
  quill_handle HandleOf(const void* object) const;

  // Returns whether an object belongs to `parent`, which is in the table.
  bool IsChild(const void* object, const void* parent) const;

  // Remove objects and end their handles. An object that is not in the table is ignored.
  //   End          the object
  //   EndBelow     the objects of the library below the object
  //   EndChildren  the objects of the library with this parent
  //   EndAll       all objects of a kind
  void End(const void* object);
  void EndBelow(const void* object);
  void EndChildren(quill_handle parent);
  void EndAll(HandleKind kind);

 private:
  quill_handle HandleAt(std::size_t slot) const;
  void EndAt(std::size_t slot);

  std::vector<HandleEntry> entries;
  std::size_t firstFree = 0;
  std::unordered_map<const void*, std::size_t> slots;
};

// Returns the table of the library.
HandleTable& Handles();

}  // namespace quillkit::capi

#endif  // QUILLKIT_CAPI_HANDLE_TABLE_H_
