// Objects that are read back from a stream. The input: the class by its place in the table below,
// as a character from '0' on, a newline, and the stream.

#include "base/archive.h"

#include <sanitizer/allocator_interface.h>

#include <iterator>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "books/email_ab.h"
#include "books/fax_ab.h"
#include "books/fax_entry_list.h"
#include "books/priv_email_ab.h"
#include "books/user_list.h"
#include "books/user_record.h"
#include "bridge/agent.h"
#include "bridge/printer_records.h"
#include "fuzz/input.h"
#include "lists/email_dl.h"
#include "lists/fax_dl.h"
#include "softkeys/soft_key.h"

namespace quillkit {
namespace {

// The bytes that were ever allocated.
std::size_t allocated = 0;
[[maybe_unused]] const int counting = __sanitizer_install_malloc_and_free_hooks(
    [](const volatile void*, std::size_t size) { allocated += size; }, [](const volatile void*) {});

// A record may be this many times as large as the fewest bytes that stand for it.
constexpr std::size_t kMostMemoryByByte = 64;

// An account's section of a backup: another user's is passed over.
class AnnsBackup {
 public:
  AnnsBackup() { user.SetName("Ann"); }
  void Serialize(Archive& archive) { user.SerializeWithBook(archive); }

 private:
  CUserRecord user;
};

template <class Object>
std::string Stored(Object& object) {
  std::string bytes;
  Archive archive(&bytes);
  object.Serialize(archive);
  return bytes;
}

// Loads an object, and gives the bytes that were allocated for it.
template <class Object>
std::size_t Load(Object& object, std::string_view bytes, bool* isWhole) {
  Archive archive(bytes);
  const std::size_t before = allocated;
  object.Serialize(archive);
  *isWhole = !archive.Failed();
  return allocated - before;
}

template <class Object>
void CheckStream(std::string_view bytes) {
  bool isWhole = false;
  Object empty;
  Object object;
  const std::size_t inAnyCase = Load(empty, {}, &isWhole);
  const std::size_t taken = Load(object, bytes, &isWhole);
  Require(taken <= inAnyCase + kMostMemoryByByte * bytes.size(),
          "memory is taken for what the bytes can hold");
  const std::string stored = Stored(object);
  Object copy;
  Load(copy, stored, &isWhole);
  Require(isWhole, "what was stored can be loaded");
  Require(Stored(copy) == stored, "what was loaded is stored as it was");
}

constexpr void (*kChecks[])(std::string_view bytes) = {
    CheckStream<CAgent>,       CheckStream<CScanner>,      CheckStream<CEmailAB>,
    CheckStream<CPrivEmailAB>, CheckStream<CFaxAB>,        CheckStream<CEmailDL>,
    CheckStream<CFaxDL>,       CheckStream<CFaxEntryList>, CheckStream<CUserList>,
    CheckStream<CSoftKey>,     CheckStream<PrinterRecord>, CheckStream<PrinterModelRecord>,
    CheckStream<AnnsBackup>,
};

}  // namespace
}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillkit::Input input(data, size);
  const auto check = quillkit::kChecks[input.TakeBelow(std::size(quillkit::kChecks))];
  input.TakeChar();
  const std::vector<char> stream(input.Rest().begin(), input.Rest().end());
  check({stream.data(), stream.size()});
  return 0;
}
