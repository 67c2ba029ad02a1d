// The appliance's set of soft keys: at most 11 CSoftKey objects, held in memory and kept in step
// with the top-level book on the server.
//
// A key exists on the server as an entry of the top-level book and as a book of its own; the server
// ties the two together. A new key is requested as an entry, and a key is removed by the deletion
// of its book.
//
//   plain, with reload     the server changes, then the cache is rebuilt with items: every key
//                          handle is gone
//   plain, without reload  the server changes; the cache shows the old state until Load
//   Fast                   the server changes, then the cache is patched: other handles stay good
//
// The server comes first and nothing is undone. Without a scanner no request makes a call: each
// fails in the style of its family.

#ifndef QUILLKIT_SOFTKEYS_TOP_LEVEL_AB_H_
#define QUILLKIT_SOFTKEYS_TOP_LEVEL_AB_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/root_object.h"
#include "bridge/records.h"
#include "softkeys/soft_key.h"

namespace quillkit {

class CScanner;

// The most keys of an appliance.
inline constexpr std::int32_t MaxSoftKeys = 11;

class CTopLevelAB : public RootObject {
 public:
  static const ClassRecord kClass;

  // The class has a schema but no stream form: Serialize stays the root's empty one.
  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // Stores the scanner, which must outlive this object, and with `load` runs Load with items, whose
  // outcome is dropped. Always 1.
  int Attach(CScanner* newScanner, std::int32_t load);

  // Replaces the cache by the server's keys: IMSPListABEntries, and with items one IMSPReadAB a
  // key, whose status is ignored. The status of the listing, with 4 (no keys) as 0. A failed
  // listing leaves no keys; a server with more than 11 is one such case. A key read without items
  // has no owner: of what needs the server it answers its count alone.
  Status Load(std::int32_t withItems);

  // Drops all cached keys.
  void Clear() { keys.clear(); }

  // --- The cache ---

  std::int32_t Count() const { return static_cast<std::int32_t>(keys.size()); }

  // Null for an index out of range.
  CSoftKey* KeyAt(std::int32_t index) const;

  // The lowest index of a key with exactly this name, or -1.
  std::int32_t Find(std::string_view name) const;

  // Searches as CSoftKey's, over key names, with one difference: a FindNextKey that finds nothing
  // gives the index of the previous hit.
  std::int32_t FindFirstKey(const std::string& pattern, bool wholeName);
  std::int32_t FindNextKey(bool wholeName);

  // The cached key of this name once a read of its book has given 0, as one does that fails and
  // delivers nothing; else null. The items that were read are dropped: the cached key keeps what it
  // held.
  CSoftKey* LoadItems(const std::string& name);

  // --- Plain family: the server's status, or that of the reload ---
  //
  // A name of 32 or more characters goes out as the empty one, here and below.

  // 24, with nothing recorded and no call, when 11 keys are cached.
  Status AddKey(const std::string& name, bool reload);
  Status AddKey(CMenuItem* record, bool reload);
  Status DeleteKey(const std::string& name, bool reload);
  Status ModifyKey(const CSoftKey& key, bool reload);

  // `key` carries the new name; nothing local changes.
  Status RenameSoftKey(const std::string& oldName, const CSoftKey& key);

  // The same with the new name taken from the cached key of that name; -1 when there is none.
  Status RenameSoftKeyByName(const std::string& oldName, const std::string& newName);

  // --- Fast family ---

  // Adds a key with the name of `key`, which stays the caller's: the new count, or -1. At 11 cached
  // keys nothing is recorded and no call is made.
  std::int32_t FastKeyAdd(const CSoftKey& key);

  // The new count, or -1, also when the server dropped a key that was not cached. The cached key is
  // gone, be it `key` itself.
  std::int32_t FastKeyRemove(const CSoftKey& key);

  // 1, or 0, also when the server changed a key that was not cached. The cached key takes over the
  // content of `key`, which keeps its name and no items: go on with the cached one.
  std::int32_t FastKeyModify(CSoftKey* key);

  // Gives the cached key `oldName` the name of `key`. 1, or 0 as above.
  std::int32_t FastKeyRename(const std::string& oldName, const CSoftKey& key);

  // --- More ---

  // The server's number of keys: IMSPSizeofAB.
  Status SizeofTop(std::uint32_t* count) const;

  // Empties the top-level book on the server under the long time-out and loads what is left, with
  // items. The status of the clear.
  Status ClearAll();

  // What CSoftKey asks of the scanner.
  Status ReadKeyItems(std::string_view key, KeyRange* range, CMenuItem* items, std::uint32_t* count,
                      std::int32_t direction) const;
  Status CreateKeyItem(std::string_view key, CMenuItem* item) const;
  Status ModifyKeyItem(std::string_view key, CMenuItem* item) const;
  Status RenameKeyItem(std::string_view key, std::string_view oldName, CMenuItem* item) const;
  Status DeleteKeyItem(std::string_view key, const CMenuItem& item) const;
  Status SizeofKey(const std::string& key, std::uint32_t* count) const;

 private:
  Status CreateKeyEntry(CMenuItem* record) const;
  Status ModifyKeyEntry(std::string_view name, CMenuItem* record) const;
  Status DeleteKeyBook(std::string_view name) const;
  Status Reload(Status changed, bool reload);
  std::int32_t IndexOf(std::string_view name, std::int32_t start, bool wholeName) const;

  CScanner* scanner = nullptr;
  std::vector<std::unique_ptr<CSoftKey>> keys;
  std::int32_t findCursor = -1;
  std::string findPattern;
};

}  // namespace quillkit

#endif  // QUILLKIT_SOFTKEYS_TOP_LEVEL_AB_H_
