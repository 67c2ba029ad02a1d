// A program of the installed library for C.

#include "capi/quillkit_c.h"

#include <stdio.h>
#include <string.h>

int main(void) {
  quill_handle box, keys;
  if (strcmp(quill_version(), QUILLKIT_VERSION) != 0) return 1;
  if (quill_log_to_quillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 1, &box, NULL) != 1)
    return 2;
  if (quill_get_top_level_abook(box, &keys) != 1) return 3;
  printf("quillkit_c %s: %d keys\n", quill_version(), (int)quill_get_count(keys));
  quill_exit();
  return 0;
}
