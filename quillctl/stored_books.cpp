#include "quillctl/stored_books.h"

namespace quillctl {

StoredBooks::StoredBooks()
    : module_(quillkit::LoadModule("IMSPAPI")),
      entryAt_(reinterpret_cast<EntryAt>(quillkit::FindEntryPoint(module_, "SimulatorEntryAt"))) {}

StoredBooks::~StoredBooks() {
  quillkit::UnloadModule(module_);
}

}  // namespace quillctl
