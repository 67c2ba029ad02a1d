// Objects that are loaded from a stream. The input: the class, by its place in the table below as a
// character from '0' on, a newline, and the stream.

#include "base/archive.h"

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
#include "tests/support/stream_form.h"
#include "tests/support/wrapped_heap.h"

namespace quillkit {
namespace {

// The number of bytes allocated since the start.
std::size_t allocated = 0;

// The largest ratio of the size of a record to that of the shortest stream that contains it.
constexpr std::size_t kMaxMemoryPerByte = 64;

// Loads the section of the account Ann in a backup. Skips the section of another user.
class AnnsBackup {
 public:
  AnnsBackup() { user.SetName("Ann"); }
  void Serialize(Archive& archive) { user.SerializeWithBook(archive); }

 private:
  CUserRecord user;
};

template <class Object>
void CheckStream(std::string_view bytes) {
  Object empty;
  Object object;
  Object copy;
  const std::size_t begin = allocated;
  Load(empty, {});
  const std::size_t loaded = allocated;
  Load(object, bytes);
  Require(allocated - loaded <= loaded - begin + kMaxMemoryPerByte * bytes.size(),
          "loading allocates at most 64 bytes for each byte of the stream");
  const std::string stored = Stored(object);
  Require(!Load(copy, stored).Failed(), "what was stored can be loaded");
  Require(Stored(copy) == stored, "storing what was loaded yields the same stream");
}

constexpr void (*kChecks[])(std::string_view bytes) = {
    CheckStream<CAgent>,       CheckStream<CScanner>,      CheckStream<CEmailAB>,
    CheckStream<CPrivEmailAB>, CheckStream<CFaxAB>,        CheckStream<CEmailDL>,
    CheckStream<CFaxDL>,       CheckStream<CFaxEntryList>, CheckStream<CUserList>,
    CheckStream<CSoftKey>,     CheckStream<PrinterRecord>, CheckStream<PrinterModelRecord>,
    CheckStream<AnnsBackup>,
};

}  // namespace

void* AllocateOnHeap(std::size_t size) {
  allocated += size;
  return __real_malloc(size);
}

void* AllocateZeroedOnHeap(std::size_t size) {
  allocated += size;
  return __real_calloc(1, size);
}

void* ResizeOnHeap(void* block, std::size_t size) {
  allocated += size;
  return __real_realloc(block, size);
}

void FreeOnHeap(void* block) {
  __real_free(block);
}

}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillkit::Input input(data, size);
  const auto check = quillkit::kChecks[input.TakeBelow(std::size(quillkit::kChecks))];
  input.TakeChar();
  const std::vector<char> stream(input.Rest().begin(), input.Rest().end());
  check({stream.data(), stream.size()});
  return 0;
}
