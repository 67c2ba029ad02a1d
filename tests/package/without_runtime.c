// A program of the installed library for C that a compiler for MSVC builds, without a runtime: its
// entry point returns the exit status.

#include "capi/quillkit_c.h"

int Start(void) {
  quill_handle item;
  uint32_t size = 0;
  if (quill_contract() != QUILL_CONTRACT) return 1;
  if (quill_create_menu_item(&item) != 1 || quill_set_name(item, "Name") != 1) return 2;
  if (quill_get_item_name(item, 0, &size) != QUILL_E_BUFFER || size != 5) return 3;
  return quill_destroy_menu_item(item) == 1 ? 42 : 4;
}
