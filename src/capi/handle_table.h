// The objects that have a handle.
//
// Invariants:
//   1. A handle is a kind (8 bits), a slot (24 bits) and the slot's generation (32 bits). The
//      generation increases when an object leaves the slot, so that no handle is used twice.
//   2. Every object in the table is alive and is in it once: every operation that destroys, or may
//      have destroyed, an object of the library removes it.
//   3. An entry whose parent leaves the table leaves with it, unless the application owns it: that
//      one keeps the parent's handle, which is stale from then on.

#ifndef QUILLKIT_CAPI_HANDLE_TABLE_H_
#define QUILLKIT_CAPI_HANDLE_TABLE_H_

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "capi/quillkit_c.h"

namespace quillkit::capi {

enum class HandleKind : std::uint8_t { kScanner = 1, kBook, kKey, kItem, kUser };

struct HandleEntry {
  void* object = nullptr;  // null: the slot is free
  HandleKind kind{};
  bool isApplications = false;  // who owns the object
  std::uint32_t generation = 1;
  // The handle of the object that this one belongs to, or 0. A scanner's is its IPv4 address, which
  // no handle equals: scanners of one address have one parent. A free slot's is the next free one;
  // behind the last of them comes the slot that is not there yet.
  quill_handle parent = 0;
};

class HandleTable {
 public:
  // The handle of an object, entered now unless it has one.
  quill_handle Enter(HandleKind kind, void* object, quill_handle parent, bool isApplications);

  // The entry of a handle of this kind, good until the table changes, with 0 in `*fault`; else null
  // with QUILL_E_NULL, QUILL_E_STALE or QUILL_E_FOREIGN.
  const HandleEntry* Find(quill_handle handle, HandleKind kind, std::int32_t* fault) const;

  // Whether a handle of any kind names an object.
  bool IsLive(quill_handle handle) const;

  // The handle of an object, or 0.
  quill_handle HandleOf(const void* object) const;

  // Whether an object belongs to another one that lives.
  bool IsUnder(const void* object, const void* parent) const;

  // Take out an object that may be in the table, the library's objects under one, those under a
  // parent, and all of a kind.
  void End(const void* object);
  void EndBelow(const void* object);
  void EndUnder(quill_handle parent);
  void EndAll(HandleKind kind);

 private:
  quill_handle HandleAt(std::size_t slot) const;
  void EndAt(std::size_t slot);

  std::vector<HandleEntry> entries;
  std::size_t firstFree = 0;
  std::unordered_map<const void*, std::size_t> slots;
};

// The one table of the library.
HandleTable& Handles();

}  // namespace quillkit::capi

#endif  // QUILLKIT_CAPI_HANDLE_TABLE_H_
