// The soft keys of the appliance: a cache of at most 11 CSoftKey objects and the top-level book on
// the server.
//
// On the server, a key is an entry of the top-level book and a book of its own; the server keeps
// both in step. To add a key, create the entry; to remove one, delete the book.
//
//   plain, with reload     changes the server, then reloads the cache with items: all key handles
//                          become invalid
//   plain, without reload  changes the server; the cache stays stale until Load
//   Fast                   changes the server, then updates the cache: other handles stay valid
//
// If the server refuses a change, the cache stays unchanged. Nothing is rolled back. Without a
// scanner, every request fails in the style of its family and makes no server call. Operations that
// list no server calls make no server call.

#ifndef QUILLKIT_SOFTKEYS_TOP_LEVEL_AB_H_
#define QUILLKIT_SOFTKEYS_TOP_LEVEL_AB_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/scanner.h"
#include "base/name_search.h"
#include "base/root_object.h"
#include "bridge/records.h"
#include "softkeys/soft_key.h"

namespace quillkit {

// The most keys of an appliance.
inline constexpr std::int32_t MaxSoftKeys = 11;

class CTopLevelAB : public RootObject {
 public:
  static const ClassRecord kClass;

  // The class has a schema but no archive form: Serialize is the empty one of RootObject.
  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // Sets the scanner, which must outlive this object. If `load` is set, runs Load with items and
  // discards its status. Always returns 1. Server calls: those of Load if `load` is set.
  int Attach(CScanner* newScanner, std::int32_t load);

  // Replaces the cache by the server's keys. Returns the status of the listing, with 4 (no keys) as
  // 0. A failed listing leaves no keys; 21, from a server with more than 11, is such a failure. A
  // key loaded without items has no owner: of the server operations, only GetDBItemCount works.
  // Server calls: IMSPListABEntries; with items, one IMSPReadAB for each key, whose status is
  // ignored.
  Status Load(std::int32_t withItems);

  // Destroys all cached keys.
  void Clear() { keys.clear(); }

  // --- The cache ---

  std::int32_t Count() const { return static_cast<std::int32_t>(keys.size()); }

  // Returns the key at `index`, or null for an index out of range. The cache owns it.
  CSoftKey* KeyAt(std::int32_t index) const;

  // Returns the lowest index of a key with exactly this name, or -1.
  std::int32_t Find(std::string_view name) const;

  // Search key names as CSoftKey::FindFirstItem and FindNextItem do, with one difference: without a
  // hit, FindNextKey returns the index of the previous hit.
  std::int32_t FindFirstKey(const std::string& pattern, bool wholeName);
  std::int32_t FindNextKey(bool wholeName);

  // Reads the book of the key and returns the cached key of this name if CSoftKey::Load returns 0,
  // otherwise null. Discards the items read: the cached key keeps its own.
  // Server calls: IMSPReadAB.
  CSoftKey* LoadItems(const std::string& name);

  // --- Plain family: return the status of the change, or of the reload ---
  //
  // Here and below, a name of 32 or more bytes is sent as the empty name.
  // Server calls: IMSPCreateEntry, IMSPDeleteAB or IMSPModifyEntry (modify and rename); then those
  // of Load with items if `reload` is set.

  // AddKey returns 24 if 11 keys are cached, and then records nothing and makes no server call.
  Status AddKey(const std::string& name, bool reload);
  Status AddKey(CMenuItem* record, bool reload);
  Status DeleteKey(const std::string& name, bool reload);
  Status ModifyKey(const CSoftKey& key, bool reload);

  // Gives the key `oldName` on the server the name of `key`. The cache stays unchanged.
  Status RenameSoftKey(const std::string& oldName, const CSoftKey& key);

  // The same with the name of the cached key `newName`. Returns -1 if there is none.
  Status RenameSoftKeyByName(const std::string& oldName, const std::string& newName);

  // --- Fast family ---
  //
  // Server calls: IMSPCreateEntry, IMSPDeleteAB or IMSPModifyEntry (modify and rename).

  // Adds a key with the name of `key`, which stays owned by the caller. Returns the new count, or
  // -1. At 11 cached keys, records nothing and makes no server call.
  std::int32_t FastKeyAdd(const CSoftKey& key);

  // Returns the new count, or -1; also -1 if the server deleted a key that was not cached. Destroys
  // the cached key, even if it is `key` itself.
  std::int32_t FastKeyRemove(const CSoftKey& key);

  // Returns 1, or 0; also 0 if the server changed a key that was not cached. Moves the content of
  // `key` into the cached key: `key` keeps its name and has no items. If `key` is the cached key
  // itself, nothing moves.
  std::int32_t FastKeyModify(CSoftKey* key);

  // Gives the cached key `oldName` the name of `key`. Returns 1, or 0 as above.
  std::int32_t FastKeyRename(const std::string& oldName, const CSoftKey& key);

  // --- More ---

  // Clears the top-level book on the server under the long time-out, then runs Load with items.
  // Returns the status of the clear, or -1 without a scanner.
  // Server calls: those of CScanner::ClearTopBook, then those of Load.
  Status ClearAll();

  // --- Forwards to the scanner; without one they return -1 and make no server call ---
  //
  // Arguments, results and server calls are those of the CScanner operations of the same names.

  // Stores the number of keys on the server in `*count`. Returns the status.
  // Server calls: IMSPSizeofAB.
  Status SizeofTop(std::uint32_t* count) const { return Scanner().SizeofTop(count); }

  Status ReadKeyItems(std::string_view key, KeyRange* range, CMenuItem* items, std::uint32_t* count,
                      std::int32_t direction) const {
    return Scanner().ReadKeyItems(key, range, items, count, direction);
  }
  Status ReadUnterminatedItems(std::string_view key, KeyRange* range, CMenuItem* items,
                               std::uint32_t* count, std::int32_t direction) const {
    return Scanner().ReadUnterminatedItems(key, range, items, count, direction);
  }
  Status CreateKeyItem(std::string_view key, CMenuItem* item) const {
    return Scanner().CreateKeyItem(key, item);
  }
  Status ModifyKeyItem(std::string_view key, CMenuItem* item) const {
    return Scanner().ModifyKeyItem(key, item);
  }
  Status RenameKeyItem(std::string_view key, std::string_view oldName, CMenuItem* item) const {
    return Scanner().RenameKeyItem(key, oldName, item);
  }
  Status DeleteKeyItem(std::string_view key, const CMenuItem& item) const {
    return Scanner().DeleteKeyItem(key, item);
  }
  Status SizeofKey(const std::string& key, std::uint32_t* count) const {
    return Scanner().SizeofKey(key, count);
  }

 private:
  const CScanner& Scanner() const { return ScannerOrUnbound(scanner); }
  Status CreateKeyEntry(CMenuItem* record) const { return Scanner().CreateKeyEntry(record); }
  Status ModifyKeyEntry(std::string_view name, CMenuItem* record) const {
    return Scanner().ModifyKeyEntry(name, record);
  }
  Status DeleteKeyBook(std::string_view name) const { return Scanner().DeleteKeyBook(name); }
  auto NameOfKey() const {
    return [this](std::int32_t i) -> std::string_view {
      return keys[static_cast<std::size_t>(i)]->KeyName();
    };
  }

  CScanner* scanner = nullptr;
  std::vector<std::unique_ptr<CSoftKey>> keys;
  NameCursor findCursor{-1};
};

}  // namespace quillkit

#endif  // QUILLKIT_SOFTKEYS_TOP_LEVEL_AB_H_
